#include "frontend/cli/options.h"

#include <vector>

#include "frontend/outputname.h"

namespace {

constexpr int32_t kMaxJobs = 1024;
constexpr int32_t kMaxPreviewSide = 16384;

// The arguments not yet read.
struct cursor {
  int argc;
  const char* const* argv;
  int i;
  bool more() const { return i + 1 < argc; }
  std::string next() { return argv[++i]; }
};

// Reads an option with a value: "--name VALUE", "--name=VALUE", and with a
// short name "-n VALUE" and "-nVALUE". False when arg is not that option.
bool takeValue(const std::string& arg, const std::string& name, const std::string& shortName,
               cursor& c, std::string& value, std::string& problem) {
  if (arg == name || (!shortName.empty() && arg == shortName)) {
    if (!c.more()) {
      if (problem.empty()) problem = "option '" + arg + "' needs a value";
      return true;
    }
    value = c.next();
  } else if (arg.rfind(name + "=", 0) == 0) {
    value = arg.substr(name.size() + 1);
  } else if (!shortName.empty() && arg.size() > shortName.size() && arg.rfind(shortName, 0) == 0) {
    value = arg.substr(shortName.size());
  } else {
    return false;
  }
  return true;
}

std::string readJobs(const std::string& text, int32_t& jobs) {
  int32_t n = 0;
  for (char ch : text) {
    if (ch < '0' || ch > '9' || n > kMaxJobs) {
      n = 0;
      break;
    }
    n = n * 10 + (ch - '0');
  }
  if (n < 1 || n > kMaxJobs) {
    return "invalid number of jobs '" + text + "' (1 to " + std::to_string(kMaxJobs) + ")";
  }
  jobs = n;
  return "";
}

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
  } else if (arg == "--strict") {
    o.strict = true;
  } else {
    return false;
  }
  return true;
}

// "WxH", each side 1 to kMaxPreviewSide.
std::string readSize(const std::string& text, int32_t& width, int32_t& height) {
  size_t x = text.find('x');
  int32_t sides[2] = {0, 0};
  bool ok = x != std::string::npos && x > 0 && x + 1 < text.size();
  for (size_t i = 0; ok && i < text.size(); ++i) {
    if (i == x) continue;
    char ch = text[i];
    int32_t& side = sides[i < x ? 0 : 1];
    ok = ch >= '0' && ch <= '9' && side <= kMaxPreviewSide;
    side = side * 10 + (ch - '0');
  }
  if (!ok || sides[0] < 1 || sides[1] < 1 || sides[0] > kMaxPreviewSide ||
      sides[1] > kMaxPreviewSide) {
    return "invalid preview size '" + text + "' (WxH, each 1 to " +
           std::to_string(kMaxPreviewSide) + ")";
  }
  width = sides[0];
  height = sides[1];
  return "";
}

// The preview draws the scene file that was written: there must be one, in a file.
std::string checkPreview(const options& o, bool batch, bool sizeGiven) {
  if (o.preview.empty()) return sizeGiven ? "--preview-size needs --preview" : "";
  if (batch) return "--preview draws one scene: it takes no --output-dir";
  if (o.parseOnly) return "--parse-only writes no scene file to preview";
  return "";
}

std::string placeBatch(const std::vector<std::string>& files, options& o) {
  if (o.outputDir.empty()) return "--output-dir is empty";
  if (o.parseOnly) return "--parse-only writes no scene files: it takes no --output-dir";
  if (files.empty()) return "missing INPUT";
  for (const std::string& f : files) {
    if (f.empty()) return "INPUT is empty";
    if (f == "-") return "standard input cannot be part of a batch (--output-dir)";
  }
  o.inputs = files;
  return "";
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
  if (!o.preview.empty() && o.output == "-")
    return "--preview needs the scene in a file, not on standard output";
  return "";
}

}  // namespace

std::string parseoptions(int argc, const char* const* argv, options& o) {
  std::vector<std::string> files;
  std::string problem;
  std::string jobs;
  std::string size;
  bool previewGiven = false;
  bool optionsEnded = false;
  bool batch = false;
  for (cursor c{argc, argv, 1}; c.i < argc; ++c.i) {
    std::string arg = argv[c.i];
    if (optionsEnded || arg == "-" || arg.empty() || arg[0] != '-') {
      files.push_back(arg);
    } else if (arg == "--") {
      optionsEnded = true;
    } else if (takeValue(arg, "--output-dir", "", c, o.outputDir, problem)) {
      batch = true;
    } else if (takeValue(arg, "--jobs", "-j", c, jobs, problem)) {
      if (problem.empty()) problem = readJobs(jobs, o.jobs);
    } else if (takeValue(arg, "--preview", "", c, o.preview, problem)) {
      previewGiven = true;
    } else if (takeValue(arg, "--preview-size", "", c, size, problem)) {
      if (problem.empty()) problem = readSize(size, o.previewWidth, o.previewHeight);
    } else if (takeOption(arg, o)) {
      o.fileOptions.push_back(arg);
    } else if (problem.empty()) {
      problem = "unknown option '" + arg + "'";
    }
  }
  if (o.help || o.version) return "";
  if (!problem.empty()) return problem;
  if (previewGiven && o.preview.empty()) return "--preview is empty";
  problem = checkPreview(o, batch, !size.empty());
  if (!problem.empty()) return problem;
  if (batch) return placeBatch(files, o);
  if (o.jobs != 0) return "--jobs converts a batch: it needs --output-dir";
  if (!files.empty() && files[0].empty()) return "INPUT is empty";
  return placeFiles(files, o);
}

const char* helptext() {
  return "Usage: rib2zel [OPTIONS] INPUT [OUTPUT]\n"
         "   or: rib2zel [OPTIONS] --output-dir DIR INPUT...\n"
         "Convert the RIB file INPUT (ASCII, binary or mixed, plain or gzip-compressed)\n"
         "into the scene file OUTPUT. OUTPUT defaults to INPUT with its extension\n"
         "replaced by .zel. '-' as INPUT reads standard input; '-' as OUTPUT writes the\n"
         "scene to standard output (the default when INPUT is '-').\n"
         "\n"
         "With --output-dir, each INPUT is a RIB file or a folder standing for every\n"
         "*.rib, *.RIB and *.rib.gz file below it. Each file's scene goes to DIR, with\n"
         "its path below the folder kept (shots/a/f.rib given as shots becomes\n"
         "DIR/a/f.zel); a file given by itself goes to DIR/NAME.zel. Two files that\n"
         "would write the same scene file stop the batch before anything runs.\n"
         "\n"
         "Options:\n"
         "  -q, --quiet           do not print the final status line (or summary)\n"
         "  -x, --extended        read the forms of later RIB versions too: ReadArchive\n"
         "                        and inline archives, string light and object handles,\n"
         "                        inline declarations, procedurals kept as written,\n"
         "                        shading nodes, cameras, conditional blocks\n"
         "      --parse-only      read and check everything, but write no scene file\n"
         "                        (takes no OUTPUT)\n"
         "      --strict          any message, also of the RenderMan Interface layer or\n"
         "                        the scene library, makes the exit status 1\n"
         "      --output-dir DIR  convert a batch of files and folders into DIR\n"
         "      --preview FILE.png  after the conversion, draw the scene file's first\n"
         "                        frame from its camera into FILE.png (RGBA, alpha 0\n"
         "                        where no geometry is)\n"
         "      --preview-size WxH  the picture's size (default: the scene's format,\n"
         "                        640x480 without one, the longer side at most 2048)\n"
         "  -j, --jobs N          convert N files of a batch at once, each in a process\n"
         "                        of its own (default: the number of cores)\n"
         "  -h, --help            show this help and exit\n"
         "      --version         show the version and exit\n"
         "\n"
         "Messages go to standard error, one per line, in the order they arise. The last\n"
         "line is \"Success.\" or \"There are warning/error messages.\"; messages of the\n"
         "RenderMan Interface layer alone do not change it. Ctrl-C, SIGTERM and\n"
         "SIGHUP stop the conversion between two requests; the scene file keeps what\n"
         "was written.\n"
         "\n"
         "In a batch, each message line starts with the path of its RIB file, and a\n"
         "summary ends the run: how many files gave \"Success.\", messages, failed or\n"
         "were interrupted, and the paths of all but the successful ones. Ctrl-C, SIGTERM\n"
         "and SIGHUP stop every running conversion between two requests and start no\n"
         "new one.\n"
         "\n"
         "Exit status: 0 success; 1 the RIB gave warning/error messages; 2 no complete\n"
         "conversion (usage error, input or output cannot be opened, read or write\n"
         "error, a preview that failed); 128 + the signal's number when interrupted\n"
         "(130 for Ctrl-C). A batch exits with 2 when any file failed, else 1 when any\n"
         "had messages, else 0.\n";
}
