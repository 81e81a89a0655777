// A replacement of the global allocation functions that counts allocations and
// can be told to fail one: the Nth request from now, or the first request
// above a size. A failure goes through the installed new-handler exactly as a
// real exhaustion would, and the allocator disarms itself after failing once,
// so the handler's own work (building the exception, printing a report) finds
// memory again. A test may spare the chosen request (see spareWhen).
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
  unsigned spared = 0;      // chosen requests let through since the last arm
  uint64_t count = 0;       // requests since the last arm, paused ones excepted
  bool paused = false;
  bool (*spare)() = nullptr;  // asked about the chosen request: true lets it through
};

inline State& state() {
  static State s;
  return s;
}

// Fails the nth allocation request from now (1 is the very next one); with n
// 0 the requests are only counted.
inline void failNth(uint64_t n) {
  state() = State{true, n, SIZE_MAX, 0, 0, 0, false, nullptr};
}

// Fails the first allocation request of more than `bytes` bytes.
inline void failAbove(size_t bytes) {
  state() = State{true, 0, bytes, 0, 0, 0, false, nullptr};
}

// After failNth or failAbove: the chosen request is let through, once,
// whenever `rule` says so at that moment.
inline void spareWhen(bool (*rule)()) {
  state().spare = rule;
}

inline void disarm() {
  state().armed = false;
}
inline unsigned failures() {
  return state().failures;
}
inline unsigned spared() {
  return state().spared;
}
inline uint64_t count() {
  return state().count;
}

// Decides about one request; called by the replacement operators.
inline bool shouldFail(size_t bytes) {
  State& s = state();
  if (s.paused) return false;
  ++s.count;
  if (!s.armed) return false;
  const bool chosen = bytes > s.above || (s.countdown != 0 && --s.countdown == 0);
  if (!chosen) return false;
  s.armed = false;
  const bool spare = s.spare && s.spare();
  ++(spare ? s.spared : s.failures);
  return !spare;
}

inline void* allocate(size_t bytes) {
  for (bool fail = shouldFail(bytes);; fail = false) {
    if (!fail) {
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

// While one lives, requests are neither counted nor failed: for a test's own
// bookkeeping in the middle of the code under test.
class Pause {
 public:
  Pause() : was_(state().paused) { state().paused = true; }
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;
  ~Pause() { state().paused = was_; }

 private:
  bool was_;
};

}  // namespace failingallocator

#ifdef FAILING_ALLOCATOR_DEFINE_OPERATORS
#define REPLACED_NEW_ALLOCATE failingallocator::allocate
#include "tests/support/replacednew.h"
#undef REPLACED_NEW_ALLOCATE
#endif
