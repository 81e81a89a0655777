#include "rib/tokenvalue.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

// Bytes of one item of a value of this type.
size_t itemBytes(RiTokenType type) {
  return type == TypeNone || type == TypeString || type == TypeReference
             ? 0
             : 4 * size_t(floatsPerItem(type));
}

// Items the buffer must hold whatever the stream gave: one element of the
// token's declared size. The Ri layer tells the scene library to read that
// many from any parameter outside a geometry call, so a short value such as
// "origin" [10] for a size-2 token is completed with zeros here.
uint32_t paddedItems(char* token, uint32_t n) {
  const Token* t = token ? find(token) : nullptr;
  const int32_t size = t ? t->size : 1;
  const uint32_t element = static_cast<uint32_t>(std::clamp<int32_t>(size, 1, 65535));
  return std::max<uint32_t>(n, element);
}

// One block: n char* followed by the texts they point at, as the Ri calls take
// a string parameter (a pointer to an array of char*). A null text, which
// only a caller outside the parser can hand in, is stored as the empty text.
std::unique_ptr<char[]> stringBlock(const char* const* texts, uint32_t n) {
  size_t bytes = sizeof(char*) * n;
  for (uint32_t i = 0; i < n; ++i) bytes += std::strlen(texts[i] ? texts[i] : "") + 1;
  std::unique_ptr<char[]> block(new char[bytes]);
  char* body = block.get() + sizeof(char*) * n;
  for (uint32_t i = 0; i < n; ++i) {
    const char* text = texts[i] ? texts[i] : "";
    const size_t length = std::strlen(text);
    std::memcpy(body, text, length + 1);
    std::memcpy(block.get() + sizeof(char*) * i, &body, sizeof body);
    body += length + 1;
  }
  return block;
}

std::unique_ptr<char[]> numberBlock(RiTokenType type, uint32_t items, uint32_t n,
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

void tokenvalue::append(char* const& token, RiTokenType type, uint32_t n, void* const* value) {
  std::unique_ptr<char[]> block;
  if (type == TypeString || type == TypeReference) {
    n = 1;
    const char* text = value ? *reinterpret_cast<char* const*>(value) : nullptr;
    const Token* t = token ? find(token) : nullptr;
    if (t && t->size > 1) return appendStrings(token, 1, &text);
    block = stringBlock(&text, 1);
  } else {
    block = numberBlock(type, paddedItems(token, n), n, value);
  }
  tokens.append(token);
  values.append(block.get());
  block.release();
  sizes.append(n);
}

void tokenvalue::appendStrings(char* const& token, uint32_t n, const char* const* texts) {
  // Padded with empty texts to one element, as numbers are with zeros.
  std::vector<const char*> padded(texts, texts + n);
  padded.resize(paddedItems(token, n), "");
  std::unique_ptr<char[]> block = stringBlock(padded.data(), static_cast<uint32_t>(padded.size()));
  tokens.append(token);
  values.append(block.get());
  block.release();
  sizes.append(n);
}

char* tokenvalue::keep(std::unique_ptr<Token> record) {
  declared.push_back(std::move(record));
  return reinterpret_cast<char*>(declared.back().get());
}
