// The scanner's input: one byte at a time with one byte of pushback, served
// from a block buffer so that the per-byte cost is a compare and an increment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <istream>

class bytesource {
 public:
  bytesource() = default;
  bytesource(const bytesource&) = delete;
  bytesource& operator=(const bytesource&) = delete;
  virtual ~bytesource() = default;

  // The end test that comes before a read: true when no byte is left.
  bool eof() { return pos_ == end_ && !refill(); }

  // Reads one byte into c. Returns false when the read failed (end of input or
  // an I/O error); c keeps its old value then.
  bool get(unsigned char& c) {
    if (pos_ == end_ && !refill()) return false;
    c = *pos_++;
    return true;
  }

  // Gives back the byte read last. Only one byte of pushback is supported.
  void putback(unsigned char c) { *--pos_ = c; }

  // Bytes handed out so far (less any byte put back), for progress reports.
  uint64_t consumed() const { return delivered_ - static_cast<uint64_t>(end_ - pos_); }

  // True once the underlying read reported an error (as opposed to the end).
  bool failed() const { return failed_; }

  // The same get and putback for a tight loop, with the position held in the
  // cursor (in registers) rather than in the source, where every store of a
  // byte elsewhere would force it to be read again. The source catches up when
  // the cursor goes out of scope; it must not be used directly meanwhile.
  class cursor {
   public:
    explicit cursor(bytesource& s) : s_(s), pos_(s.pos_), end_(s.end_) {}
    cursor(const cursor&) = delete;
    cursor& operator=(const cursor&) = delete;
    ~cursor() { s_.pos_ = pos_; }

    bool eof() { return pos_ == end_ && !refill(); }
    // Bytes that can be taken without a refill.
    size_t buffered() const { return static_cast<size_t>(end_ - pos_); }
    // Where the next byte is, for a look at buffered() bytes from there.
    const unsigned char* peek() const { return pos_; }
    // Takes n buffered bytes, n <= buffered(), and gives their address.
    const unsigned char* take(size_t n) {
      const unsigned char* at = pos_;
      pos_ += n;
      return at;
    }
    bool get(unsigned char& c) {
      if (pos_ == end_ && !refill()) return false;
      c = *pos_++;
      return true;
    }
    void putback(unsigned char c) { *--pos_ = c; }

   private:
    // Only values cross this call, so the cursor's address never escapes.
    bool refill() {
      s_.pos_ = pos_;
      bool more = !s_.eof();
      pos_ = s_.pos_;
      end_ = s_.end_;
      return more;
    }

    bytesource& s_;
    unsigned char* pos_;
    unsigned char* end_;
  };

 protected:
  // Fills dst with up to cap bytes; returns how many, 0 at the end of input.
  // Sets failed via setFailed() on an I/O error.
  virtual size_t read(unsigned char* dst, size_t cap) = 0;
  void setFailed() { failed_ = true; }

 private:
  static constexpr size_t kBlock = 64 * 1024;

  bool refill();

  // buf_[0] keeps the last byte of the previous block so putback always has room.
  unsigned char buf_[kBlock + 1];
  unsigned char* pos_ = buf_ + 1;
  unsigned char* end_ = buf_ + 1;
  uint64_t delivered_ = 0;
  bool failed_ = false;
  bool ended_ = false;
};

// Bytes held in memory; not copied, the caller keeps them alive.
class memorybytesource : public bytesource {
 public:
  memorybytesource(const void* data, size_t size)
      : data_(static_cast<const unsigned char*>(data)), size_(size) {}

 protected:
  size_t read(unsigned char* dst, size_t cap) override;

 private:
  const unsigned char* data_;
  size_t size_;
  size_t off_ = 0;
};

// A C stream such as stdin or an fopen'ed file; not closed here.
class filebytesource : public bytesource {
 public:
  explicit filebytesource(std::FILE* f) : f_(f) {}

 protected:
  size_t read(unsigned char* dst, size_t cap) override;

 private:
  std::FILE* f_;
};

// A standard input stream; not closed here.
class istreambytesource : public bytesource {
 public:
  explicit istreambytesource(std::istream& in) : in_(in) {}

 protected:
  size_t read(unsigned char* dst, size_t cap) override;

 private:
  std::istream& in_;
};
