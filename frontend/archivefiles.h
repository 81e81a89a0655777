// The archives a conversion's reader asks for, opened as the input is: plain
// or gzip-compressed, whatever encoding the bytes use.
#pragma once

#include <memory>
#include <string>

#include "rib/archiveopener.h"

class archivefiles : public archiveopener {
 public:
  std::unique_ptr<bytesource> open(const std::string& path, std::string& problem) override;
};
