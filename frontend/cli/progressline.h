// The progress line of a long conversion on a terminal: per cent of the input
// read (or megabytes, when the size is unknown) and the rate, redrawn in place
// on one line and erased before any message is printed and at the end.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

class progressline {
 public:
  using clock = std::chrono::steady_clock;
  using writer = std::function<void(const std::string& text)>;

  // Shown only after kDelay, so a short conversion never shows it.
  static constexpr std::chrono::milliseconds kDelay{1000};
  static constexpr std::chrono::milliseconds kInterval{250};

  // A disabled line (standard error is no terminal) never writes anything.
  progressline(bool enabled, writer write, clock::time_point start);

  // fraction < 0 means the input's size is unknown.
  void update(uint64_t bytes, double fraction, clock::time_point now);
  // Draws the text that make gives for the seconds since the start, when the
  // line is due.
  void update(clock::time_point now, const std::function<std::string(double seconds)>& make);
  // Removes the line if it is shown; a message or the end may follow.
  void erase();

 private:
  // Whether a line is to be drawn now; asked before any text is made, for
  // update runs once per statement.
  bool due(clock::time_point now) const {
    if (!enabled_ || now - start_ < kDelay) return false;
    return shownLength_ == 0 || now - lastDraw_ >= kInterval;
  }

  bool enabled_;
  writer write_;
  clock::time_point start_;
  clock::time_point lastDraw_;
  size_t shownLength_ = 0;  // 0 while no line is shown
};

// The text of the line, without the carriage return in front.
std::string progresstext(uint64_t bytes, double fraction, double seconds);
// The line of a batch: files done of all, and the rate over the files done.
std::string batchprogresstext(size_t done, size_t total, uint64_t bytesDone, double seconds);
