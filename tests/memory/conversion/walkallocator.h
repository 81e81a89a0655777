// The failing allocator (tests/support/failingallocator.h) with the rule of a
// walk through a whole conversion.
//
// A failure inside a named Ri call ends the process by design (the layer's
// own free-store handler reports and aborts), so a walk cannot run through
// one. When the chosen allocation comes while a call is named, no failure is
// delivered; the name of the call is kept instead, and a death test makes
// that failure happen for real (failingallocator::failNth alone).
#pragma once

#include <cstdint>

#include "tests/support/failingallocator.h"

namespace walkallocator {

enum class Outcome {
  none,         // the chosen allocation never came
  delivered,    // it failed, through the new-handler in force
  insideRiCall  // it came inside a named Ri call and was let through
};

// Starts counting from 0; allocation number `n` (1 is the next one) is the one
// chosen. With n 0 nothing is chosen and the allocations are only counted.
void arm(uint64_t n);
Outcome outcome();
// The named Ri call that the chosen allocation came in, or "".
const char* riCall();

}  // namespace walkallocator
