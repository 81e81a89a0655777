#define FAILING_ALLOCATOR_DEFINE_OPERATORS
#include "tests/memory/conversion/walkallocator.h"

#include <cstring>

#include "interface/error.h"

namespace walkallocator {

namespace {

char gRiCall[64] = "";  // no allocation may happen while it is filled

bool insideRiCall() {
  if (!Error::fFuncName) return false;
  std::strncpy(gRiCall, Error::fFuncName, sizeof gRiCall - 1);
  return true;
}

}  // namespace

void arm(uint64_t n) {
  gRiCall[0] = '\0';
  failingallocator::failNth(n);
  failingallocator::spareWhen(insideRiCall);
}

Outcome outcome() {
  if (failingallocator::failures() != 0) return Outcome::delivered;
  return failingallocator::spared() != 0 ? Outcome::insideRiCall : Outcome::none;
}

const char* riCall() {
  return gRiCall;
}

}  // namespace walkallocator
