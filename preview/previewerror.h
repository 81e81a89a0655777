// A scene file the preview cannot draw. The text names the line and the record.
#pragma once

#include <stdexcept>
#include <string>

#include "zel/reader/zelreader.h"

class PreviewError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] void failRecord(const ZelRecord& record, const std::string& what);
