// A fresh directory for one test, removed with everything in it afterwards.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

class scratchdir {
 public:
  scratchdir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "rib2zel-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
  }
  scratchdir(const scratchdir&) = delete;
  scratchdir& operator=(const scratchdir&) = delete;
  ~scratchdir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path file(const std::string& name) const { return path_ / name; }
  // Writes bytes to a file in this directory and returns its path.
  std::filesystem::path write(const std::string& name, const std::string& bytes) const {
    std::filesystem::path p = file(name);
    std::ofstream(p, std::ios::binary) << bytes;
    return p;
  }

 private:
  std::filesystem::path path_;
};
