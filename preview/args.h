// Checked access to a record's arguments and parameters: a file that holds
// less than its record promises is a PreviewError, never a read beyond.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "preview/previewerror.h"
#include "preview/vecmath.h"
#include "zel/reader/zelreader.h"

float argFloat(const ZelRecord& r, size_t i);
int64_t argInt(const ZelRecord& r, size_t i);
std::vector<float> argFloats(const ZelRecord& r, size_t i);
std::vector<int64_t> argInts(const ZelRecord& r, size_t i);
// An integer argument that counts something: 0 to limit, or a PreviewError.
size_t argCount(const ZelRecord& r, size_t i, size_t limit);

// The values of the parameter of that name, or empty when there is none.
std::vector<float> paramFloats(const ZelRecord& r, std::string_view name);
bool hasParam(const ZelRecord& r, std::string_view name);

// Three floats each, as points or colours.
std::vector<Vec3> triples(const std::vector<float>& values);

// The "P" points of a record (from "Pw" divided by w, or "Pz" on a grid
// when the caller gives one), at least `needed` of them, or a PreviewError.
// "Pz" gives heights over a grid of nu x nv points spread evenly over 0 to 1
// in x and y.
std::vector<Vec3> pointsOf(const ZelRecord& r, size_t needed, size_t nu = 0, size_t nv = 0);
