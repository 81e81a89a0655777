// Runs a program of the build (rib2zel, rib2bin) as a child process, the way a
// user runs it, with its standard streams taken from or sent to files.
#pragma once

#include <string>
#include <vector>

namespace golden {

struct ProgramRun {
  std::vector<std::string> argv;  // argv[0] is the program's path
  std::string stdinPath;          // empty: /dev/null
  std::string stdoutPath;         // empty: /dev/null
  std::string stderrPath;         // empty: /dev/null
};

// The exit status of the child, or -1 when it could not be started or did not
// exit normally.
int runProgram(const ProgramRun& run);

std::string readFile(const std::string& path);
bool fileExists(const std::string& path);

}  // namespace golden
