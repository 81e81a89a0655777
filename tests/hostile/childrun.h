// Runs the real rib2zel on input that a generator streams into its standard
// input, and collects its exit status and standard error.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Buffered writes to a file descriptor, for generators. A reader that has
// gone away ends the writing quietly: what matters then is the child's status.
class feeder {
 public:
  explicit feeder(int fd) : fd_(fd) {}
  feeder(const feeder&) = delete;
  feeder& operator=(const feeder&) = delete;
  ~feeder() { flush(); }

  feeder& operator<<(const std::string& s);
  feeder& operator<<(const char* s);
  // `s` written `times` times over.
  void repeat(const std::string& s, uint64_t times);
  void flush();

 private:
  int fd_;
  bool broken_ = false;
  std::string buffer_;
};

struct childoptions {
  std::vector<std::string> args;  // after the program's name
  std::function<void(feeder&)> input;
  std::string stdoutPath = "/dev/null";
};

struct childresult {
  int status = -1;                    // exit status, or 128 + signal number
  std::vector<std::string> errLines;  // the first 50 and the last one
};

childresult runchild(const childoptions& options);
