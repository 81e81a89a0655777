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

struct BlobbyCode {
  const int32_t* code;
  int32_t ncode, nfloats, nstrings;
};

// The indices of a primitive's operands against the floats and strings.
std::string primitiveFault(const Primitive& p, const int32_t* args, const BlobbyCode& b) {
  if (p.string && (args[0] < 0 || args[0] >= b.nstrings)) {
    return " names string " + std::to_string(args[0]) + ", but the blobby gives " +
           std::to_string(b.nstrings) + " strings";
  }
  const int32_t first = args[p.string];
  if (first >= 0 && int64_t{first} + p.floats <= b.nfloats) return "";
  return " reads " + std::to_string(p.floats) + " floats from index " + std::to_string(first) +
         ", but the blobby gives " + std::to_string(b.nfloats) + " floats";
}

// The end of a report on an instruction's operands; empty when they are sound.
std::string operandFault(const BlobbyCode& b, int32_t& at, int32_t op, int32_t results) {
  const Primitive* p = primitive(op);
  int32_t operands = p ? 1 + p->string : kOperands[op];
  if (operands < 0 && at < b.ncode) {
    operands = b.code[at++];
    if (operands < 0) return " gives a negative operand count " + std::to_string(operands);
  }
  if (operands < 0 || operands > b.ncode - at) return " runs past the end of the code";
  const int32_t* args = b.code + at;
  at += operands;
  if (p) return primitiveFault(*p, args, b);
  for (int32_t k = 0; k < operands; ++k) {
    if (args[k] < 0 || args[k] >= results) {
      return " uses result " + std::to_string(args[k]) + ", which is not made before it";
    }
  }
  return "";
}

// The report on the instruction at `at`, which it steps past; empty when the
// instruction is sound. Each instruction makes one result, numbered from 0;
// an operator's operands may only name results made before it.
std::string instructionFault(const BlobbyCode& b, int32_t& at, int32_t results, bool& leaf) {
  const int32_t start = at;
  const int32_t op = b.code[at++];
  const std::string where =
      "Blobby opcode " + std::to_string(op) + " at code index " + std::to_string(start);
  leaf = primitive(op) != nullptr;
  if (!leaf && (op < 0 || op >= 8)) return "Unknown " + where;
  const std::string fault = operandFault(b, at, op, results);
  return fault.empty() ? fault : where + fault;
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
    lex.RIBError(kRibBadValue, kRibError,
                 "Blobby nleaf is %" PRId32 ", but its code makes %" PRId32 " primitives", nleaf,
                 leaves);
    panic();
    return;
  }
  if (!match(params, 0) || !verify(params, 1, nleaf, nleaf, kNoMore)) return;
  std::vector<char*> texts = textPointers(strings);
  RiBlobbyV(nleaf, ncode, code.data, nfloats, floats.data, nstrings, texts.data(),
            listCount(params), params.tokens.data, params.values.data);
}

int16_t extendedrib::blobbyLeaves(const Array<int32_t>& code, int32_t ncode, int32_t nfloats,
                                  int32_t nstrings, int32_t& leaves) {
  const BlobbyCode b{code.data, ncode, nfloats, nstrings};
  leaves = 0;
  for (int32_t at = 0, results = 0; at < ncode; ++results) {
    bool leaf;
    const std::string fault = instructionFault(b, at, results, leaf);
    if (!fault.empty()) {
      lex.RIBError(kRibBadValue, kRibError, "%s", fault.c_str());
      return 0;
    }
    leaves += leaf;
  }
  return 1;
}
