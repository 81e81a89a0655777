// Blobby: an implicit surface whose code is a small program. The code is
// walked once, so that every index it holds is known to lie within the floats,
// the strings or the results before it, and its primitives are counted.
#include <cinttypes>
#include <string>
#include <vector>

#include "interface/ri.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/optional_arrays.h"
#include "rib/tokenvalue.h"

namespace {

char* const kNoMore = nullptr;

// The primitives: opcode, floats read from the float index, whether a string
// index comes first.
struct Primitive {
  int32_t opcode;
  int32_t floats;
  bool string;
};
const Primitive kPrimitives[] = {
    {1000, 1, false}, {1001, 16, false}, {1002, 23, false}, {1003, 1, true}};

// The operators' operand counts; -1: a count comes first.
const int32_t kOperands[] = {-1, -1, -1, -1, 2, 2, 1, 1};

const Primitive* primitive(int32_t opcode) {
  for (const Primitive& p : kPrimitives) {
    if (p.opcode == opcode) return &p;
  }
  return nullptr;
}

}  // namespace

void extendedrib::Blobby() {
  int32_t nleaf, leaves;
  Array<int32_t> code;
  Array<float> floats;
  std::vector<std::string> strings;
  tokenvalue params;
  if (!match(nleaf) || !nonNegative(nleaf, "nleaf")) return;
  const int32_t ncode = match(code, -1, 1);
  if (ncode == 0 || !matchAnyFloats(*this, floats) || !matchStrings(strings)) return;
  const int32_t nstrings = static_cast<int32_t>(strings.size());
  const int32_t nfloats = static_cast<int32_t>(floats.count);
  if (!blobbyLeaves(code, ncode, nfloats, nstrings, leaves)) {
    panic();
    return;
  }
  if (leaves != nleaf) {
    lex.RIBError(2, 2, "Blobby nleaf is %" PRId32 ", but its code makes %" PRId32 " primitives",
                 nleaf, leaves);
    panic();
    return;
  }
  if (!match(params, 0) || !verify(params, 1, nleaf, nleaf, kNoMore)) return;
  std::vector<char*> texts = textPointers(strings);
  RiBlobbyV(nleaf, ncode, code.data, nfloats, floats.data, nstrings, texts.data(),
            listCount(params), params.tokens.data, params.values.data);
}

// Each instruction makes one result, numbered from 0; its operands may only
// name results made before it.
int16_t extendedrib::blobbyLeaves(const Array<int32_t>& code, int32_t ncode, int32_t nfloats,
                                  int32_t nstrings, int32_t& leaves) {
  leaves = 0;
  int32_t at = 0;
  for (int32_t results = 0; at < ncode; ++results) {
    const int32_t start = at;
    const int32_t op = code.data[at++];
    const Primitive* p = primitive(op);
    const bool isOperator = op >= 0 && op < 8;
    if (p == nullptr && !isOperator) {
      lex.RIBError(2, 2, "Unknown Blobby opcode %" PRId32 " at code index %" PRId32, op, start);
      return 0;
    }
    int32_t operands = p ? 1 + p->string : kOperands[isOperator ? op : 0];
    if (operands < 0 && at < ncode) {
      operands = code.data[at++];
      if (operands < 0) {
        lex.RIBError(2, 2,
                     "Blobby opcode %" PRId32 " at code index %" PRId32
                     " gives a negative operand count %" PRId32,
                     op, start, operands);
        return 0;
      }
    }
    if (operands < 0 || operands > ncode - at) {
      lex.RIBError(
          2, 2, "Blobby opcode %" PRId32 " at code index %" PRId32 " runs past the end of the code",
          op, start);
      return 0;
    }
    const int32_t* args = code.data + at;
    at += operands;
    if (p && p->string && (args[0] < 0 || args[0] >= nstrings)) {
      lex.RIBError(2, 2,
                   "Blobby opcode %" PRId32 " at code index %" PRId32 " names string %" PRId32
                   ", but the blobby gives %" PRId32 " strings",
                   op, start, args[0], nstrings);
      return 0;
    }
    if (p) {
      const int32_t first = args[p->string];
      if (first < 0 || int64_t{first} + p->floats > nfloats) {
        lex.RIBError(2, 2,
                     "Blobby opcode %" PRId32 " at code index %" PRId32 " reads %" PRId32
                     " floats from index %" PRId32 ", but the blobby gives %" PRId32 " floats",
                     op, start, p->floats, first, nfloats);
        return 0;
      }
      ++leaves;
      continue;
    }
    for (int32_t k = 0; k < operands; ++k) {
      if (args[k] >= 0 && args[k] < results) continue;
      lex.RIBError(2, 2,
                   "Blobby opcode %" PRId32 " at code index %" PRId32 " uses result %" PRId32
                   ", which is not made before it",
                   op, start, args[k]);
      return 0;
    }
  }
  return 1;
}
