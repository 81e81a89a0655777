// Resources, conditional blocks and edits of later versions. The layer keeps
// no state of these blocks: the reader checks their balance.
#include <vector>

#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

namespace {

using ListCall = void (*)(int32_t, const uint16_t*, const RtPointer*);

void resource(RtToken handle, RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelResourceV(printableName(handle), printableName(type), n, codes.get(), values);
}

void editBegin(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelEditBeginV(printableName(type), n, codes.get(), values);
}

void listOnly(ListCall call, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  call(n, codes.get(), values);
}

// A plain form whose list begins with its only named argument.
void listFrom(ListCall call, RtToken first, va_list rest) {
  std::vector<RtToken> tokens;
  std::vector<RtPointer> values;
  for (RtToken token = first; token != nullptr; token = va_arg(rest, RtToken)) {
    tokens.push_back(token);
    values.push_back(va_arg(rest, RtPointer));
  }
  listOnly(call, static_cast<RtInt>(tokens.size()), tokens.empty() ? nullptr : tokens.data(),
           values.empty() ? nullptr : values.data());
}

}  // namespace

RtVoid RiResource(RtToken handle, RtToken type, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiResource", type, resource, handle, type);
}

RtVoid RiResourceV(RtToken handle, RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiResourceV");
  resource(handle, type, n, tokens, values);
}

RtVoid RiResourceBegin() {
  _zelResourceBegin();
}

RtVoid RiResourceEnd() {
  _zelResourceEnd();
}

RtVoid RiIfBegin(RtString expression) {
  _zelIfBegin(expression);
}

RtVoid RiElseIf(RtString expression) {
  _zelElseIf(expression);
}

RtVoid RiElse() {
  _zelElse();
}

RtVoid RiIfEnd() {
  _zelIfEnd();
}

RtVoid RiEditBegin(RtToken type, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiEditBegin", type, editBegin, type);
}

RtVoid RiEditBeginV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiEditBeginV");
  editBegin(type, n, tokens, values);
}

RtVoid RiEditEnd() {
  _zelEditEnd();
}

RtVoid RiEditWorldBegin(RtToken token, ...) {
  NamedCall named("RiEditWorldBegin");
  va_list rest;
  va_start(rest, token);
  listFrom(_zelEditWorldBeginV, token, rest);
  va_end(rest);
}

RtVoid RiEditWorldBeginV(RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiEditWorldBeginV");
  listOnly(_zelEditWorldBeginV, n, tokens, values);
}

RtVoid RiEditWorldEnd() {
  _zelEditWorldEnd();
}

RtVoid RiEditAttributeBegin(RtToken token, ...) {
  NamedCall named("RiEditAttributeBegin");
  va_list rest;
  va_start(rest, token);
  listFrom(_zelEditAttributeBeginV, token, rest);
  va_end(rest);
}

RtVoid RiEditAttributeBeginV(RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiEditAttributeBeginV");
  listOnly(_zelEditAttributeBeginV, n, tokens, values);
}

RtVoid RiEditAttributeEnd() {
  _zelEditAttributeEnd();
}
