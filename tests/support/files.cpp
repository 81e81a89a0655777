#include "tests/support/files.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<std::string> splitLines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

std::filesystem::path sourcePath(const std::string& relative) {
  const char* root = std::getenv("RZ_SOURCE_DIR");
  return std::filesystem::path(root && *root ? root : ".") / relative;
}
