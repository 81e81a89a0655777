#include "rib/bytesource.h"

#include <algorithm>
#include <cstring>

bool bytesource::refill() {
  if (ended_) return false;
  if (pos_ > buf_ + 1) buf_[0] = pos_[-1];
  size_t n = read(buf_ + 1, kBlock);
  if (n == 0) {
    ended_ = true;
    return false;
  }
  pos_ = buf_ + 1;
  end_ = buf_ + 1 + n;
  delivered_ += n;
  return true;
}

size_t memorybytesource::read(unsigned char* dst, size_t cap) {
  size_t n = std::min(cap, size_ - off_);
  if (n) std::memcpy(dst, data_ + off_, n);
  off_ += n;
  return n;
}

size_t filebytesource::read(unsigned char* dst, size_t cap) {
  size_t n = std::fread(dst, 1, cap, f_);
  if (n == 0 && std::ferror(f_)) setFailed();
  return n;
}

size_t istreambytesource::read(unsigned char* dst, size_t cap) {
  in_.read(reinterpret_cast<char*>(dst), static_cast<std::streamsize>(cap));
  std::streamsize n = in_.gcount();
  if (n <= 0 && in_.bad()) setFailed();
  return static_cast<size_t>(n > 0 ? n : 0);
}
