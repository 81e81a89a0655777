// Decompresses gzip input on the fly, so that a compressed RIB file reads like
// the plain one: the scanner, and the line numbers of its messages, see only
// the decompressed text. Concatenated gzip members are read one after another,
// as gzip itself does.
#pragma once

#include <zlib.h>

#include <cstddef>
#include <string>

#include "frontend/inputfile.h"
#include "rib/bytesource.h"

class gzipbytesource : public bytesource {
 public:
  static constexpr unsigned char kMagic0 = 0x1F;
  static constexpr unsigned char kMagic1 = 0x8B;

  // True when the bytes start with the gzip signature.
  static bool recognises(const unsigned char* head, size_t n);

  // Reads the compressed bytes from in, which must outlive this object.
  explicit gzipbytesource(inputfile& in);
  ~gzipbytesource() override;

  // Why decompression stopped early, or empty. A failed read of the file
  // itself is told by the inputfile.
  const std::string& problem() const { return problem_; }

 protected:
  size_t read(unsigned char* dst, size_t cap) override;

 private:
  bool refillInput();
  bool startNextMember();
  void fail(const std::string& why);

  static constexpr size_t kInput = 64 * 1024;

  inputfile& in_;
  z_stream zs_{};
  bool ready_ = false;
  bool inputEnded_ = false;
  bool finished_ = false;
  std::string problem_;
  unsigned char input_[kInput];
};
