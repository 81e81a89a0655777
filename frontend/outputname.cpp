#include "frontend/outputname.h"

#include <strings.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

bool endsWithGz(const std::string& name, size_t base) {
  return name.size() >= base + 4 && strcasecmp(name.c_str() + name.size() - 3, ".gz") == 0;
}

}  // namespace

std::string defaultoutputpath(const std::string& input) {
  size_t slash = input.find_last_of('/');
  size_t base = slash == std::string::npos ? 0 : slash + 1;
  std::string stem = input;
  if (endsWithGz(stem, base)) stem.resize(stem.size() - 3);
  size_t dot = stem.find_last_of('.');
  if (dot != std::string::npos && dot > base) stem.resize(dot);
  return stem + ".zel";
}

outputcheck checkoutput(const inputfile& input, const std::string& path, std::string& reason) {
  if (input.isSameFile(path)) return outputcheck::isInput;
  std::FILE* probe = std::fopen(path.c_str(), "wb");
  if (!probe) {
    reason = std::strerror(errno);
    return outputcheck::unwritable;
  }
  std::fclose(probe);
  return outputcheck::usable;
}
