// The quadrics. Their parameters count 1 uniform and 4 varying or vertex
// values, whatever the surface.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

#ifdef __clang__
// The quadrics end their fixed arguments in a float, as the interface
// publishes them; va_start finds the variable arguments all the same on every
// ABI built for.
#pragma clang diagnostic ignored "-Wvarargs"
#endif

namespace {

// The codes of a list, with the library told how long each value is.
std::unique_ptr<uint16_t[]> quadricCodes(RtInt n, RtToken tokens[]) {
  PrimitiveCounts counts = quadricCounts();
  auto codes = announceList(n, tokens, &counts);
  return codes;
}

void sphere(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n, RtToken tokens[],
            RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelSphereV(radius, zmin, zmax, thetamax, n, codes.get(), values);
}

// The library's cone is given by radius and height, the height twice.
void cone(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
          RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelConeV(radius, height, height, thetamax, n, codes.get(), values);
}

void cylinder(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
              RtToken tokens[], RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelCylinderV(radius, zmin, zmax, thetamax, n, codes.get(), values);
}

void hyperboloid(RtPoint point1, RtPoint point2, RtFloat thetamax, RtInt n, RtToken tokens[],
                 RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelHyperboloidV(point1, point2, thetamax, n, codes.get(), values);
}

void paraboloid(RtFloat rmax, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                RtToken tokens[], RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelParaboloidV(rmax, zmin, zmax, thetamax, n, codes.get(), values);
}

// The library's disk lies in the plane z = 0; one at another height is
// lifted there by a translation of its own.
void disk(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
          RtPointer values[]) {
  auto codes = tokenCodes(n, tokens);
  PrimitiveCounts counts = quadricCounts();
  if (height >= -1e-10 && height <= 1e-10) {
    sendParameterInfo(n, tokens, codes.get(), &counts);
    _zelDiskV(0.0f, radius, thetamax, n, codes.get(), values);
    return;
  }
  _zelMatrixPush();
  _zelTranslate(0.0f, 0.0f, height);
  sendParameterInfo(n, tokens, codes.get(), &counts);
  _zelDiskV(0.0f, radius, thetamax, n, codes.get(), values);
  _zelMatrixPop();
}

void torus(RtFloat majorradius, RtFloat minorradius, RtFloat phimin, RtFloat phimax,
           RtFloat thetamax, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = quadricCodes(n, tokens);
  _zelTorusV(majorradius, minorradius, phimin, phimax, thetamax, n, codes.get(), values);
}

}  // namespace

RtVoid RiSphere(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiSphere", thetamax, sphere, radius, zmin, zmax, thetamax);
}

RtVoid RiSphereV(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                 RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiSphereV");
  sphere(radius, zmin, zmax, thetamax, n, tokens, values);
}

RtVoid RiCone(RtFloat height, RtFloat radius, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiCone", thetamax, cone, height, radius, thetamax);
}

RtVoid RiConeV(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
               RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiConeV");
  cone(height, radius, thetamax, n, tokens, values);
}

RtVoid RiCylinder(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiCylinder", thetamax, cylinder, radius, zmin, zmax, thetamax);
}

RtVoid RiCylinderV(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                   RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiCylinderV");
  cylinder(radius, zmin, zmax, thetamax, n, tokens, values);
}

RtVoid RiHyperboloid(RtPoint point1, RtPoint point2, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiHyperboloid", thetamax, hyperboloid, point1, point2, thetamax);
}

RtVoid RiHyperboloidV(RtPoint point1, RtPoint point2, RtFloat thetamax, RtInt n, RtToken tokens[],
                      RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiHyperboloidV");
  hyperboloid(point1, point2, thetamax, n, tokens, values);
}

RtVoid RiParaboloid(RtFloat rmax, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiParaboloid", thetamax, paraboloid, rmax, zmin, zmax, thetamax);
}

RtVoid RiParaboloidV(RtFloat rmax, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                     RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiParaboloidV");
  paraboloid(rmax, zmin, zmax, thetamax, n, tokens, values);
}

RtVoid RiDisk(RtFloat height, RtFloat radius, RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiDisk", thetamax, disk, height, radius, thetamax);
}

RtVoid RiDiskV(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
               RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiDiskV");
  disk(height, radius, thetamax, n, tokens, values);
}

RtVoid RiTorus(RtFloat majorradius, RtFloat minorradius, RtFloat phimin, RtFloat phimax,
               RtFloat thetamax, ...) {
  RI_PLAIN_FORM(kGated, RtVoid(), "RiTorus", thetamax, torus, majorradius, minorradius, phimin,
                phimax, thetamax);
}

RtVoid RiTorusV(RtFloat majorradius, RtFloat minorradius, RtFloat phimin, RtFloat phimax,
                RtFloat thetamax, RtInt n, RtToken tokens[], RtPointer values[]) {
  if (!motionGate()) return;
  NamedCall named("RiTorusV");
  torus(majorradius, minorradius, phimin, phimax, thetamax, n, tokens, values);
}
