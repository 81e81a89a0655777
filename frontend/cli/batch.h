// rib2zel --output-dir DIR INPUT...: converts many RIB files, several at once,
// each in a process of its own running this very program on one file.
#pragma once

#include <cstdint>

#include "frontend/cli/options.h"

// Runs the batch that o describes and returns the exit status.
int32_t runbatch(const options& o);
