#ifndef RZ_TOOLS_BYTEREADER_H
#define RZ_TOOLS_BYTEREADER_H

#include <cstddef>
#include <cstdio>
#include <string_view>
#include <vector>

namespace ribtools {

// Reads a file or a block of memory byte by byte through a large buffer. One
// byte of pushback is always possible after a successful get(): the byte just
// read still stands in the current buffer.
class ByteReader {
 public:
  explicit ByteReader(FILE* file);
  explicit ByteReader(std::string_view data);

  bool get(unsigned char& c) {
    if (pos_ == end_ && !refill()) return false;
    c = *pos_++;
    return true;
  }
  void putback() { --pos_; }
  // True when a read from the file failed (not at a plain end of file).
  bool failed() const { return failed_; }

 private:
  bool refill();

  FILE* file_ = nullptr;
  std::vector<unsigned char> buffer_;
  const unsigned char* pos_ = nullptr;
  const unsigned char* end_ = nullptr;
  bool failed_ = false;
};

}  // namespace ribtools

#endif
