// How a parameter list travels: collected from variable arguments, and its
// names translated to the codes the scene library knows them by.
#include "interface/ri_internal.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

RtInt collectParameters(va_list arguments, RtToken** tokens, RtPointer** values) {
  va_list counting;
  va_copy(counting, arguments);
  RtInt n = 0;
  while (va_arg(counting, RtToken) != nullptr) {
    va_arg(counting, RtPointer);
    ++n;
  }
  va_end(counting);

  if (n == 0) {
    *tokens = nullptr;
    *values = nullptr;
    return 0;
  }
  *tokens = new RtToken[n];
  *values = new RtPointer[n];
  for (RtInt i = 0; i < n; ++i) {
    (*tokens)[i] = va_arg(arguments, RtToken);
    (*values)[i] = va_arg(arguments, RtPointer);
  }
  return n;
}

CollectedList::CollectedList(va_list arguments) {
  n = collectParameters(arguments, &tokens, &values);
}

CollectedList::~CollectedList() {
  delete[] tokens;
  delete[] values;
}

uint16_t tokenCode(RtToken token) {
  // A null name comes from the RIB text "null": it means no name at all, so
  // it gets no record of its own.
  if (!token) return 0;
  Token* record = find(token);
  if (!record) {
    // Once the library has given every code it has (and said so), a new name
    // is not kept: a record for each would lengthen every later lookup
    // without end, and make a stream of new names cost quadratic time.
    const uint16_t code = static_cast<uint16_t>(_zelQuark(token));
    if (code == 0) return 0;
    record = declare(token, code, "uniform string", 0);
  }
  return record ? record->code : 0;
}

std::unique_ptr<uint16_t[]> tokenCodes(RtInt n, RtToken tokens[]) {
  if (n <= 0) return nullptr;
  std::unique_ptr<uint16_t[]> codes(new uint16_t[n]);
  for (RtInt i = 0; i < n; ++i) codes[i] = tokenCode(tokens[i]);
  return codes;
}
