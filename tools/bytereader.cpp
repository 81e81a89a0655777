#include "tools/bytereader.h"

namespace ribtools {

namespace {
constexpr size_t kBlockSize = 1 << 20;
}

ByteReader::ByteReader(FILE* file) : file_(file), buffer_(kBlockSize) {
  pos_ = end_ = buffer_.data();
}

ByteReader::ByteReader(std::string_view data) {
  pos_ = reinterpret_cast<const unsigned char*>(data.data());
  end_ = pos_ + data.size();
}

bool ByteReader::refill() {
  if (file_ == nullptr || failed_) return false;
  size_t n = std::fread(buffer_.data(), 1, buffer_.size(), file_);
  if (n == 0) {
    failed_ = std::ferror(file_) != 0;
    return false;
  }
  pos_ = buffer_.data();
  end_ = pos_ + n;
  return true;
}

}  // namespace ribtools
