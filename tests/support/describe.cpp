#include "tests/support/describe.h"

#include <charconv>

std::string describe(const ZelValue& value) {
  switch (value.kind()) {
    case ZelValue::Kind::Null:
      return "null";
    case ZelValue::Kind::Boolean:
      return value.asBool() ? "true" : "false";
    case ZelValue::Kind::Integer:
      return std::to_string(value.asInt());
    case ZelValue::Kind::Float: {
      char digits[32];
      auto end = std::to_chars(digits, digits + sizeof digits, value.asFloat()).ptr;
      return std::string(digits, end);
    }
    case ZelValue::Kind::Text:
      return "\"" + value.asText() + "\"";
    case ZelValue::Kind::Array: {
      std::string items = "[";
      for (const ZelValue& item : value.items()) {
        if (items.size() > 1) items += ",";
        items += describe(item);
      }
      return items + "]";
    }
  }
  return "?";
}

std::string describe(const ZelRecord& record, bool codes) {
  std::string line = record.op;
  for (const ZelValue& arg : record.args) line += " " + describe(arg);
  for (const ZelParamRecord& p : record.params) {
    line += " {" + (codes ? std::to_string(p.code) + " " : "") + p.name.value_or("null") + " " +
            std::to_string(p.type) + " " + std::to_string(p.tokenClass) + " " +
            std::to_string(p.count) + " " + describe(p.values) + "}";
  }
  return line;
}
