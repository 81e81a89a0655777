#include "frontend/gzipbytesource.h"

namespace {
// 16 added to the window bits asks zlib for the gzip wrapper, header and checksum.
constexpr int kGzipWindowBits = 16 + MAX_WBITS;
}  // namespace

bool gzipbytesource::recognises(const unsigned char* head, size_t n) {
  return n >= 2 && head[0] == kMagic0 && head[1] == kMagic1;
}

gzipbytesource::gzipbytesource(inputfile& in) : in_(in) {
  if (inflateInit2(&zs_, kGzipWindowBits) == Z_OK) {
    ready_ = true;
  } else {
    problem_ = "cannot start decompression (out of memory)";
    setFailed();
  }
}

gzipbytesource::~gzipbytesource() {
  if (ready_) inflateEnd(&zs_);
}

bool gzipbytesource::refillInput() {
  if (zs_.avail_in > 0) return true;
  if (inputEnded_) return false;
  size_t n = in_.read(input_, kInput);
  if (n == 0) {
    inputEnded_ = true;
    return false;
  }
  zs_.next_in = input_;
  zs_.avail_in = static_cast<uInt>(n);
  return true;
}

// After the end of one member: another member may follow, as in `cat a.gz b.gz`.
bool gzipbytesource::startNextMember() {
  if (!refillInput()) return false;
  inflateReset(&zs_);
  return true;
}

void gzipbytesource::fail(const std::string& why) {
  problem_ = why;
  finished_ = true;
  setFailed();
}

size_t gzipbytesource::read(unsigned char* dst, size_t cap) {
  if (!ready_ || finished_) return 0;
  zs_.next_out = dst;
  zs_.avail_out = static_cast<uInt>(cap);
  for (;;) {
    bool haveInput = refillInput();
    if (!haveInput && in_.failed()) {
      fail(in_.problem());
      break;
    }
    int r = inflate(&zs_, Z_NO_FLUSH);
    if (r == Z_STREAM_END) {
      if (!startNextMember()) finished_ = true;
    } else if (r == Z_BUF_ERROR && !haveInput) {
      // The member is incomplete and no input is left. A read stopped by an
      // interrupt ends the input quietly; anything else is a truncated file.
      if (in_.stopped()) {
        finished_ = true;
      } else {
        fail("the compressed data ends early");
      }
    } else if (r != Z_OK) {
      fail(std::string("the compressed data is corrupt (") + (zs_.msg ? zs_.msg : "unknown error") +
           ")");
    }
    if (finished_ || zs_.avail_out < cap) break;
  }
  return cap - zs_.avail_out;
}
