// Cuts a planar polygon, with holes, into triangles.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/vecmath.h"

// loops[0] is the outline, the others holes; each a list of indices into
// points. Returns three indices a triangle. Holes are joined to the outline
// by a cut to the nearest edge on their right; loops that cross each other
// give some triangles outside the polygon, never a failure.
std::vector<uint32_t> triangulate(const std::vector<Vec3>& points,
                                  const std::vector<std::vector<uint32_t>>& loops);
