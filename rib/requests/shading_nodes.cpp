// Shading nodes of path-tracing renderers: `"type" "handle" [params]`, each
// request played into its own Ri call. References between nodes arrive as
// parameters of type reference (see inlinedeclaration.h).
#include "interface/ri.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

bool extendedrib::shadingNode(NodeCall call, String* handle) {
  String type;
  tokenvalue params;
  if (!matchToken(&type) || !matchToken(handle) || !match(params, 0)) return false;
  call(ritext(type), ritext(*handle), listCount(params), params.tokens.data, params.values.data);
  return true;
}

void extendedrib::Bxdf() {
  String handle;
  shadingNode(RiBxdfV, &handle);
}

void extendedrib::Pattern() {
  String handle;
  shadingNode(RiPatternV, &handle);
}

void extendedrib::Light() {
  String handle;
  if (shadingNode(RiLightV, &handle)) state_->lightNodes.insert(handle.c_str());
}

void extendedrib::Integrator() {
  String handle;
  shadingNode(RiIntegratorV, &handle);
}

void extendedrib::Displace() {
  String handle;
  shadingNode(RiDisplaceV, &handle);
}

void extendedrib::DisplayFilter() {
  String handle;
  shadingNode(RiDisplayFilterV, &handle);
}

void extendedrib::SampleFilter() {
  String handle;
  shadingNode(RiSampleFilterV, &handle);
}

void extendedrib::LightFilter() {
  String handle;
  shadingNode(RiLightFilterV, &handle);
}

void extendedrib::Shader() {
  String handle;
  shadingNode(RiShaderV, &handle);
}
