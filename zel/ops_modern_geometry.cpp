// The primitives of later versions of the interface. As with the classic
// ones, every array among the arguments is read as far as the other arguments
// say (a negative count as 0), never further.
#include <cstdint>

#include "interface/scene/zel.h"
#include "zel/record.h"

using namespace zel;

namespace {

size_t nonNegative(int64_t n) {
  return n > 0 ? static_cast<size_t>(n) : 0;
}

// The sum of every `stride`-th of `n` counts from `first`, each below 0
// taken as 0; 0 for a null array.
size_t sumOf(const int32_t* counts, size_t n, size_t first = 0, size_t stride = 1) {
  if (counts == nullptr) return 0;
  size_t sum = 0;
  for (size_t i = first; i < n; i += stride) sum += nonNegative(counts[i]);
  return sum;
}

// The faces and tags both kinds of subdivision mesh begin with; `perTag` is
// the number of nargs entries each tag has.
void meshAndTags(Record& record, const char* scheme, int32_t nfaces, const int32_t* nvertices,
                 const int32_t* vertices, int32_t ntags, const char* const* tags,
                 const int32_t* nargs, size_t perTag, const int32_t* intargs,
                 const float* floatargs) {
  const size_t faces = nonNegative(nfaces);
  const size_t tagCount = nonNegative(ntags);
  const size_t argCount = tagCount * perTag;
  record.text(scheme)
      .i(nfaces)
      .ints(nvertices, faces)
      .ints(vertices, sumOf(nvertices, faces))
      .i(ntags)
      .texts(tags, tagCount)
      .ints(nargs, argCount)
      .ints(intargs, sumOf(nargs, argCount, 0, perTag))
      .floats(floatargs, sumOf(nargs, argCount, 1, perTag));
}

}  // namespace

void _zelSubdivisionMeshV(const char* scheme, int32_t nfaces, const int32_t* nvertices,
                          const int32_t* vertices, int32_t ntags, const char* const* tags,
                          const int32_t* nargs, const int32_t* intargs, const float* floatargs,
                          int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record record("SubdivisionMeshV", {n, codes, values});
  meshAndTags(record, scheme, nfaces, nvertices, vertices, ntags, tags, nargs, 2, intargs,
              floatargs);
  record.end();
}

void _zelHierarchicalSubdivisionMeshV(const char* scheme, int32_t nfaces, const int32_t* nvertices,
                                      const int32_t* vertices, int32_t ntags,
                                      const char* const* tags, const int32_t* nargs,
                                      const int32_t* intargs, const float* floatargs,
                                      const char* const* stringargs, int32_t n,
                                      const uint16_t* codes, const RtPointer* values) {
  Record record("HierarchicalSubdivisionMeshV", {n, codes, values});
  meshAndTags(record, scheme, nfaces, nvertices, vertices, ntags, tags, nargs, 3, intargs,
              floatargs);
  record.texts(stringargs, sumOf(nargs, nonNegative(ntags) * 3, 2, 3)).end();
}

void _zelPointsV(int32_t npoints, int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("PointsV", {n, codes, values}).i(npoints).end();
}

void _zelCurvesV(const char* type, int32_t ncurves, const int32_t* nvertices, const char* wrap,
                 int32_t n, const uint16_t* codes, const RtPointer* values) {
  Record("CurvesV", {n, codes, values})
      .text(type)
      .i(ncurves)
      .ints(nvertices, nonNegative(ncurves))
      .text(wrap)
      .end();
}

void _zelBlobbyV(int32_t nleaf, int32_t ncode, const int32_t* code, int32_t nfloats,
                 const float* floats, int32_t nstrings, const char* const* strings, int32_t n,
                 const uint16_t* codes, const RtPointer* values) {
  Record("BlobbyV", {n, codes, values})
      .i(nleaf)
      .i(ncode)
      .ints(code, nonNegative(ncode))
      .i(nfloats)
      .floats(floats, nonNegative(nfloats))
      .i(nstrings)
      .texts(strings, nonNegative(nstrings))
      .end();
}
