// The --preview step of rib2zel: after a complete conversion, the scene file
// it wrote drawn into a PNG picture.
#pragma once

#include <cstdint>

#include "frontend/cli/options.h"

// Returns the exit status: the conversion's, or kExitFailed when the preview
// fails. Its notes and its failure go to print, one line each.
int32_t runPreview(const options& o, int32_t status, void (*print)(const char*));
