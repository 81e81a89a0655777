#include "frontend/cli/progressline.h"

#include <cstdio>

namespace {
// Back to the start of the line, and clear it to its end.
constexpr const char* kErase = "\r\033[K";
constexpr double kMegabyte = 1024.0 * 1024.0;
}  // namespace

progressline::progressline(bool enabled, writer write, clock::time_point start)
    : enabled_(enabled), write_(std::move(write)), start_(start), lastDraw_(start) {}

void progressline::update(uint64_t bytes, double fraction, clock::time_point now) {
  if (!enabled_ || now - start_ < kDelay) return;
  if (shown_ && now - lastDraw_ < kInterval) return;
  double seconds = std::chrono::duration<double>(now - start_).count();
  write_(kErase + progresstext(bytes, fraction, seconds));
  shown_ = true;
  lastDraw_ = now;
}

void progressline::erase() {
  if (!shown_) return;
  write_(kErase);
  shown_ = false;
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
