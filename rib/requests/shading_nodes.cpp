// Shading nodes of path-tracing renderers: `"type" "handle" [params]`, each
// request played into its own Ri call. References between nodes arrive as
// parameters of type reference (see inlinedeclaration.h).
#include "interface/ri.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

void extendedrib::shadingNode(NodeCall call) {
  String type, handle;
  tokenvalue params;
  if (!matchToken(&type) || !matchToken(&handle) || !match(params, 0)) return;
  call(ritext(type), ritext(handle), listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::Bxdf() {
  shadingNode(RiBxdfV);
}

void extendedrib::Pattern() {
  shadingNode(RiPatternV);
}

void extendedrib::Light() {
  shadingNode(RiLightV);
}

void extendedrib::Integrator() {
  shadingNode(RiIntegratorV);
}

void extendedrib::Displace() {
  shadingNode(RiDisplaceV);
}

void extendedrib::DisplayFilter() {
  shadingNode(RiDisplayFilterV);
}

void extendedrib::SampleFilter() {
  shadingNode(RiSampleFilterV);
}

void extendedrib::LightFilter() {
  shadingNode(RiLightFilterV);
}

void extendedrib::Shader() {
  shadingNode(RiShaderV);
}
