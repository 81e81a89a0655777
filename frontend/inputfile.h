// The input as stored on disk or arriving on standard input, before any
// decompression: a file descriptor read in blocks, with the first bytes read
// ahead so that the format can be recognised without seeking (standard input
// cannot seek).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "rib/bytesource.h"

class inputfile {
 public:
  // Polled before each block is read and when a read is interrupted by a
  // signal: true ends the input there.
  using stopcheck = std::function<bool()>;

  inputfile() = default;
  inputfile(const inputfile&) = delete;
  inputfile& operator=(const inputfile&) = delete;
  ~inputfile();

  // Opens path for reading, or takes standard input when path is "-".
  // On failure returns false and problem() holds the system's reason.
  bool open(const std::string& path, stopcheck stop = nullptr);

  // Makes sure up to n bytes are read ahead (fewer at the end of the input)
  // and returns the read-ahead bytes; they are still served by read().
  const unsigned char* peek(size_t n, size_t& available);

  // Fills dst with up to cap bytes; 0 at the end of the input, after an error
  // (failed() is then true) or when a signal interrupted the read and the stop
  // check asked to end.
  size_t read(unsigned char* dst, size_t cap);

  // True when path names the very file that was opened (same device and inode).
  bool isSameFile(const std::string& path) const;

  // Bytes handed out by read() so far.
  uint64_t consumed() const { return consumed_; }
  // Size of a regular file, or -1 (a pipe or terminal).
  int64_t size() const { return size_; }
  bool failed() const { return !problem_.empty(); }
  // True when an interrupted read ended the input early at the stop check's request.
  bool stopped() const { return stopped_; }
  const std::string& problem() const { return problem_; }

 private:
  size_t readfd(unsigned char* dst, size_t cap);

  int fd_ = -1;
  bool owned_ = false;
  int64_t size_ = -1;
  uint64_t device_ = 0;
  uint64_t inode_ = 0;
  uint64_t consumed_ = 0;
  std::string problem_;
  bool stopped_ = false;
  stopcheck stop_;
  unsigned char head_[16];
  size_t headBegin_ = 0;
  size_t headEnd_ = 0;
};

// The input's bytes as they are, for everything that is not compressed.
class plainbytesource : public bytesource {
 public:
  explicit plainbytesource(inputfile& in) : in_(in) {}

 protected:
  size_t read(unsigned char* dst, size_t cap) override;

 private:
  inputfile& in_;
};
