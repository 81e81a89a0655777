// The global allocation functions of this executable, made to fail at a
// chosen allocation so that a test can walk a conversion through a failure at
// every allocation in turn.
//
// A failure inside a named Ri call ends the process by design (the layer's
// own free-store handler reports and aborts), so a walk cannot run through
// one. When the chosen allocation comes while a call is named, no failure is
// delivered; the name of the call is kept instead, and a death test makes
// that failure happen for real.
//
// A failure goes through the installed new-handler as a real exhaustion
// would, once: the handler's own work (building the exception, printing the
// report) finds memory again.
#pragma once

#include <cstddef>
#include <cstdint>

namespace walkallocator {

enum class Outcome {
  none,         // the chosen allocation never came
  delivered,    // it failed, through the new-handler in force
  insideRiCall  // it came inside a named Ri call and was let through
};

// Starts counting from 0; allocation number `n` (1 is the next one) is the one
// chosen. With n 0 nothing is chosen and the allocations are only counted.
void arm(uint64_t n);
// Stops choosing; the count stays readable.
void disarm();

// Allocations counted since arm, paused ones excepted.
uint64_t count();
Outcome outcome();
// The named Ri call that the chosen allocation came in, or "".
const char* riCall();

// Fails allocation `n` from now whatever is running: for the death test.
void failRegardless(uint64_t n);

// While one lives, allocations are neither counted nor failed: for the test's
// own bookkeeping in the middle of a conversion (collecting a report line).
class Pause {
 public:
  Pause();
  ~Pause();
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;

 private:
  bool was_;
};

}  // namespace walkallocator
