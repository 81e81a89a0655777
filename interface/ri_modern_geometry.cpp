// The primitives of later versions of the interface. Like the classic ones,
// each tells the scene library how many numbers every value holds, from the
// same counts the reader held the list to.
#include <vector>

#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

namespace {

// Tag names as texts for the library (a tag may be given as a token); a
// null array stays null. String arguments are data, passed as they are.
class TagNames {
 public:
  TagNames(RtInt n, const RtToken tags[]) : given_(tags != nullptr) {
    for (RtInt i = 0; tags && i < n; ++i) texts_.push_back(printableName(tags[i]));
    texts_.push_back(nullptr);  // keeps an empty array apart from a null one
  }
  const char* const* data() const { return given_ ? texts_.data() : nullptr; }

 private:
  bool given_;
  std::vector<const char*> texts_;
};

void subdivisionmesh(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[], RtInt ntags,
                     RtToken tags[], RtInt nargs[], RtInt intargs[], RtFloat floatargs[], RtInt n,
                     RtToken tokens[], RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  // A subdivision mesh counts its values as a polygon mesh of the same faces.
  PrimitiveCounts counts = pointsPolygonsCounts(nfaces, nvertices, vertices);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelSubdivisionMeshV(printableName(scheme), nfaces, nvertices, vertices, ntags,
                       TagNames(ntags, tags).data(), nargs, intargs, floatargs, n, codes.get(),
                       values);
}

void hierarchicalmesh(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[],
                      RtInt ntags, RtToken tags[], RtInt nargs[], RtInt intargs[],
                      RtFloat floatargs[], RtToken stringargs[], RtInt n, RtToken tokens[],
                      RtPointer values[]) {
  PrimitiveCounts counts = pointsPolygonsCounts(nfaces, nvertices, vertices);
  auto codes = announceList(n, tokens, &counts);
  _zelHierarchicalSubdivisionMeshV(printableName(scheme), nfaces, nvertices, vertices, ntags,
                                   TagNames(ntags, tags).data(), nargs, intargs, floatargs,
                                   stringargs, n, codes.get(), values);
}

void points(RtInt npoints, RtInt n, RtToken tokens[], RtPointer values[]) {
  PrimitiveCounts counts = pointsCounts(npoints);
  auto codes = announceList(n, tokens, &counts);
  _zelPointsV(npoints, n, codes.get(), values);
}

void curves(RtToken type, RtInt ncurves, RtInt nvertices[], RtToken wrap, RtInt n, RtToken tokens[],
            RtPointer values[]) {
  PrimitiveCounts counts = curvesCounts(type, ncurves, nvertices, wrap);
  auto codes = announceList(n, tokens, &counts);
  _zelCurvesV(printableName(type), ncurves, nvertices, printableName(wrap), n, codes.get(), values);
}

void blobby(RtInt nleaf, RtInt ncode, RtInt code[], RtInt nfloats, RtFloat floats[], RtInt nstrings,
            RtToken strings[], RtInt n, RtToken tokens[], RtPointer values[]) {
  PrimitiveCounts counts = blobbyCounts(nleaf);
  auto codes = announceList(n, tokens, &counts);
  _zelBlobbyV(nleaf, ncode, code, nfloats, floats, nstrings, strings, n, codes.get(), values);
}

}  // namespace

RtVoid RiSubdivisionMesh(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[],
                         RtInt ntags, RtToken tags[], RtInt nargs[], RtInt intargs[],
                         RtFloat floatargs[], ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiSubdivisionMesh", floatargs, subdivisionmesh, scheme, nfaces,
                nvertices, vertices, ntags, tags, nargs, intargs, floatargs);
}

RtVoid RiSubdivisionMeshV(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[],
                          RtInt ntags, RtToken tags[], RtInt nargs[], RtInt intargs[],
                          RtFloat floatargs[], RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiSubdivisionMeshV");
  subdivisionmesh(scheme, nfaces, nvertices, vertices, ntags, tags, nargs, intargs, floatargs, n,
                  tokens, values);
}

RtVoid RiHierarchicalSubdivisionMesh(RtToken scheme, RtInt nfaces, RtInt nvertices[],
                                     RtInt vertices[], RtInt ntags, RtToken tags[], RtInt nargs[],
                                     RtInt intargs[], RtFloat floatargs[], RtToken stringargs[],
                                     ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiHierarchicalSubdivisionMesh", stringargs, hierarchicalmesh,
                scheme, nfaces, nvertices, vertices, ntags, tags, nargs, intargs, floatargs,
                stringargs);
}

RtVoid RiHierarchicalSubdivisionMeshV(RtToken scheme, RtInt nfaces, RtInt nvertices[],
                                      RtInt vertices[], RtInt ntags, RtToken tags[], RtInt nargs[],
                                      RtInt intargs[], RtFloat floatargs[], RtToken stringargs[],
                                      RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiHierarchicalSubdivisionMeshV");
  hierarchicalmesh(scheme, nfaces, nvertices, vertices, ntags, tags, nargs, intargs, floatargs,
                   stringargs, n, tokens, values);
}

RtVoid RiPoints(RtInt npoints, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiPoints", npoints, points, npoints);
}

RtVoid RiPointsV(RtInt npoints, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiPointsV");
  points(npoints, n, tokens, values);
}

RtVoid RiCurves(RtToken type, RtInt ncurves, RtInt nvertices[], RtToken wrap, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiCurves", wrap, curves, type, ncurves, nvertices, wrap);
}

RtVoid RiCurvesV(RtToken type, RtInt ncurves, RtInt nvertices[], RtToken wrap, RtInt n,
                 RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiCurvesV");
  curves(type, ncurves, nvertices, wrap, n, tokens, values);
}

RtVoid RiBlobby(RtInt nleaf, RtInt ncode, RtInt code[], RtInt nfloats, RtFloat floats[],
                RtInt nstrings, RtToken strings[], ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiBlobby", strings, blobby, nleaf, ncode, code, nfloats, floats,
                nstrings, strings);
}

RtVoid RiBlobbyV(RtInt nleaf, RtInt ncode, RtInt code[], RtInt nfloats, RtFloat floats[],
                 RtInt nstrings, RtToken strings[], RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiBlobbyV");
  blobby(nleaf, ncode, code, nfloats, floats, nstrings, strings, n, tokens, values);
}
