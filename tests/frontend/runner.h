// Runs the real rib2zel executable for the end-to-end tests: its standard
// output and standard error go to files, its standard input comes from a
// file, from nothing, or from a pipe that the test writes to.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/childprocess.h"
#include "tests/support/files.h"
#include "tests/support/scratchdir.h"

namespace fs = std::filesystem;

struct runresult {
  int status = -1;  // exit status, or 128 + signal number
  std::vector<std::string> errLines;
  std::string err;
  std::string out;
};

class rib2zelprocess {
 public:
  // stdinPath empty: standard input is /dev/null. stdinPipe: the test writes.
  rib2zelprocess(const scratchdir& dir, const std::vector<std::string>& args,
                 const std::string& stdinPath = "", bool stdinPipe = false,
                 rlim_t fileSizeLimit = 0, rlim_t dataLimit = 0);

  pid_t pid() const { return child_.pid(); }
  int stdinFd() const { return child_.stdinFd(); }
  void closeStdin() { child_.closeStdin(); }
  // Waits for the end and collects the outputs. Standard input stays open.
  runresult wait();

 private:
  fs::path outPath_;
  fs::path errPath_;
  childprocess child_;
};

// Runs to the end. stdinData, when given, is what standard input holds.
runresult runrib2zel(const scratchdir& dir, const std::vector<std::string>& args,
                     const std::string* stdinData = nullptr);
