#include "frontend/cli/progressline.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using std::chrono::milliseconds;

struct recorder {
  std::vector<std::string> writes;
  progressline::writer writer() {
    return [this](const std::string& text) { writes.push_back(text); };
  }
};

const progressline::clock::time_point t0{};

}  // namespace

// Hidden during the first second, and always when disabled.
TEST(ProgressLine, WritesNothingWhenHiddenOrDisabled) {
  for (auto [enabled, ms] : {std::pair{true, 999}, std::pair{false, 5000}}) {
    recorder r;
    progressline line(enabled, r.writer(), t0);
    line.update(1 << 20, 0.5, t0 + milliseconds(ms));
    line.erase();
    EXPECT_TRUE(r.writes.empty()) << enabled;
  }
}

TEST(ProgressLine, RedrawsInPlaceAtMostFourTimesASecondAndBlanksItsTrace) {
  recorder r;
  progressline line(true, r.writer(), t0);
  line.update(3 << 20, 0.25, t0 + milliseconds(1500));
  line.update(4 << 20, 0.30, t0 + milliseconds(1600));
  line.update(8 << 20, -1, t0 + milliseconds(2000));
  line.update(6 << 20, 0.50, t0 + milliseconds(4000));
  line.erase();
  line.erase();
  EXPECT_EQ(r.writes, (std::vector<std::string>{
                          "\rConverting:  25% (2.0 MB/s)",
                          "\rConverting: 8.0 MB read (4.0 MB/s)",
                          "\rConverting:  50% (1.5 MB/s)" + std::string(7, ' '),
                          "\r" + std::string(27, ' ') + "\r",
                      }));
}

TEST(ProgressText, ShowsMegabytesWhenTheSizeIsUnknown) {
  EXPECT_EQ(progresstext(5 << 20, -1, 2.0), "Converting: 5.0 MB read (2.5 MB/s)");
  EXPECT_EQ(progresstext(0, 1.0, 0.0), "Converting: 100% (0.0 MB/s)");
}
