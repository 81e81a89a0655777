#include "frontend/inputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

inputfile::~inputfile() {
  if (owned_) ::close(fd_);
}

bool inputfile::open(const std::string& path, stopcheck stop) {
  stop_ = std::move(stop);
  if (path == "-") {
    fd_ = STDIN_FILENO;
  } else {
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0) {
      problem_ = std::strerror(errno);
      return false;
    }
    owned_ = true;
  }
  struct stat st;
  if (::fstat(fd_, &st) == 0) {
    // A directory opens without complaint; say so now rather than at the first read.
    if (S_ISDIR(st.st_mode)) {
      problem_ = std::strerror(EISDIR);
      return false;
    }
    if (S_ISREG(st.st_mode)) size_ = st.st_size;
    device_ = st.st_dev;
    inode_ = st.st_ino;
  }
  return true;
}

bool inputfile::isSameFile(const std::string& path) const {
  struct stat st;
  return fd_ >= 0 && ::stat(path.c_str(), &st) == 0 && st.st_dev == device_ && st.st_ino == inode_;
}

const unsigned char* inputfile::peek(size_t n, size_t& available) {
  n = std::min(n, sizeof head_);
  while (headEnd_ < n) {
    size_t got = readfd(head_ + headEnd_, n - headEnd_);
    if (got == 0) break;
    headEnd_ += got;
  }
  available = headEnd_ - headBegin_;
  return head_ + headBegin_;
}

size_t inputfile::read(unsigned char* dst, size_t cap) {
  size_t n = 0;
  if (headBegin_ < headEnd_) {
    n = std::min(cap, headEnd_ - headBegin_);
    std::memcpy(dst, head_ + headBegin_, n);
    headBegin_ += n;
  } else {
    n = readfd(dst, cap);
  }
  consumed_ += n;
  return n;
}

size_t inputfile::readfd(unsigned char* dst, size_t cap) {
  if (fd_ < 0 || failed() || stopped_ || cap == 0) return 0;
  for (;;) {
    // Asked before every block, not only after a wait that a signal cut
    // short: input that never waits (/dev/zero, one endless token) must
    // stop too.
    if (stop_ && stop_()) {
      stopped_ = true;
      return 0;
    }
    ssize_t got = ::read(fd_, dst, cap);
    if (got >= 0) return static_cast<size_t>(got);
    if (errno != EINTR) {
      problem_ = std::strerror(errno);
      return 0;
    }
  }
}

size_t plainbytesource::read(unsigned char* dst, size_t cap) {
  size_t n = in_.read(dst, cap);
  if (n == 0 && in_.failed()) setFailed();
  return n;
}
