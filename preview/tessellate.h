// The tessellators: each turns one geometry record into surfaces for the
// builder, in the record's object space.
#pragma once

#include <string_view>
#include <vector>

#include "preview/builder.h"
#include "zel/reader/zelreader.h"

using Tessellator = void (*)(const ZelRecord&, Builder&);

// The tessellator for a record, or null when the record is no geometry.
Tessellator tessellatorFor(std::string_view op);

// The colours of a grid of nu x nv points from the record's "Cs": its four
// varying corners spread across the grid, or its one colour; empty without.
std::vector<Vec3> gridColors(const ZelRecord& r, size_t nu, size_t nv);

void tessSphere(const ZelRecord& r, Builder& b);
void tessCylinder(const ZelRecord& r, Builder& b);
void tessCone(const ZelRecord& r, Builder& b);
void tessHyperboloid(const ZelRecord& r, Builder& b);
void tessParaboloid(const ZelRecord& r, Builder& b);
void tessDisk(const ZelRecord& r, Builder& b);
void tessTorus(const ZelRecord& r, Builder& b);
void tessPolygon(const ZelRecord& r, Builder& b);
void tessGeneralPolygon(const ZelRecord& r, Builder& b);
void tessPolygonMesh(const ZelRecord& r, Builder& b);
void tessGeneralPolygonMesh(const ZelRecord& r, Builder& b);
void tessPatch(const ZelRecord& r, Builder& b);
void tessPatchMesh(const ZelRecord& r, Builder& b);
void tessNurbMesh(const ZelRecord& r, Builder& b);
void tessSubdivisionMesh(const ZelRecord& r, Builder& b);  // both kinds
void tessPoints(const ZelRecord& r, Builder& b);
void tessCurves(const ZelRecord& r, Builder& b);
void tessBlobby(const ZelRecord& r, Builder& b);
