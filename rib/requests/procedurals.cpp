// Procedurals and System. The delayed-read generators are played like
// ReadArchive, inside an attribute scope of their own; every other generator,
// and a shell command, goes to the scene as it stands. Nothing a scene names
// is ever run or loaded.
#include <cstring>
#include <string>
#include <vector>

#include "interface/ri.h"
#include "interface/token.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

namespace {

bool is(const String& s, const char* text) {
  return std::strcmp(s.c_str(), text) == 0;
}

}  // namespace

int16_t extendedrib::matchStrings(std::vector<std::string>& out) {
  if (!match('[')) return 0;
  while (token == LEXSTRING) {
    String s;
    match(&s);
    out.emplace_back(s.c_str());
  }
  return match(']');
}

void extendedrib::notExpanded(const char* what, const char* generator) {
  if (state_->toldNotExpanded) return;
  state_->toldNotExpanded = true;
  lex.RIBError(kRibSyntax, kRibWarning, "%s \"%s\" is kept as it stands, not expanded (told once)",
               what, generator);
}

void extendedrib::Procedural() {
  String generator;
  std::vector<std::string> strings;
  Array<float> bound;
  if (!match(&generator) || !matchStrings(strings) || !match(bound, 6, 1)) return;
  const bool delayed = is(generator, "DelayedReadArchive");
  const size_t wanted = delayed ? 1 : 2;
  if (!delayed && !is(generator, "RunProgram") && !is(generator, "DynamicLoad")) {
    lex.RIBError(kRibBadValue, kRibError, "Unknown procedural generator \"%s\"", generator.c_str());
    return;
  }
  if (strings.size() != wanted) {
    lex.RIBError(kRibBadValue, kRibError, "Procedural \"%s\" takes %zu strings, not %zu",
                 generator.c_str(), wanted, strings.size());
    return;
  }
  if (delayed) return playArchive(strings[0], true);
  notExpanded("Procedural", generator.c_str());
  const char* data[2] = {strings[0].c_str(), strings[1].c_str()};
  RiProcedural(const_cast<char**>(data), bound.data,
               is(generator, "RunProgram") ? RiProcRunProgram : RiProcDynamicLoad, RiProcFree);
}

void extendedrib::Procedural2() {
  String generator, bounder;
  tokenvalue params;
  if (!matchToken(&generator) || !matchToken(&bounder) || !match(params, 1)) return;
  if (is(generator, "DelayedReadArchive2")) {
    const char* file = stringParameter(params, "filename");
    if (file == nullptr) {
      lex.RIBError(kRibBadValue, kRibError,
                   "Procedural2 \"DelayedReadArchive2\" names no \"string filename\"");
      return;
    }
    return playArchive(file, true);
  }
  notExpanded("Procedural2", generator.c_str());
  RiProcedural2V(ritext(generator), ritext(bounder), listCount(params), params.tokens.data,
                 params.values.data);
}

void extendedrib::System() {
  String command;
  if (!match(&command)) return;
  notExpanded("System", command.c_str());
  RiSystem(ritext(command));
}
