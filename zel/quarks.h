// Codes for names that are not predeclared. A text keeps its code for the life
// of the process (the Ri layer's dictionary keeps it too), while the record
// that tells a file the name is owed once per scene file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zel {

class Quarks {
 public:
  // Above every predeclared code and every number the boundary passes
  // (those end at 0x0C02), below the predeclared 0xFF01 to 0xFF20.
  static constexpr uint16_t kFirst = 0x1000;
  static constexpr uint16_t kLast = 0xFEFF;
  static constexpr size_t kCapacity = kLast - kFirst + 1;

  struct Result {
    uint16_t code;  // 0 when every code is taken
    bool fresh;     // the text had no code before
  };
  Result code(std::string_view text);

  bool isQuark(uint16_t code) const {
    return code >= kFirst && static_cast<size_t>(code - kFirst) < names_.size();
  }
  const std::string& name(uint16_t code) const { return *names_[code - kFirst]; }

  // Whether the current file still lacks the Quark record of `code`.
  bool owed(uint16_t code) const { return isQuark(code) && !written_[code - kFirst]; }
  void markWritten(uint16_t code) { written_[code - kFirst] = true; }
  void newFile();  // every name is owed again
  void clear();    // forgets every name; for tests of the library alone

 private:
  struct Hash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  std::unordered_map<std::string, uint16_t, Hash, std::equal_to<>> codes_;
  std::vector<const std::string*> names_;  // by code - kFirst
  std::vector<bool> written_;              // by code - kFirst
};

}  // namespace zel
