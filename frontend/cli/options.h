// The command line of rib2zel: rib2zel [OPTIONS] INPUT [OUTPUT], or
// rib2zel [OPTIONS] --output-dir DIR INPUT... for a batch.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct options {
  std::string input;
  std::string output;  // filled in from INPUT when not given
  bool quiet = false;
  bool parseOnly = false;
  bool strict = false;
  bool extended = false;
  bool help = false;
  bool version = false;

  // --preview FILE.png: the scene file drawn after the conversion, at the
  // scene's own size or --preview-size WxH.
  std::string preview;
  int32_t previewWidth = 0, previewHeight = 0;  // 0: not given

  // A batch: every INPUT (a file or a folder) converted into outputDir.
  std::string outputDir;
  std::vector<std::string> inputs;
  int32_t jobs = 0;  // 0: as many as there are cores
  // The options, as given, that each file of a batch is converted with.
  std::vector<std::string> fileOptions;

  bool batch() const { return !outputDir.empty(); }
};

// Reads argv into o. Returns an empty string, or the usage error to show.
// --help and --version win over any usage error.
std::string parseoptions(int argc, const char* const* argv, options& o);

// The text of --help.
const char* helptext();
