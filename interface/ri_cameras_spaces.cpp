// Named cameras, coordinate systems, clipping planes, output channels and
// brick maps of later versions.
#include "interface/ri_internal.h"
#include "interface/ri_paramcounts.h"
#include "interface/scene/zel.h"

namespace {

void camera(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelCameraV(printableName(name), n, codes.get(), values);
}

void displayChannel(RtToken declaration, RtInt n, RtToken tokens[], RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelDisplayChannelV(printableName(declaration), n, codes.get(), values);
}

void makeBrickMap(RtInt nptc, RtString ptcnames[], RtString bkmname, RtInt n, RtToken tokens[],
                  RtPointer values[]) {
  auto codes = announceList(n, tokens);
  _zelMakeBrickMapV(ptcnames ? nptc : 0, ptcnames, bkmname, n, codes.get(), values);
}

}  // namespace

RtVoid RiCamera(RtToken name, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiCamera", name, camera, name);
}

RtVoid RiCameraV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiCameraV");
  camera(name, n, tokens, values);
}

RtVoid RiCoordSysTransform(RtToken space) {
  NamedCall named("RiCoordSysTransform");
  _zelCoordSysTransform(tokenCode(space));
}

RtVoid RiScopedCoordinateSystem(RtToken space) {
  NamedCall named("RiScopedCoordinateSystem");
  _zelScopedMarkSpace(tokenCode(space));
}

RtVoid RiClippingPlane(RtFloat x, RtFloat y, RtFloat z, RtFloat nx, RtFloat ny, RtFloat nz) {
  _zelClippingPlane(x, y, z, nx, ny, nz);
}

RtVoid RiGeometricRepresentation(RtToken type) {
  _zelGeometricRepresentation(printableName(type));
}

RtVoid RiDisplayChannel(RtToken declaration, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiDisplayChannel", declaration, displayChannel, declaration);
}

RtVoid RiDisplayChannelV(RtToken declaration, RtInt n, RtToken tokens[], RtPointer values[]) {
  NamedCall named("RiDisplayChannelV");
  displayChannel(declaration, n, tokens, values);
}

RtVoid RiMakeBrickMap(RtInt nptc, RtString ptcnames[], RtString bkmname, ...) {
  RI_PLAIN_FORM(kUngated, RtVoid(), "RiMakeBrickMap", bkmname, makeBrickMap, nptc, ptcnames,
                bkmname);
}

RtVoid RiMakeBrickMapV(RtInt nptc, RtString ptcnames[], RtString bkmname, RtInt n, RtToken tokens[],
                       RtPointer values[]) {
  NamedCall named("RiMakeBrickMapV");
  makeBrickMap(nptc, ptcnames, bkmname, n, tokens, values);
}
