// Runs a program of the build as a child process, the way a user runs it:
// each standard stream comes from or goes to a file, or a pipe the test
// holds, and resource limits are set in the child as under a shell's ulimit.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <string>
#include <vector>

struct childrequest {
  std::vector<std::string> argv;  // argv[0] is the program's path
  std::string stdinPath = "";     // empty: /dev/null
  std::string stdoutPath = "";    // empty: /dev/null
  std::string stderrPath = "";    // empty: /dev/null
  bool stdinPipe = false;         // the test writes standard input instead
  bool stderrPipe = false;        // the test reads standard error instead
  rlim_t fileSizeLimit = 0;       // RLIMIT_FSIZE in bytes; 0 for none
  rlim_t dataLimit = 0;           // RLIMIT_DATA (heap and private mappings); 0 for none
};

class childprocess {
 public:
  explicit childprocess(const childrequest& request);
  childprocess(const childprocess&) = delete;
  childprocess& operator=(const childprocess&) = delete;
  // A child still running is killed.
  ~childprocess();

  pid_t pid() const { return pid_; }
  // The test's ends of the pipes asked for, else -1.
  int stdinFd() const { return stdinFd_; }
  int stderrFd() const { return stderrFd_; }
  void closeStdin();
  // Waits for the end: the exit status, or 128 + the signal's number.
  int wait(rusage* usage = nullptr);

 private:
  pid_t pid_ = -1;
  int stdinFd_ = -1;
  int stderrFd_ = -1;
};

// Runs to the end and returns what wait() does.
int runprogram(const childrequest& request);
