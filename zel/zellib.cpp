#include "zel/zellib.h"

#include "zel/library.h"
#include "zel/messages.h"

using namespace zel;

void zelSetMessageSink(void (*sink)(const char* line)) {
  setSink(sink);
}

void zelSetReader(const char* name) {
  library().reader = name ? name : "";
}

void zelOutputToStream(FILE* stream) {
  Library& lib = library();
  lib.startFile();
  lib.output.useStream(stream);
  lib.writeHeader();
}

void zelDiscardOutput() {
  Library& lib = library();
  lib.startFile();
  lib.output.discard();
  lib.writeHeader();
}

void zelSkipOutput() {
  Library& lib = library();
  lib.startFile();
  lib.output.skip();
}

bool zelFlush() {
  return library().output.flush();
}

void zelFreezeOutput() {
  library().output.freeze();
}

bool zelClose() {
  return library().output.close();
}

bool zelWriteFailed() {
  return library().output.failed();
}

const char* zelWriteError() {
  return library().output.failure().c_str();
}

void zelReset() {
  Library& lib = library();
  lib.output.reset();
  lib.startFile();
  lib.quarks.clear();
  lib.reader.clear();
  resetMessages();
}
