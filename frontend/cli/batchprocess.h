// One conversion of a batch, run as a process of its own: the layers below
// the conversion keep process-wide state, so two conversions never share a
// process. Its standard error comes back through a pipe, line by line.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

class batchprocess {
 public:
  using linesink = std::function<void(const std::string& line)>;

  batchprocess() = default;
  batchprocess(const batchprocess&) = delete;
  batchprocess& operator=(const batchprocess&) = delete;
  // Ends a process that is still running, as a last resort, and reaps it.
  ~batchprocess();

  // Starts program with args (without argv[0]) in a process group of its
  // own, so that only this program's signals reach it; standard input and
  // output are /dev/null. False, with problem set, when it cannot start.
  bool start(const std::string& program, const std::vector<std::string>& args,
             std::string& problem);

  // The read end of the pipe, to poll.
  int fd() const { return fd_; }
  pid_t pid() const { return pid_; }

  // Reads what the pipe holds and hands every complete line to sink, without
  // its line end. False at the end of the output, when a last unfinished
  // line has been handed over too.
  bool read(const linesink& sink);

  // Waits for the process to end and returns its wait status.
  int wait();

 private:
  pid_t pid_ = -1;
  int fd_ = -1;
  std::string pending_;  // the start of a line not yet ended
};
