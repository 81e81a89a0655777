#include "tests/memory/conversion/walkallocator.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "interface/error.h"

namespace walkallocator {

namespace {

struct State {
  uint64_t count = 0;
  uint64_t chosen = 0;  // 0: none
  bool regardless = false;
  bool paused = false;
  Outcome outcome = Outcome::none;
  char riCall[64] = "";  // no allocation may happen while it is filled
};

State& state() {
  static State s;
  return s;
}

// Whether this allocation is to fail; decides once per arm.
bool choose() {
  State& s = state();
  if (s.paused) return false;
  ++s.count;
  if (s.chosen == 0 || s.count != s.chosen) return false;
  s.chosen = 0;
  if (Error::fFuncName && !s.regardless) {
    s.outcome = Outcome::insideRiCall;
    std::strncpy(s.riCall, Error::fFuncName, sizeof s.riCall - 1);
    return false;
  }
  s.outcome = Outcome::delivered;
  return true;
}

void* allocate(size_t bytes) {
  bool fail = choose();
  for (;;) {
    if (!fail) {
      if (void* p = std::malloc(bytes ? bytes : 1)) return p;
    }
    fail = false;
    std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

}  // namespace

void arm(uint64_t n) {
  State& s = state();
  s.count = 0;
  s.chosen = n;
  s.regardless = false;
  s.outcome = Outcome::none;
  s.riCall[0] = '\0';
}

void disarm() {
  state().chosen = 0;
}

uint64_t count() {
  return state().count;
}

Outcome outcome() {
  return state().outcome;
}

const char* riCall() {
  return state().riCall;
}

void failRegardless(uint64_t n) {
  arm(n);
  state().regardless = true;
}

Pause::Pause() : was_(state().paused) {
  state().paused = true;
}

Pause::~Pause() {
  state().paused = was_;
}

}  // namespace walkallocator

#define REPLACED_NEW_ALLOCATE walkallocator::allocate
#include "tests/support/replacednew.h"
