// Classic requests by the names of later versions: a filter, projection,
// hider or display the classic calls refuse goes to the scene by its name,
// for the renderer that knows it.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

namespace {

using NamedListCall = void (*)(const char*, int32_t, const uint16_t*, const RtPointer*);

void named(NamedListCall call, RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  call(printableName(name), n, codes.get(), values);
}

void projection(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  named(_zelNamedProjectionV, name, n, tokens, values);
}

void hider(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  named(_zelNamedHiderV, name, n, tokens, values);
}

void display(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
             RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelNamedDisplayV(name ? name : "null", printableName(type), printableName(mode), n, codes.get(),
                    values);
}

}  // namespace

RtVoid RiNamedPixelFilter(RtToken name, RtFloat xwidth, RtFloat ywidth) {
  _zelNamedFilter(printableName(name), xwidth, ywidth);
}

RtVoid RiNamedProjection(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiNamedProjection", name, projection, name);
}

RtVoid RiNamedProjectionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall call("RiNamedProjectionV");
  projection(name, n, tokens, values);
}

RtVoid RiNamedHider(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiNamedHider", name, hider, name);
}

RtVoid RiNamedHiderV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall call("RiNamedHiderV");
  hider(name, n, tokens, values);
}

RtVoid RiNamedDisplay(char* name, RtToken type, RtToken mode, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiNamedDisplay", mode, display, name, type, mode);
}

RtVoid RiNamedDisplayV(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
                       RtPointer values[]) {
  NamedCall call("RiNamedDisplayV");
  display(name, type, mode, n, tokens, values);
}
