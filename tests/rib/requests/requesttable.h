// The request tests' table: each RIB text with the whole report lines and the
// whole records it gives.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"
#include "tests/support/describe.h"

using Lines = std::vector<std::string>;

struct RequestCase {
  std::string rib;
  Lines log;
  Lines records;  // Quark records left out, each as describe writes it without codes
};

inline Lines described(const Conversion& c) {
  Lines lines;
  for (const ZelRecord& r : c.zel.records) {
    if (r.op != "Quark") lines.push_back(describe(r, false));
  }
  return lines;
}

inline void expectEach(const std::vector<RequestCase>& cases) {
  for (const RequestCase& c : cases) {
    SCOPED_TRACE(c.rib);
    const Conversion conversion = convert(c.rib);
    EXPECT_EQ(conversion.log, c.log);
    EXPECT_EQ(described(conversion), c.records);
  }
}
