// The parameter list of one request: three parallel arrays laid out as the
// V form of an Ri call wants its token and value arrays.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "foundation/Array.h"
#include "interface/token.h"

class tokenvalue {
 public:
  tokenvalue() = default;
  tokenvalue(const tokenvalue&) = delete;
  tokenvalue& operator=(const tokenvalue&) = delete;
  ~tokenvalue();

  // Appends one parameter. `token` is stored as given (a dictionary record, not
  // owned). For a string, `value` addresses one char* and `n` becomes 1; for the
  // other types it addresses `n` items (floatsPerItem floats each).
  // The copy is padded with zeros to at least one element of the token's size,
  // so that a reader who takes one element per token never runs off the end.
  void append(char* const& token, RiTokenType type, uint32_t n, void* const* value);
  // Appends a value of n strings (a string array of the extended reader).
  void appendStrings(char* const& token, uint32_t n, const char* const* texts);
  // Keeps a record made for this list alone (an inline declaration) and
  // gives it as an RtToken.
  char* keep(std::unique_ptr<Token> record);

  Array<char*> tokens;    // Token records as RtTokens; not owned
  Array<void*> values;    // exact-size buffers, owned, released with delete[]
  Array<uint32_t> sizes;  // items per value in units of its type (classic: modulo 65,536)
  std::vector<std::unique_ptr<Token>> declared;  // the records kept
  bool whole = false;  // read by the extended reader: its count is not cut to 16 bits
};
