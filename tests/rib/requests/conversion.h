// Runs RIB text through the front ends' conversion object (rendrib, or
// extendedrib reading inline archives only), and gathers what came out: the reader's report lines,
// the Ri layer's and the scene library's message lines, and the scene records read back from the
// ZEL text that the library wrote.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zel/reader/zelreader.h"

struct Conversion {
  std::vector<std::string> log;       // RIB reports, in order
  std::vector<std::string> messages;  // Ri layer and scene library lines
  ZelFile zel;

  // The operation names of the records, Quark records left out.
  std::vector<std::string> ops() const;
  // The records of one operation, in order.
  std::vector<ZelRecord> records(std::string_view op) const;
  // The one record of an operation; fails the test when there is not exactly one.
  ZelRecord only(std::string_view op) const;
};

// `extended` reads with the extended reader (inline archives only).
Conversion convert(std::string_view rib, bool extended = false);

// A bracketed run of `count` numbers counting up from `first`: the values of
// a parameter whose size is all that matters.
std::string numbers(int count, float first = 0);

// The values of the parameter with the given name in a record.
std::vector<float> paramFloats(const ZelRecord& record, const std::string& name);
