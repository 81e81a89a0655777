#include "tools/binarywriter.h"

#include <cstring>

namespace ribtools {

int BinaryWriter::bytesFor(uint32_t v) {
  if (v < 0x100) return 1;
  if (v < 0x10000) return 2;
  if (v < 0x1000000) return 3;
  return 4;
}

void BinaryWriter::bigEndian(uint32_t v, int bytes) {
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) put((v >> shift) & 0xFF);
}

void BinaryWriter::bits(float v) {
  uint32_t pattern;
  std::memcpy(&pattern, &v, sizeof pattern);
  bigEndian(pattern, 4);
}

void BinaryWriter::integer(int32_t v) {
  // Fewer than four value bytes are never sign-extended, so a negative number
  // always takes all four.
  uint32_t u = static_cast<uint32_t>(v);
  int n = v < 0 ? 4 : bytesFor(u);
  put(0x80 + (n - 1));
  bigEndian(u, n);
}

void BinaryWriter::real(float v) {
  put(0xA4);
  bits(v);
}

void BinaryWriter::string(std::string_view s) {
  if (s.size() < 16) {
    put(0x90 + s.size());
  } else {
    int n = bytesFor(static_cast<uint32_t>(s.size()));
    put(0xA0 + (n - 1));
    bigEndian(static_cast<uint32_t>(s.size()), n);
  }
  for (char c : s) put(static_cast<unsigned char>(c));
}

void BinaryWriter::floatArray(const std::vector<float>& values) {
  uint32_t count = static_cast<uint32_t>(values.size());
  int n = bytesFor(count);
  put(0xC8 + (n - 1));
  bigEndian(count, n);
  for (float v : values) bits(v);
}

void BinaryWriter::keyword(std::string_view word) {
  auto it = codes_.find(word);
  if (it == codes_.end()) {
    if (codes_.size() == 256) {
      verbatim(word);
      return;
    }
    unsigned code = static_cast<unsigned>(codes_.size());
    it = codes_.emplace(std::string(word), code).first;
    put(0xCC);
    put(code);
    defineName(word);
  }
  put(0xA6);
  put(it->second);
}

void BinaryWriter::defineName(std::string_view word) {
  switch (form_) {
    case DefineForm::kBare:
      // The 0xA6 that follows ends the word: a byte with bit 7 set ends it.
      for (char c : word) put(static_cast<unsigned char>(c));
      break;
    case DefineForm::kQuoted:
      // A keyword holds no quote or line end; only a backslash needs escaping.
      put('"');
      for (char c : word) {
        if (c == '\\') put('\\');
        put(static_cast<unsigned char>(c));
      }
      put('"');
      break;
    case DefineForm::kEncoded:
      string(word);
      break;
  }
}

void BinaryWriter::verbatim(std::string_view bytes) {
  for (char c : bytes) put(static_cast<unsigned char>(c));
  put(' ');
}

bool BinaryWriter::flush() {
  if (!buffer_.empty()) {
    if (memory_ != nullptr) {
      memory_->append(buffer_.begin(), buffer_.end());
    } else if (!failed_ &&
               std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) {
      failed_ = true;
    }
    buffer_.clear();
  }
  if (file_ != nullptr && !failed_ && std::fflush(file_) != 0) failed_ = true;
  return !failed_;
}

}  // namespace ribtools
