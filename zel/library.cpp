#include "zel/library.h"

#include "zel/jsonformat.h"

namespace zel {

void Library::startFile() {
  nesting.clear();
  params.clear();
  quarks.newFile();
}

void Library::writeHeader() {
  if (!output.formats()) return;
  std::string& out = output.line();
  out += "{\"format\":\"ZEL\",\"version\":1,\"generator\":";
  appendText(out, "rib2zel " RIB2ZEL_VERSION);
  if (!reader.empty()) {
    out += ",\"reader\":";
    appendText(out, reader.c_str());
  }
  out += "}\n";
  output.commit();
}

Library& library() {
  // Destroyed at process exit, which flushes and closes the scene file: a
  // program that never reaches a closing call still loses nothing.
  static Library instance;
  return instance;
}

}  // namespace zel
