#include "frontend/cli/progressline.h"

#include <cstdio>

namespace {
constexpr double kMegabyte = 1024.0 * 1024.0;

double rateOf(double megabytes, double seconds) {
  return seconds > 0 ? megabytes / seconds : 0;
}
}  // namespace

progressline::progressline(bool enabled, writer write, clock::time_point start)
    : enabled_(enabled), write_(std::move(write)), start_(start), lastDraw_(start) {}

void progressline::update(uint64_t bytes, double fraction, clock::time_point now) {
  if (!due(now)) return;
  update(now, [&](double seconds) { return progresstext(bytes, fraction, seconds); });
}

void progressline::update(clock::time_point now,
                          const std::function<std::string(double seconds)>& make) {
  if (!due(now)) return;
  std::string text = make(std::chrono::duration<double>(now - start_).count());
  // Blanks cover what is left of a longer previous line; no terminal escapes needed.
  size_t length = text.size();
  if (length < shownLength_) text.append(shownLength_ - length, ' ');
  write_("\r" + text);
  shownLength_ = length;
  lastDraw_ = now;
}

void progressline::erase() {
  if (shownLength_ == 0) return;
  // Built in place: g++ 12 at -O3 takes "\r" + std::string(...) for an
  // overlapping copy and stops the build.
  std::string blank(shownLength_ + 2, ' ');
  blank.front() = '\r';
  blank.back() = '\r';
  write_(blank);
  shownLength_ = 0;
}

std::string progresstext(uint64_t bytes, double fraction, double seconds) {
  double megabytes = static_cast<double>(bytes) / kMegabyte;
  double rate = rateOf(megabytes, seconds);
  char text[96];
  if (fraction >= 0) {
    int percent = static_cast<int>(fraction * 100);
    std::snprintf(text, sizeof text, "Converting: %3d%% (%.1f MB/s)", percent, rate);
  } else {
    std::snprintf(text, sizeof text, "Converting: %.1f MB read (%.1f MB/s)", megabytes, rate);
  }
  return text;
}

std::string batchprogresstext(size_t done, size_t total, uint64_t bytesDone, double seconds) {
  double rate = rateOf(static_cast<double>(bytesDone) / kMegabyte, seconds);
  char text[96];
  std::snprintf(text, sizeof text, "Converting: %zu of %zu files (%.1f MB/s)", done, total, rate);
  return text;
}
