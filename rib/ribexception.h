// What the scanner and the allocator's failure handler throw while a RIB
// stream is read. Code 0 means the fault has been reported already, so the
// catcher only recovers.
#pragma once

#include <cstdint>

#include "foundation/String.h"
#include "rib/ribcodes.h"

struct RIBException {
  RIBException(int32_t code, int32_t severity, const String& message)
      : code(code), severity(severity), message(message) {}

  int32_t code;
  int32_t severity;
  String message;
};
