// The archives a conversion's reader asks for, opened as the input is: plain
// or gzip-compressed, whatever encoding the bytes use.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "frontend/inputfile.h"
#include "rib/archiveopener.h"

class archivefiles : public archiveopener {
 public:
  // Asked, as the input asks it, before each block of an archive is read, so
  // that a stop also ends an endless archive (a device, a pipe).
  void stopWith(inputfile::stopcheck stop) { stop_ = std::move(stop); }
  std::unique_ptr<bytesource> open(const std::string& path, std::string& problem) override;

 private:
  inputfile::stopcheck stop_;
};
