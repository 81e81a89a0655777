#include "zel/quarks.h"

#include <algorithm>

namespace zel {

Quarks::Result Quarks::code(std::string_view text) {
  auto found = codes_.find(text);
  if (found != codes_.end()) return {found->second, false};
  if (names_.size() == kCapacity) return {0, false};
  uint16_t code = static_cast<uint16_t>(kFirst + names_.size());
  // Room first: once the name is in the map nothing may fail, or the map and
  // the lists would disagree about which codes are given. (Declare asks
  // outside any named Ri call, where a failed allocation is an exception.)
  if (names_.size() == names_.capacity()) names_.reserve(2 * names_.size() + 16);
  if (written_.size() == written_.capacity()) written_.reserve(2 * written_.size() + 16);
  auto stored = codes_.emplace(std::string(text), code).first;
  names_.push_back(&stored->first);  // node keys keep their address
  written_.push_back(false);
  return {code, true};
}

void Quarks::newFile() {
  std::fill(written_.begin(), written_.end(), false);
}

void Quarks::clear() {
  codes_.clear();
  names_.clear();
  written_.clear();
}

}  // namespace zel
