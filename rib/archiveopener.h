// How the reader gets at the files that ReadArchive and the delayed-read
// procedurals name. The reader resolves the path; the front end, which knows
// compression and file handles, opens it.
#pragma once

#include <memory>
#include <string>

#include "rib/bytesource.h"

class archiveopener {
 public:
  virtual ~archiveopener() = default;
  // The bytes of the file at `path`, decompressed; null with `problem` set to
  // the reason when it cannot be opened.
  virtual std::unique_ptr<bytesource> open(const std::string& path, std::string& problem) = 0;
};
