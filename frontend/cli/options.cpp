#include "frontend/cli/options.h"

#include <vector>

#include "frontend/outputname.h"

namespace {

// Returns false when arg is no option that rib2zel knows.
bool takeOption(const std::string& arg, options& o) {
  if (arg == "-q" || arg == "--quiet") {
    o.quiet = true;
  } else if (arg == "-h" || arg == "--help") {
    o.help = true;
  } else if (arg == "--version") {
    o.version = true;
  } else if (arg == "-x" || arg == "--extended") {
    o.extended = true;
  } else if (arg == "--parse-only") {
    o.parseOnly = true;
  } else {
    return false;
  }
  return true;
}

std::string placeFiles(const std::vector<std::string>& files, options& o) {
  if (files.empty()) return "missing INPUT";
  if (files.size() > 2) return "too many arguments: '" + files[2] + "'";
  o.input = files[0];
  if (o.parseOnly) {
    if (files.size() == 2) return "--parse-only writes no OUTPUT";
    return "";
  }
  if (files.size() == 2) {
    o.output = files[1];
  } else {
    // Standard input has no name to derive one from: its scene goes to standard output.
    o.output = o.input == "-" ? "-" : defaultoutputpath(o.input);
  }
  if (o.output.empty()) return "OUTPUT is empty";
  return "";
}

}  // namespace

std::string parseoptions(int argc, const char* const* argv, options& o) {
  std::vector<std::string> files;
  std::string problem;
  bool optionsEnded = false;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (optionsEnded || arg == "-" || arg.empty() || arg[0] != '-') {
      files.push_back(arg);
    } else if (arg == "--") {
      optionsEnded = true;
    } else if (!takeOption(arg, o) && problem.empty()) {
      problem = "unknown option '" + arg + "'";
    }
  }
  if (o.help || o.version) return "";
  if (!problem.empty()) return problem;
  if (!files.empty() && files[0].empty()) return "INPUT is empty";
  return placeFiles(files, o);
}

const char* helptext() {
  return "Usage: rib2zel [OPTIONS] INPUT [OUTPUT]\n"
         "Convert the RIB file INPUT (ASCII, binary or mixed, plain or gzip-compressed)\n"
         "into the scene file OUTPUT. OUTPUT defaults to INPUT with its extension\n"
         "replaced by .zel. '-' as INPUT reads standard input; '-' as OUTPUT writes the\n"
         "scene to standard output (the default when INPUT is '-').\n"
         "\n"
         "Options:\n"
         "  -q, --quiet       do not print the final status line\n"
         "  -x, --extended    read the forms of later RIB versions too: ReadArchive and\n"
         "                    inline archives, string light and object handles, inline\n"
         "                    declarations, procedurals kept as written\n"
         "      --parse-only  read and check everything, but write no scene file\n"
         "                    (takes no OUTPUT)\n"
         "  -h, --help        show this help and exit\n"
         "      --version     show the version and exit\n"
         "\n"
         "Messages go to standard error, one per line, in the order they arise. The last\n"
         "line is \"Success.\" or \"There are warning/error messages.\"; messages of the\n"
         "RenderMan Interface layer alone do not change it. Ctrl-C stops the conversion\n"
         "between two requests; the scene file keeps what was written.\n"
         "\n"
         "Exit status: 0 success; 1 the RIB gave warning/error messages; 2 no complete\n"
         "conversion (usage error, input or output cannot be opened, read or write\n"
         "error); 130 interrupted.\n";
}
