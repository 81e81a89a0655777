// Named cameras, coordinate systems, clipping planes, geometric
// representation, output channels and brick maps of later versions.
#include <string>
#include <vector>

#include "interface/ri.h"
#include "interface/token.h"
#include "rib/inlinedeclaration.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

void extendedrib::Camera() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  RiCameraV(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::CoordSysTransform() {
  String space;
  if (!matchToken(&space)) return;
  RiCoordSysTransform(ritext(space));
}

void extendedrib::ScopedCoordinateSystem() {
  String space;
  if (!matchToken(&space)) return;
  RiScopedCoordinateSystem(ritext(space));
}

void extendedrib::ClippingPlane() {
  float v[6];
  if (!matchFloats(v, 6)) return;
  RiClippingPlane(v[0], v[1], v[2], v[3], v[4], v[5]);
}

void extendedrib::GeometricRepresentation() {
  String type;
  if (!matchToken(&type)) return;
  RiGeometricRepresentation(ritext(type));
}

// The channel is a declaration with its name ("varying color Ci"), or the
// name of one declared before.
void extendedrib::DisplayChannel() {
  String channel;
  tokenvalue params;
  if (!matchTokenAndList(&channel, params)) return;
  inlinedeclaration d;
  if (!parseDeclaration(channel.c_str(), true, d) && find(channel.c_str()) == nullptr) {
    lex.RIBError(kRibBadValue, kRibError,
                 "DisplayChannel \"%s\" is neither a declaration with a name nor a declared name",
                 channel.c_str());
    return;
  }
  RiDisplayChannelV(ritext(channel), listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::MakeBrickMap() {
  std::vector<std::string> clouds;
  String brickmap;
  tokenvalue params;
  if (!matchStrings(clouds) || !match(&brickmap) || !match(params, 0)) return;
  if (clouds.empty()) {
    lex.RIBError(kRibBadValue, kRibError, "MakeBrickMap \"%s\" names no point cloud file",
                 brickmap.c_str());
    return;
  }
  std::vector<char*> names;
  for (std::string& c : clouds) names.push_back(c.data());
  RiMakeBrickMapV(static_cast<RtInt>(names.size()), names.data(), ritext(brickmap),
                  listCount(params), params.tokens.data, params.values.data);
}
