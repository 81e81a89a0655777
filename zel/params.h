// The parameter info that _zelParameterInfo leaves for the next call with a
// parameter list, and the writing of that list. The info is the only source
// of value counts: a value is read exactly as far as its count says, and a
// list without matching info is written without its values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "interface/ritypes.h"
#include "interface/scene/zel.h"

namespace zel {

class PendingParams {
 public:
  // Keeps a copy: the caller's array and names need not outlive the call.
  void set(int32_t n, const ZelParam* params);

  enum class Match { Ok, Missing, Mismatch };
  // Whether the info fits the list about to be written: same count, same
  // codes in the same order.
  Match match(int32_t n, const uint16_t* codes) const;

  // ,"params":[...] for the list; the values only when `match` gave Ok.
  // Uses the info up.
  void write(std::string& out, int32_t n, const uint16_t* codes, const RtPointer* values,
             Match match);

  void clear();

 private:
  struct Info {
    uint16_t code;
    uint8_t type;
    uint8_t tokenClass;
    uint32_t count;
    int32_t nameAt;  // offset into names_, -1 for a null name
  };
  void writeOne(std::string& out, const Info& info, const void* value) const;

  bool set_ = false;
  std::vector<Info> infos_;
  std::string names_;  // NUL-separated copies
};

}  // namespace zel
