#include "rib/tokenvalue.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

// Bytes of one item of a value of this type.
size_t itemBytes(RiTokenType type) {
  switch (type) {
    case TypeFloat:
    case TypeInteger:
      return 4;
    case TypePoint:
    case TypeColor:
      return 12;
    default:
      return 0;
  }
}

// Items the buffer must hold whatever the stream gave: one element of the
// token's declared size. The Ri layer tells the scene library to read that
// many from any parameter outside a geometry call, so a short value such as
// "origin" [10] for a size-2 token is completed with zeros here.
uint32_t paddedItems(char* token, uint16_t n) {
  const Token* t = token ? find(token) : nullptr;
  const int32_t size = t ? t->size : 1;
  const uint32_t element = static_cast<uint32_t>(std::clamp<int32_t>(size, 1, 65535));
  return std::max<uint32_t>(n, element);
}

// One block: a char* followed by the text it points at, as the Ri calls take a
// string parameter (a pointer to an array of one char*). A null text, which
// only a caller outside the parser can hand in, is stored as the empty text.
std::unique_ptr<char[]> stringBlock(const char* text) {
  if (text == nullptr) text = "";
  const size_t length = std::strlen(text);
  std::unique_ptr<char[]> block(new char[sizeof(char*) + length + 1]);
  char* body = block.get() + sizeof(char*);
  std::memcpy(body, text, length + 1);
  std::memcpy(block.get(), &body, sizeof body);
  return block;
}

std::unique_ptr<char[]> numberBlock(RiTokenType type, uint32_t items, uint16_t n,
                                    const void* value) {
  const size_t bytes = itemBytes(type) * items;
  const size_t given = value ? itemBytes(type) * n : 0;
  std::unique_ptr<char[]> block(new char[bytes]);
  if (given > 0) std::memcpy(block.get(), value, given);
  std::memset(block.get() + given, 0, bytes - given);
  return block;
}

}  // namespace

tokenvalue::~tokenvalue() {
  // values may be one shorter than tokens after a failed append; only what
  // reached values is owned.
  for (uint32_t i = 0; i < values.count; ++i) delete[] static_cast<char*>(values.data[i]);
}

void tokenvalue::append(char* const& token, RiTokenType type, uint16_t n, void* const* value) {
  std::unique_ptr<char[]> block;
  if (type == TypeString) {
    n = 1;
    block = stringBlock(value ? *reinterpret_cast<char* const*>(value) : nullptr);
  } else {
    block = numberBlock(type, paddedItems(token, n), n, value);
  }
  tokens.append(token);
  values.append(block.get());
  block.release();
  sizes.append(n);
}
