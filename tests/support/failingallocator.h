// A replacement of the global allocation functions that can be told to fail:
// the Nth request from now, or the first request above a size. A failure goes
// through the installed new-handler exactly as a real exhaustion would, and
// the allocator disarms itself after failing once, so the handler's own work
// (building the exception, printing a report) finds memory again.
//
// Control functions may be used from any file. The replacement operators are
// defined only where FAILING_ALLOCATOR_DEFINE_OPERATORS is defined before the
// include: do that in exactly one file of an executable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace failingallocator {

struct State {
  bool armed = false;
  uint64_t countdown = 0;   // fail when this reaches 0; 0 means not counting
  size_t above = SIZE_MAX;  // fail a request of more bytes than this
  unsigned failures = 0;    // failures delivered since the last arm
};

inline State& state() {
  static State s;
  return s;
}

// Fails the nth allocation request from now (1 is the very next one).
inline void failNth(uint64_t n) {
  state() = State{true, n, SIZE_MAX, 0};
}

// Fails the first allocation request of more than `bytes` bytes.
inline void failAbove(size_t bytes) {
  state() = State{true, 0, bytes, 0};
}

inline void disarm() {
  state().armed = false;
}
inline unsigned failures() {
  return state().failures;
}

// Decides about one request; called by the replacement operators.
inline bool shouldFail(size_t bytes) {
  State& s = state();
  if (!s.armed) return false;
  const bool fail = bytes > s.above || (s.countdown != 0 && --s.countdown == 0);
  if (fail) {
    s.armed = false;
    ++s.failures;
  }
  return fail;
}

inline void* allocate(size_t bytes) {
  for (;;) {
    if (!shouldFail(bytes)) {
      if (void* p = std::malloc(bytes ? bytes : 1)) return p;
    }
    std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

// Disarms on leaving the scope, so a failing assertion cannot leave the
// allocator armed for the next test.
class Scope {
 public:
  Scope() = default;
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope() { disarm(); }
};

}  // namespace failingallocator

#ifdef FAILING_ALLOCATOR_DEFINE_OPERATORS
#define REPLACED_NEW_ALLOCATE failingallocator::allocate
#include "tests/support/replacednew.h"
#undef REPLACED_NEW_ALLOCATE
#endif
