#include "frontend/cli/progressline.h"

#include <cstdio>

namespace {
constexpr double kMegabyte = 1024.0 * 1024.0;
}  // namespace

progressline::progressline(bool enabled, writer write, clock::time_point start)
    : enabled_(enabled), write_(std::move(write)), start_(start), lastDraw_(start) {}

void progressline::update(uint64_t bytes, double fraction, clock::time_point now) {
  if (!enabled_ || now - start_ < kDelay) return;
  if (shownLength_ > 0 && now - lastDraw_ < kInterval) return;
  double seconds = std::chrono::duration<double>(now - start_).count();
  std::string text = progresstext(bytes, fraction, seconds);
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
  double rate = seconds > 0 ? megabytes / seconds : 0;
  char text[96];
  if (fraction >= 0) {
    int percent = static_cast<int>(fraction * 100);
    std::snprintf(text, sizeof text, "Converting: %3d%% (%.1f MB/s)", percent, rate);
  } else {
    std::snprintf(text, sizeof text, "Converting: %.1f MB read (%.1f MB/s)", megabytes, rate);
  }
  return text;
}
