// The library's one instance of its state, shared by the _zel operations and
// the side interface of zellib.h.
#pragma once

#include <string>

#include "zel/nesting.h"
#include "zel/output.h"
#include "zel/params.h"
#include "zel/quarks.h"

namespace zel {

struct Library {
  Output output;
  Quarks quarks;
  Nesting nesting;
  PendingParams params;
  std::string reader;  // the header's "reader"; empty: none written

  // A new scene file: nothing open, no handles, every name owed again.
  void startFile();
  // The first line of every scene file.
  void writeHeader();
};

Library& library();

}  // namespace zel
