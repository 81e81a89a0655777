// Helpers for the scanner tests: a scanner over bytes in memory and the token
// stream written out as words.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rib/bytesource.h"
#include "rib/lexanrib.h"
#include "tests/support/reportcollector.h"

namespace lexantest {

using Words = std::vector<std::string>;

struct Scan {
  explicit Scan(std::string input)
      : bytes(std::move(input)), source(bytes.data(), bytes.size()), lex(source) {}
  std::string bytes;
  memorybytesource source;
  lexanrib lex;
};

// The current token as a word: "INT 12", "FLOAT 1.5", "STRING abc",
// "KEYWORD Sphere", "[", "]" or "EOF".
inline std::string describe(const lexanrib& lex, int16_t kind) {
  switch (kind) {
    case LEXINT: {
      int32_t v;
      lex.get(v);
      return "INT " + std::to_string(v);
    }
    case LEXFLOAT: {
      float f;
      lex.get(f);
      char buf[64];
      std::snprintf(buf, sizeof buf, "FLOAT %.9g", f);
      return buf;
    }
    case LEXSTRING:
    case LEXKEYWORD: {
      String s;
      lex.get(s);
      return (kind == LEXSTRING ? "STRING " : "KEYWORD ") + std::string(s.c_str());
    }
    case LEXEOF:
      return "EOF";
    case '[':
      return "[";
    case ']':
      return "]";
    default:
      return "KIND " + std::to_string(kind);
  }
}

// Every token up to and including the first EOF; a raised exception is
// written as "THROW code message" and scanning goes on after it.
inline std::vector<std::string> tokens(lexanrib& lex, int limit = 1000) {
  std::vector<std::string> out;
  while (limit-- > 0) {
    try {
      int16_t kind = lex.next();
      out.push_back(describe(lex, kind));
      if (kind == LEXEOF) break;
    } catch (const RIBException& e) {
      out.push_back("THROW " + std::to_string(e.code) + " " + e.message.c_str());
    }
  }
  return out;
}

// The exception the next scan raises, as "code severity message", or "none".
inline std::string raised(lexanrib& lex) {
  try {
    lex.next();
  } catch (const RIBException& e) {
    return std::to_string(e.code) + " " + std::to_string(e.severity) + " " + e.message.c_str();
  }
  return "none";
}

inline std::vector<std::string> tokens(const std::string& input) {
  Scan scan(input);
  return tokens(scan.lex);
}

// Inputs with the token words each must scan to.
struct Case {
  std::string input;
  std::vector<std::string> expected;
};

inline void expectTokens(const std::vector<Case>& cases) {
  for (size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(tokens(cases[i].input), cases[i].expected) << "case " << i << ": " << cases[i].input;
  }
}

// Collects report lines while it lives, then puts the old printer back.
using Reports = ReportCollector;

}  // namespace lexantest
