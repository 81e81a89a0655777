// What rib2zel's exit status says, for one file and for a batch. A stop by a
// signal exits with 128 + its number, as a shell reports it.
#pragma once

#include <cstdint>

constexpr int32_t kExitSuccess = 0;
constexpr int32_t kExitMessages = 1;  // the RIB gave messages (any message, with --strict)
constexpr int32_t kExitFailed = 2;    // no complete conversion
constexpr int32_t kExitSignalBase = 128;
