// Subdivision meshes. The faces are read as a polygon mesh's are. The tags
// follow as four arrays (names, nargs, intargs, floatargs), or five with the
// string arguments when nargs gives three numbers per tag; they come all or
// none. A mesh with string arguments is played as the hierarchical mesh, the
// one call of the interface that carries them.
#include <cinttypes>
#include <string>
#include <vector>

#include "interface/ri.h"
#include "interface/token.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/optional_arrays.h"
#include "rib/tokenvalue.h"

namespace {

// Schemes of later renderers are kept by name, with a warning.
const char* const kSchemes[] = {"catmull-clark", "loop", "bilinear"};

}  // namespace

struct extendedrib::SubdivisionTags {
  std::vector<std::string> names;
  Array<int32_t> nargs, intargs;
  Array<float> floatargs;
  std::vector<std::string> strings;
  int32_t perTag = 2;
};

void extendedrib::SubdivisionMesh() {
  subdivisionMesh(false);
}

void extendedrib::HierarchicalSubdivisionMesh() {
  subdivisionMesh(true);
}

void extendedrib::subdivisionMesh(bool hierarchical) {
  String scheme;
  Array<int32_t> nvertices, vertices;
  SubdivisionTags tags;
  tokenvalue params;
  int32_t s, points;
  int64_t highest;
  if (!matchToken(&scheme)) return;
  bool known = false;
  for (const char* name : kSchemes) known = known || scheme == name;
  if (!known)
    lex.RIBError(kRibBadValue, kRibWarning, "Unknown subdivision scheme \"%s\" is kept by name",
                 scheme.c_str());
  const int32_t nfaces = match(nvertices, -1, 1);
  if (nfaces == 0 || !sumCounts(nvertices, nfaces, "nvertices", s) ||
      !checkFaces(nvertices, nfaces) || !match(vertices, s, 1)) {
    return;
  }
  if (!pointCount(lex, vertices, s, highest)) {
    panic();
    return;
  }
  if (!fitCount(highest, points) || !matchTags(tags, hierarchical) || !match(params, 0)) return;
  if (!verifyFaces(params, nfaces, points, s)) return;
  std::vector<char*> names = textPointers(tags.names);
  const RtInt ntags = static_cast<RtInt>(tags.names.size());
  if (tags.perTag == 2) {
    RiSubdivisionMeshV(ritext(scheme), nfaces, nvertices.data, vertices.data, ntags, names.data(),
                       tags.nargs.data, tags.intargs.data, tags.floatargs.data, listCount(params),
                       params.tokens.data, params.values.data);
    return;
  }
  std::vector<char*> strings = textPointers(tags.strings);
  RiHierarchicalSubdivisionMeshV(ritext(scheme), nfaces, nvertices.data, vertices.data, ntags,
                                 names.data(), tags.nargs.data, tags.intargs.data,
                                 tags.floatargs.data, strings.data(), listCount(params),
                                 params.tokens.data, params.values.data);
}

int16_t extendedrib::checkFaces(const Array<int32_t>& nvertices, int32_t nfaces) {
  for (int32_t i = 0; i < nfaces; ++i) {
    if (nvertices.data[i] >= 3) continue;
    lex.RIBError(kRibBadValue, kRibError,
                 "Face %" PRId32 " has %" PRId32 " vertices; a subdivision face needs 3 or more", i,
                 nvertices.data[i]);
    panic();
    return 0;
  }
  return 1;
}

// Tag names go to the Ri layer as names, which may not begin with 0xFF.
int16_t extendedrib::matchTagNames(std::vector<std::string>& names) {
  if (!matchStrings(names)) return 0;
  for (const std::string& name : names) {
    if (static_cast<unsigned char>(name[0]) != Token::kMarker) continue;
    lex.RIBError(kRibSyntax, kRibError, "A name may not begin with the byte 0xFF");
    panic();
    return 0;
  }
  return 1;
}

// A mesh with no tags may leave out all of their arrays.
int16_t extendedrib::matchTags(SubdivisionTags& tags, bool hierarchical) {
  tags.perTag = hierarchical ? 3 : 2;
  if (token != '[') return 1;
  if (!matchTagNames(tags.names)) return 0;
  const int64_t ntags = static_cast<int64_t>(tags.names.size());
  int32_t given = 0;
  if (ntags == 0) {
    if (!matchCounted(*this, tags.nargs, 0)) return 0;
  } else if ((given = match(tags.nargs, -1, 1)) == 0) {
    return 0;
  }
  const bool three = given == 3 * ntags;
  if (!three && (hierarchical || given != 2 * ntags)) {
    lex.RIBError(kRibBadValue, kRibError, "%" PRId32 " numbers in nargs for %" PRId64 " tags; %s",
                 given, ntags,
                 hierarchical ? "a hierarchical subdivision mesh takes 3 per tag"
                              : "a subdivision mesh takes 2 or 3 per tag");
    panic();
    return 0;
  }
  if (ntags > 0 && three) tags.perTag = 3;
  int32_t sums[3] = {0, 0, 0};
  for (int32_t k = 0; k < tags.perTag; ++k) {
    int64_t total = 0;
    for (int64_t i = k; i < given; i += tags.perTag) {
      if (!nonNegative(tags.nargs.data[i], "nargs")) return 0;
      total += tags.nargs.data[i];
    }
    if (!fitCount(total, sums[k])) return 0;
  }
  if (!matchCounted(*this, tags.intargs, sums[0]) ||
      !matchCounted(*this, tags.floatargs, sums[1])) {
    return 0;
  }
  // A two-per-tag mesh may still give an empty string array, as writers of
  // the three-per-tag form do when no tag is there.
  if (tags.perTag == 2 && token != '[') return 1;
  if (!matchStrings(tags.strings)) return 0;
  if (tags.strings.size() == static_cast<size_t>(sums[2])) return 1;
  lex.RIBError(kRibBadValue, kRibError, "The tags take %" PRId32 " string arguments, not %zu",
               sums[2], tags.strings.size());
  panic();
  return 0;
}
