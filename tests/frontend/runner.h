// Runs the real rib2zel executable for the end-to-end tests: its standard
// output and standard error go to files, its standard input comes from a
// file, from nothing, or from a pipe that the test writes to.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/scratchdir.h"

namespace fs = std::filesystem;

std::string readfile(const fs::path& p);
// Splits text at "\n"; a missing final line end leaves the last piece in too.
std::vector<std::string> splitlines(const std::string& text);

struct runresult {
  int status = -1;  // exit status, or 128 + signal number
  std::vector<std::string> errLines;
  std::string err;
  std::string out;
};

// Limits set in the child before it runs rib2zel; 0 for none. The signals
// keep their default actions, as under a shell's ulimit.
struct childlimits {
  rlim_t fileSize = 0;  // RLIMIT_FSIZE, bytes
  rlim_t data = 0;      // RLIMIT_DATA, bytes
};

class rib2zelprocess {
 public:
  // stdinPath empty: standard input is /dev/null. stdinPipe: the test writes.
  rib2zelprocess(const scratchdir& dir, const std::vector<std::string>& args,
                 const std::string& stdinPath = "", bool stdinPipe = false,
                 childlimits limits = {});
  ~rib2zelprocess();

  pid_t pid() const { return pid_; }
  // The write end of standard input when stdinPipe was asked for, else -1.
  int stdinFd() const { return stdinFd_; }
  void closeStdin();
  // Waits for the end and collects the outputs. Standard input stays open.
  runresult wait();

 private:
  pid_t pid_ = -1;
  int stdinFd_ = -1;
  fs::path outPath_;
  fs::path errPath_;
};

// Runs to the end. stdinData, when given, is what standard input holds.
runresult runrib2zel(const scratchdir& dir, const std::vector<std::string>& args,
                     const std::string* stdinData = nullptr);
