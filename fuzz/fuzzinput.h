// What one fuzz input goes through, shared by the libFuzzer targets and the
// regression test that replays fuzz/regressions/: the same code must find the
// same fault in both.
#pragma once

#include <cstddef>
#include <cstdint>

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
void convertWith(const uint8_t* data, size_t size, Args... args) {
  setMessageSink(discard);
  zelSetMessageSink(discard);
  zelDiscardOutput();
  memorybytesource in(data, size);
  Reader rib(in, args...);
  rib.errorPrinter(discard);
  while (rib.parse1()) {
  }
  zelFlush();
}

inline void convert(const uint8_t* data, size_t size) {
  convertWith<fuzzrib>(data, size, "fuzz");
}

// The same through the extended reader.
inline void convertExtended(const uint8_t* data, size_t size) {
  convertWith<fuzzextended>(data, size);
}

}  // namespace fuzzinput
