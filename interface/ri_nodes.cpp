// Shading nodes of path-tracing renderers. Every kind is one record shape,
// told apart by its kind code.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

namespace {

void node(uint16_t kind, RtToken type, RtToken handle, RtInt n, RtToken tokens[],
          RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelShadingNodeV(kind, printableName(type), printableName(handle), n, codes.get(), values);
}

}  // namespace

RtVoid RiIlluminateLight(RtToken handle, RtBoolean onoff) {
  _zelLightNodeSwitch(printableName(handle), onoff);
}

#define RI_SHADING_NODE_CALLS(name, kind)                                            \
  RtVoid Ri##name(RtToken type, RtToken handle, ...) {                               \
    RI_PLAIN_FORM(kUngated, RtVoid(), "Ri" #name, handle, node, kind, type, handle); \
  }                                                                                  \
  RtVoid Ri##name##V(RtToken type, RtToken handle, RtInt n, RtToken tokens[],        \
                     RtPointer values[]) {                                           \
    NamedCall named("Ri" #name "V");                                                 \
    node(kind, type, handle, n, tokens, values);                                     \
  }

RI_SHADING_NODE_CALLS(Bxdf, kZelBxdf)
RI_SHADING_NODE_CALLS(Pattern, kZelPattern)
RI_SHADING_NODE_CALLS(Light, kZelLight)
RI_SHADING_NODE_CALLS(Integrator, kZelIntegrator)
RI_SHADING_NODE_CALLS(Displace, kZelDisplace)
RI_SHADING_NODE_CALLS(DisplayFilter, kZelDisplayFilter)
RI_SHADING_NODE_CALLS(SampleFilter, kZelSampleFilter)
RI_SHADING_NODE_CALLS(LightFilter, kZelLightFilter)
RI_SHADING_NODE_CALLS(Shader, kZelShader)
