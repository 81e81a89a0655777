// Runs the real rib2zel on input that a generator streams into its standard
// input, and measures what the process cost: its peak resident memory and its
// processor time, as the kernel accounts them for the child alone.
#pragma once

#include <sys/resource.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// The sanitizer build runs several times slower. Sizes that need only be
// large, not exactly what a test names, are divided by this there.
#ifdef __SANITIZE_ADDRESS__
constexpr uint64_t kSlowBuildDivisor = 4;
#else
constexpr uint64_t kSlowBuildDivisor = 1;
#endif

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
  uint64_t written() const { return written_; }

 private:
  int fd_;
  bool broken_ = false;
  std::string buffer_;
  uint64_t written_ = 0;
};

struct childoptions {
  std::vector<std::string> args;  // after the program's name
  std::function<void(feeder&)> input;
  std::string stdoutPath = "/dev/null";
  // A limit on the size of any file the child writes (RLIMIT_FSIZE), in
  // bytes; 0 for none. Writing beyond it then fails with EFBIG.
  rlim_t fileSizeLimit = 0;
  // A limit on the child's data (RLIMIT_DATA: its heap and private
  // mappings), in bytes; 0 for none. Allocations beyond it fail.
  rlim_t dataLimit = 0;
};

struct childresult {
  int status = -1;        // exit status, or 128 + signal number
  long peakKB = 0;        // ru_maxrss
  double cpuSeconds = 0;  // user + system
  uint64_t inputBytes = 0;
  uint64_t errLineCount = 0;
  std::vector<std::string> errLines;  // the first 50 and the last one
};

childresult runchild(const childoptions& options);

// The peak of rib2zel --parse-only on an empty input: what every run pays.
long baselinePeakKB();
