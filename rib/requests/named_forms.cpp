// Classic requests with the names that later versions added. A name the
// classic reader and Ri layer take goes the classic way, so a classic scene
// reads the same here; any other goes to the scene by name (a renderer may
// know more names than any list here).
#include <cstring>

#include "interface/ri.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

namespace {

bool oneOf(const String& s, std::initializer_list<const char*> words) {
  for (const char* w : words) {
    if (std::strcmp(s.c_str(), w) == 0) return true;
  }
  return false;
}

}  // namespace

void extendedrib::PixelFilter() {
  String name;
  float width[2];
  if (!matchToken(&name) || !matchFloats(width, 2)) return;
  if (RtFilterFunc filter = standardFilter(name)) {
    RiPixelFilter(filter, width[0], width[1]);
  } else {
    RiNamedPixelFilter(ritext(name), width[0], width[1]);
  }
}

void extendedrib::Projection() {
  String name;
  tokenvalue params;
  if (!matchTokenAndList(&name, params)) return;
  const auto call =
      oneOf(name, {"perspective", "orthographic", "null"}) ? RiProjectionV : RiNamedProjectionV;
  call(ritext(name), listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::Hider() {
  String type;
  tokenvalue params;
  if (!matchTokenAndList(&type, params)) return;
  const auto call = oneOf(type, {"hidden", "paint", "null"}) ? RiHiderV : RiNamedHiderV;
  call(ritext(type), listCount(params), params.tokens.data, params.values.data);
}

// A name beginning with '+' adds an output; the classic call would replace
// the one before.
void extendedrib::Display() {
  String name, type, mode;
  tokenvalue params;
  if (!match(&name) || !matchToken(&type) || !matchToken(&mode) || !match(params, 0)) return;
  const bool classic = name.c_str()[0] != '+' && oneOf(type, {"framebuffer", "file"}) &&
                       oneOf(mode, {"rgb", "rgba", "rgbz", "rgbaz", "a", "z", "az"});
  const auto call = classic ? RiDisplayV : RiNamedDisplayV;
  call(ritext(name), ritext(type), ritext(mode), listCount(params), params.tokens.data,
       params.values.data);
}
