// The codes and severities of the reader's reports. The numbers are part of
// the interface: a report handler gets them as plain numbers, and each code
// has its fixed text (lexanrib_report.cpp).
#pragma once

#include <cstdint>

enum RIBCode : int32_t {
  kRibReported = 0,  // already reported: a catcher only recovers
  kRibArrayMemory = 1,
  kRibBadValue = 2,
  kRibBadArray = 3,
  kRibBadBasis = 4,
  kRibBadColor = 5,
  kRibBadHandle = 6,
  kRibTypeMismatch = 7,
  kRibBadRequestCode = 8,
  kRibBadStringToken = 9,
  kRibBadBinaryToken = 10,
  kRibVersion = 11,
  kRibLimit = 12,
  kRibNoMemory = 13,
  kRibBadEncoding = 14,
  kRibStringMemory = 15,
  kRibSyntax = 16,
  kRibUnknownRequest = 17,
};

enum RIBSeverity : int32_t {
  kRibInfo = 0,
  kRibWarning = 1,
  kRibError = 2,
  kRibSevere = 3,
};
