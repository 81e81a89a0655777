#ifndef RZ_TOOLS_BINARYWRITER_H
#define RZ_TOOLS_BINARYWRITER_H

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ribtools {

// How the name after a request definition (0xCC and its code) is written.
enum class DefineForm { kBare, kQuoted, kEncoded };

// Writes binary RIB tokens into a file or a string, through a buffer.
class BinaryWriter {
 public:
  BinaryWriter(FILE* file, DefineForm form) : file_(file), form_(form) {}
  BinaryWriter(std::string& out, DefineForm form) : memory_(&out), form_(form) {}
  ~BinaryWriter() { flush(); }

  void integer(int32_t v);
  void real(float v);
  void string(std::string_view s);
  // A request name: defined with 0xCC on first use, then called by its code.
  // Past 256 distinct names the word goes out as ASCII text.
  void keyword(std::string_view word);
  void floatArray(const std::vector<float>& values);
  void byte(unsigned char c) { put(c); }
  // Copies ASCII bytes unchanged, with a blank after them so that the next
  // token cannot run into them.
  void verbatim(std::string_view bytes);

  // Writes out the buffer; false once a write has failed.
  bool flush();

 private:
  void put(unsigned char c) {
    buffer_.push_back(c);
    if (buffer_.size() >= kFlushSize) flush();
  }
  void bigEndian(uint32_t v, int bytes);
  void bits(float v);
  void defineName(std::string_view word);
  static int bytesFor(uint32_t v);

  static constexpr size_t kFlushSize = 1 << 20;
  FILE* file_ = nullptr;
  std::string* memory_ = nullptr;
  DefineForm form_;
  std::vector<unsigned char> buffer_;
  // Transparent, so that a name is looked up without building a string.
  struct NameHash {
    using is_transparent = void;
    size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
  };
  std::unordered_map<std::string, unsigned, NameHash, std::equal_to<>> codes_;
  bool failed_ = false;
};

}  // namespace ribtools

#endif
