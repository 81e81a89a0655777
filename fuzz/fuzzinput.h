// What one fuzz input goes through, shared by the libFuzzer targets and the
// regression test that replays fuzz/regressions/: the same code must find the
// same fault in both.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "frontend/gzipbytesource.h"
#include "frontend/inputfile.h"
#include "interface/error.h"
#include "interface/ri.h"
#include "rib/bytesource.h"
#include "rib/lexanrib.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/rendrib.h"
#include "zel/zellib.h"

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

// An input may ask for "abort", which ends the process by design. Right after
// the request has switched the two error paths, and before anything else can
// be reported, they are put back to printing, so that only a real fault ends
// a run.
template <class Reader>
class noabort : public Reader {
 public:
  using Reader::Reader;
  void ErrorHandler() override {
    Reader::ErrorHandler();
    if (this->lex.RIBErrorHandler == &lexanrib::RIBErrorAbort)
      this->lex.RIBErrorHandler = &lexanrib::RIBErrorPrint;
    if (Error::fHandler == RiErrorAbort) RiErrorHandler(RiErrorPrint);
  }
};
using fuzzrib = noabort<rendrib>;

// The extended reader, whose archives are read by readers of the same kind.
// It opens no file: only inline archives are played.
class fuzzextended : public noabort<extendedrib> {
 public:
  explicit fuzzextended(bytesource& in) : noabort<extendedrib>(in, "fuzz", "", nullptr) {}

 private:
  fuzzextended(bytesource& in, const char* name, std::string folder, std::string identity,
               extendedrib& outer)
      : noabort<extendedrib>(in, name, std::move(folder), std::move(identity), outer) {}
  std::unique_ptr<extendedrib> archiveReader(bytesource& in, const char* name, std::string folder,
                                             std::string identity) override {
    return std::unique_ptr<extendedrib>(
        new fuzzextended(in, name, std::move(folder), std::move(identity), *this));
  }
};

// A whole conversion: every statement through parse1, the Ri layer and the
// scene library, which formats every record and drops it.
template <class Reader, class... Args>
void convertWith(bytesource& in, Args... args) {
  setMessageSink(discard);
  zelSetMessageSink(discard);
  zelDiscardOutput();
  Reader rib(in, args...);
  rib.errorPrinter(discard);
  while (rib.parse1()) {
  }
  zelFlush();
}

inline void convert(const uint8_t* data, size_t size) {
  memorybytesource in(data, size);
  convertWith<fuzzrib>(in, "fuzz");
}

// The same through the extended reader.
inline void convertExtended(const uint8_t* data, size_t size) {
  memorybytesource in(data, size);
  convertWith<fuzzextended>(in);
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
  convertWith<fuzzrib>(in, "fuzz");
}

}  // namespace fuzzinput
