// Light and object handles given as strings: the extended reader files them
// by their text beside the classic numbers.
#include <cstring>

#include "interface/ri.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

void extendedrib::LightSource() {
  lightSource(RiLightSourceV);
}

void extendedrib::AreaLightSource() {
  lightSource(RiAreaLightSourceV);
}

void extendedrib::lightAfterName(const String& name, LightCall call) {
  if (token != LEXSTRING) return rendrib::lightAfterName(name, call);
  String handle;
  tokenvalue params;
  if (!match(&handle) || !match(params, 0)) return;
  void* light = call(ritext(name), listCount(params), params.tokens.data, params.values.data);
  state_->lights[handle.c_str()] = light;
}

// The handle filed under the string that the current token holds, taken; or
// null after a warning and a skip to the next request.
void* extendedrib::lookupHandle(std::unordered_map<std::string, void*>& table, const char* words) {
  String handle;
  if (!match(&handle)) return nullptr;
  const auto found = table.find(handle.c_str());
  if (found != table.end()) return found->second;
  lex.RIBError(kRibBadHandle, kRibWarning, "Unknown %s handle \"%s\"", words, handle.c_str());
  panic();
  return nullptr;
}

// A handle that no LightSource gave may be a Light node's.
void extendedrib::Illuminate() {
  if (token != LEXSTRING) return rendrib::Illuminate();
  int16_t onoff;
  if (!state_->lights.count(lex.text.data) && state_->lightNodes.count(lex.text.data)) {
    String handle;
    if (match(&handle) && match(onoff)) RiIlluminateLight(ritext(handle), onoff);
    return;
  }
  void* light = lookupHandle(state_->lights, "light");
  if (light == nullptr || !match(onoff)) return;
  RiIlluminate(light, onoff);
}

void extendedrib::ObjectBegin() {
  if (token != LEXSTRING) return rendrib::ObjectBegin();
  String handle;
  if (!match(&handle)) return;
  state_->objects[handle.c_str()] = RiObjectBegin();
}

void extendedrib::ObjectInstance() {
  if (token != LEXSTRING) return rendrib::ObjectInstance();
  if (void* object = lookupHandle(state_->objects, "object")) RiObjectInstance(object);
}
