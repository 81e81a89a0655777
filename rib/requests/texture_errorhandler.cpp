// Texture-making requests, which are read to keep the stream in step (no image
// file is made), and ErrorHandler, which switches both error paths at once.
#include "interface/ri.h"
#include "rib/requests/handler_support.h"
#include "rib/requests/rendrib.h"
#include "rib/tokenvalue.h"

namespace {

struct NamedHandler {
  const char* name;
  lexanrib::ErrorHandler reader;
  RtErrorHandler interface;
};

const NamedHandler kHandlers[] = {
    {"ignore", &lexanrib::RIBErrorIgnore, RiErrorIgnore},
    {"print", &lexanrib::RIBErrorPrint, RiErrorPrint},
    {"abort", &lexanrib::RIBErrorAbort, RiErrorAbort},
};
const NamedHandler& kPrintHandler = kHandlers[1];

}  // namespace

// The wrap words and file names pass unexamined; only the filter is looked up.
// MakeTexture and MakeBump take the same arguments.
void rendrib::makeWrappedTexture(WrappedTextureCall call) {
  String picture, texture, swrap, twrap;
  RtFilterFunc filter;
  float width[2];
  tokenvalue params;
  if (!match(&picture) || !match(&texture) || !matchToken(&swrap) || !matchToken(&twrap) ||
      !matchFilter(filter) || !matchFloats(width, 2) || !match(params, 0)) {
    return;
  }
  call(ritext(picture), ritext(texture), ritext(swrap), ritext(twrap), filter, width[0], width[1],
       listCount(params), params.tokens.data, params.values.data);
}

void rendrib::MakeTexture() {
  makeWrappedTexture(RiMakeTextureV);
}

void rendrib::MakeBump() {
  makeWrappedTexture(RiMakeBumpV);
}

void rendrib::MakeLatLongEnvironment() {
  String picture, texture;
  RtFilterFunc filter;
  float width[2];
  tokenvalue params;
  if (!match(&picture) || !match(&texture) || !matchFilter(filter) || !matchFloats(width, 2) ||
      !match(params, 0)) {
    return;
  }
  RiMakeLatLongEnvironmentV(ritext(picture), ritext(texture), filter, width[0], width[1],
                            listCount(params), params.tokens.data, params.values.data);
}

// Six face pictures and the texture name, then the field of view before the
// filter.
void rendrib::MakeCubeFaceEnvironment() {
  String face[6], texture;
  float fov;
  RtFilterFunc filter;
  float width[2];
  tokenvalue params;
  for (String& f : face) {
    if (!match(&f)) return;
  }
  if (!match(&texture) || !match(fov) || !matchFilter(filter) || !matchFloats(width, 2) ||
      !match(params, 0)) {
    return;
  }
  RiMakeCubeFaceEnvironmentV(ritext(face[0]), ritext(face[1]), ritext(face[2]), ritext(face[3]),
                             ritext(face[4]), ritext(face[5]), ritext(texture), fov, filter,
                             width[0], width[1], listCount(params), params.tokens.data,
                             params.values.data);
}

void rendrib::MakeShadow() {
  String picture, texture;
  tokenvalue params;
  if (!match(&picture) || !match(&texture) || !match(params, 0)) return;
  RiMakeShadowV(ritext(picture), ritext(texture), listCount(params), params.tokens.data,
                params.values.data);
}

// Both paths change together: the reader's reports on the RIB text and the
// Ri layer's. An unknown name is reported through the handler in force and
// changes neither; "null" is compared as its text, so it is unknown too.
void rendrib::ErrorHandler() {
  String name;
  if (!match(&name)) return;
  for (const NamedHandler& h : kHandlers) {
    if (name == h.name) {
      const bool print = !options.mayAbort && h.reader == &lexanrib::RIBErrorAbort;
      const NamedHandler& chosen = print ? kPrintHandler : h;
      lex.RIBErrorHandler = chosen.reader;
      RiErrorHandler(chosen.interface);
      return;
    }
  }
  lex.RIBError(kRibSyntax, kRibError, "Unknown error function '%s'", name.c_str());
  panic();
}
