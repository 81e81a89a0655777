// One line of the scene file: {"op":NAME,"args":[...]} with, where they
// apply, "params" and "handle". Arguments are appended in the boundary's
// order; `end` completes the line and commits it. While the output is
// skipped nothing is formatted, but the checks run all the same.
//
// A code that _zelQuark gave must have its Quark record in the file before
// the first line that uses it. Records that carry such codes call `payQuark`
// for them before they begin; a parameter list's codes are paid by the
// constructor that takes the list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "interface/ritypes.h"
#include "zel/params.h"

namespace zel {

void payQuark(uint16_t code);
// The Quark record itself, for a code the current file has not been told yet.
void writeQuark(uint16_t code);

struct ParamList {
  int32_t n;
  const uint16_t* codes;
  const RtPointer* values;
};

class Record {
 public:
  explicit Record(const char* op);
  Record(const char* op, const ParamList& list);
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  Record& i(int64_t value);
  Record& f(float value);
  Record& text(const char* value);
  Record& floats(const float* values, size_t n);
  Record& ints(const int32_t* values, size_t n);
  Record& texts(const char* const* values, size_t n);
  // A function or data pointer means nothing in a file: true, or null.
  Record& opaque(bool present);
  Record& handle(int64_t value);
  // Completes and commits the line, then reports a parameter list that came
  // without matching info.
  void end();

 private:
  void begin();
  bool separate();

  std::string* out_;  // null while the output is skipped
  const char* op_;
  bool first_ = true;
  bool hasList_ = false;
  ParamList list_{};
  PendingParams::Match match_ = PendingParams::Match::Ok;
  bool hasHandle_ = false;
  int64_t handle_ = 0;
};

// Reports `fault`, when there is one, as an error with `code`.
void reportFault(int32_t code, const std::string& fault);

}  // namespace zel
