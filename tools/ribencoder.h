#ifndef RZ_TOOLS_RIBENCODER_H
#define RZ_TOOLS_RIBENCODER_H

#include <cstdint>
#include <string>

#include "tools/binarywriter.h"
#include "tools/bytereader.h"

namespace ribtools {

struct EncodeResult {
  bool ok = true;
  std::string message;  // why the input could not be encoded, with its line
  int64_t tokens = 0;
  int64_t keywords = 0;  // request words, the statements of the file
};

// Turns ASCII RIB into binary RIB token by token. Comments are dropped. An
// array of numbers that holds at least one float becomes one binary float
// array (its integers read as floats there, as the reader would read them); an
// array of integers alone stays a bracketed run of integers, since a binary
// float array cannot stand where integers are wanted.
EncodeResult encodeRib(ByteReader& in, BinaryWriter& out);

}  // namespace ribtools

#endif
