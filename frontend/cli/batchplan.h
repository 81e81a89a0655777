// Which RIB files a batch converts and where each scene file goes: the
// folders given are walked, then every file is given its place below the
// output folder, and two files meant for the same scene file are found before
// anything runs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A RIB file of the batch: its path as shown in messages, and its path below
// the folder it was found in (its bare name when it was given by itself).
struct batchinput {
  std::string path;
  std::string relative;
  uint64_t bytes = 0;
};

struct batchjob {
  std::string input;
  std::string output;
  uint64_t bytes = 0;
};

// A folder given that yields no conversion. failed: it could not be read (an
// empty folder is only noted).
struct batchproblem {
  std::string path;
  std::string message;
  bool failed = true;
};

struct batchplan {
  std::vector<batchjob> jobs;
  std::vector<std::string> clashes;  // one line for each scene file wanted twice
};

// Takes each argument that names a folder as every *.rib, *.RIB and *.rib.gz
// file below it, in name order; any other argument is a file of its own. A
// folder that cannot be read, or holds no RIB file, adds to problems.
std::vector<batchinput> findbatchinputs(const std::vector<std::string>& args,
                                        std::vector<batchproblem>& problems);

// Places every input's scene below outputDir, in the order of the inputs.
batchplan planbatch(const std::vector<batchinput>& inputs, const std::string& outputDir);

// "f.0001.rib", "f.0001.RIB" and "f.0001.rib.gz" give "f.0001.zel"; any other
// name keeps its extension ("f.txt" gives "f.txt.zel").
std::string batchscenename(const std::string& relative);

// True for the names that a folder stands for.
bool isribname(const std::string& name);
