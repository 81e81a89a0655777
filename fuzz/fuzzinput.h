// What one fuzz input goes through, shared by the libFuzzer targets and the
// regression test that replays fuzz/regressions/: the same code must find the
// same fault in both.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "frontend/conversion.h"
#include "frontend/gzipbytesource.h"
#include "frontend/inputfile.h"
#include "rib/bytesource.h"
#include "rib/lexanrib.h"

namespace fuzzinput {

inline void discard(const char*) {}

// Every token up to the end, with scanner faults caught as the parser would
// catch them.
inline void scan(const uint8_t* data, size_t size) {
  lexanrib::RIBErrorPrinter = discard;
  memorybytesource in(data, size);
  lexanrib lex(in, "fuzz");
  // Every call consumes at least one byte or one element of a float array,
  // which itself came from four bytes, so this bound is never the one that
  // ends the loop; it only turns a scanner that stops advancing into a
  // timeout-free failure of the assertion below.
  size_t calls = 0;
  for (; calls <= 2 * size + 2; ++calls) {
    try {
      const int16_t kind = lex.next();
      if (kind == LEXEOF) break;
      if (kind == LEXSTRING || kind == LEXKEYWORD) {
        String s;
        lex.get(s);
      } else if (kind == LEXINT) {
        int32_t i;
        lex.get(i);
      } else if (kind == LEXFLOAT) {
        float f;
        lex.get(f);
      }
    } catch (const RIBException&) {
    }
  }
  if (calls > 2 * size + 2) __builtin_trap();
}

// A whole conversion through the front ends' conversion object: every
// statement through the reader, the Ri layer and the scene library, which
// formats every record and drops it, or writes it to the request's stream when
// it names one. A scene may not end the process by asking for "abort": only a
// real fault ends a run. The conversion is cancelled once more than
// `cancelAfter` bytes have been read.
inline void run(conversion::request r, uint64_t cancelAfter) {
  r.input = "fuzz";
  r.discardOutput = r.outputStream == nullptr;
  r.mayAbort = false;
  r.log = discard;
  r.messages = discard;
  conversion c(std::move(r));
  if (!c.open()) return;
  while (c.step()) {
    if (c.bytesRead() > cancelAfter) c.cancel();
  }
}

// `extended`: through the extended reader, which plays inline archives only.
inline void convertText(const uint8_t* data, size_t size, bool extended) {
  conversion::request r;
  r.text = std::string_view(reinterpret_cast<const char*>(data), size);
  r.extended = extended;
  // An input of odd length is cancelled halfway, so that the cancel phase is
  // fuzzed as well as the finish and fail phases.
  run(std::move(r), size % 2 == 1 ? size / 2 : UINT64_MAX);
}

// Decompressed text beyond this is not read: a megabyte can expand a
// thousandfold, and an array that large, which the interface calls need
// whole, would go past the fuzzer's memory and time limits by design.
class cappedgzip : public gzipbytesource {
 public:
  static constexpr size_t kCap = size_t{64} << 20;
  using gzipbytesource::gzipbytesource;

 protected:
  size_t read(unsigned char* dst, size_t cap) override {
    if (cap > kCap - given_) cap = kCap - given_;
    const size_t n = cap == 0 ? 0 : gzipbytesource::read(dst, cap);
    given_ += n;
    return n;
  }

 private:
  size_t given_ = 0;
};

// The bytes as a gzip file that rib2zel reads: from a file descriptor, in the
// input's blocks, through the decompressor.
inline void convertgzip(const uint8_t* data, size_t size) {
  const int fd = memfd_create("fuzz", MFD_CLOEXEC);
  if (fd < 0) __builtin_trap();
  for (size_t done = 0; done < size;) {
    const ssize_t n = write(fd, data + done, size - done);
    if (n <= 0) __builtin_trap();
    done += static_cast<size_t>(n);
  }
  inputfile file;
  // The path opens the data afresh, from its first byte.
  const bool opened = file.open("/proc/self/fd/" + std::to_string(fd));
  close(fd);
  if (!opened) __builtin_trap();
  cappedgzip in(file);
  conversion::request r;
  r.source = &in;
  run(std::move(r), UINT64_MAX);
}

}  // namespace fuzzinput
