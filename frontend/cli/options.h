// The command line of rib2zel: rib2zel [OPTIONS] INPUT [OUTPUT].
#pragma once

#include <string>

struct options {
  std::string input;
  std::string output;  // filled in from INPUT when not given
  bool quiet = false;
  bool parseOnly = false;
  bool extended = false;
  bool help = false;
  bool version = false;
};

// Reads argv into o. Returns an empty string, or the usage error to show.
// --help and --version win over any usage error.
std::string parseoptions(int argc, const char* const* argv, options& o);

// The text of --help.
const char* helptext();
