#include "preview/tessellate.h"

#include <algorithm>
#include <utility>

#include "preview/args.h"

namespace {

const std::pair<std::string_view, Tessellator> kTessellators[] = {
    {"SphereV", tessSphere},
    {"CylinderV", tessCylinder},
    {"ConeV", tessCone},
    {"HyperboloidV", tessHyperboloid},
    {"ParaboloidV", tessParaboloid},
    {"DiskV", tessDisk},
    {"TorusV", tessTorus},
    {"PolygonV", tessPolygon},
    {"GeneralPolygonV", tessGeneralPolygon},
    {"PolygonMeshV", tessPolygonMesh},
    {"GeneralPolygonMeshV", tessGeneralPolygonMesh},
    {"PatchV", tessPatch},
    {"PatchMeshV", tessPatchMesh},
    {"NurbMeshV", tessNurbMesh},
    {"SubdivisionMeshV", tessSubdivisionMesh},
    {"HierarchicalSubdivisionMeshV", tessSubdivisionMesh},
    {"PointsV", tessPoints},
    {"CurvesV", tessCurves},
    {"BlobbyV", tessBlobby},
};

}  // namespace

Tessellator tessellatorFor(std::string_view op) {
  for (const auto& [name, tessellator] : kTessellators) {
    if (name == op) return tessellator;
  }
  return nullptr;
}

std::vector<Vec3> gridColors(const ZelRecord& r, size_t nu, size_t nv) {
  std::vector<Vec3> cs = triples(paramFloats(r, "Cs"));
  if (cs.empty()) return {};
  if (cs.size() < 4) return std::vector<Vec3>(nu * nv, cs[0]);
  std::vector<Vec3> out(nu * nv);
  for (size_t j = 0; j < nv; ++j) {
    float v = nv > 1 ? float(j) / float(nv - 1) : 0;
    for (size_t i = 0; i < nu; ++i) {
      float u = nu > 1 ? float(i) / float(nu - 1) : 0;
      out[j * nu + i] = lerp(lerp(cs[0], cs[1], u), lerp(cs[2], cs[3], u), v);
    }
  }
  return out;
}
