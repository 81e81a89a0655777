#include "zel/reader/zelreader.h"

#include <simdjson.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <utility>

namespace {

namespace od = simdjson::ondemand;

[[noreturn]] void fail(size_t line, const std::string& what) {
  throw ZelReadError("ZEL line " + std::to_string(line) + ": " + what);
}

[[noreturn]] void wrongKind(const char* wanted) {
  throw ZelReadError(std::string("ZEL value is not ") + wanted);
}

// The parser gives UTF-8; the file's texts are bytes written as U+0000 to U+00FF.
std::string toBytes(std::string_view utf8, size_t line) {
  std::string bytes;
  bytes.reserve(utf8.size());
  for (size_t i = 0; i < utf8.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(utf8[i]);
    if (c < 0x80) {
      bytes += static_cast<char>(c);
    } else if ((c == 0xC2 || c == 0xC3) && i + 1 < utf8.size()) {
      unsigned char next = static_cast<unsigned char>(utf8[++i]);
      bytes += static_cast<char>(((c & 0x1F) << 6) | (next & 0x3F));
    } else {
      fail(line, "text holds a character above U+00FF");
    }
  }
  return bytes;
}

enum class NumberForm { Integer, Fraction, Invalid };

// JSON's number grammar; a fraction or an exponent makes the number a float.
NumberForm numberForm(std::string_view text) {
  size_t i = 0;
  auto digits = [&] {
    size_t start = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
    return i > start;
  };
  auto skip = [&](char a, char b) {
    bool found = i < text.size() && (text[i] == a || text[i] == b);
    i += found ? 1 : 0;
    return found;
  };
  skip('-', '-');
  if (!skip('0', '0') && !digits()) return NumberForm::Invalid;
  bool fraction = false;
  if (skip('.', '.')) {
    if (!digits()) return NumberForm::Invalid;
    fraction = true;
  }
  if (skip('e', 'E')) {
    skip('+', '-');
    if (!digits()) return NumberForm::Invalid;
    fraction = true;
  }
  if (i != text.size()) return NumberForm::Invalid;
  return fraction ? NumberForm::Fraction : NumberForm::Integer;
}

// Straight from the text to float, with no detour through double, so that
// each number reads back to the bits it was written from.
float toFloat(std::string_view text) {
  float value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  // Too large or too small for a float: infinity or zero, as strtof gives.
  if (error == std::errc::result_out_of_range)
    return std::strtof(std::string(text).c_str(), nullptr);
  return value;
}

// A number of the file: an integer, or else a float.
struct Number {
  bool integer = false;
  int64_t whole = 0;
  float value = 0;
};

// Most numbers of a large scene are vertex indices and counts: integers of
// a few digits, read here at once. Anything else is for parseNumber.
std::optional<int64_t> shortInteger(std::string_view token) {
  bool negative = !token.empty() && token[0] == '-';
  std::string_view digits = token.substr(negative ? 1 : 0);
  if (digits.empty() || digits.size() > 9 || (digits[0] == '0' && digits.size() > 1)) return {};
  int64_t value = 0;
  for (char c : digits) {
    if (c < '0' || c > '9') return {};
    value = value * 10 + (c - '0');
  }
  return negative ? -value : value;
}

Number parseNumber(std::string_view token, size_t line) {
  while (!token.empty() && (token.back() == ' ' || token.back() == '\t' || token.back() == '\r'))
    token.remove_suffix(1);
  if (std::optional<int64_t> whole = shortInteger(token))
    return {true, *whole, static_cast<float>(*whole)};
  NumberForm form = numberForm(token);
  if (form == NumberForm::Invalid) fail(line, "\"" + std::string(token) + "\" is not a number");
  const char* first = token.data();
  const char* last = first + token.size();
  if (form == NumberForm::Integer) {
    int64_t whole = 0;
    if (std::from_chars(first, last, whole).ec == std::errc())
      return {true, whole, static_cast<float>(whole)};
    uint64_t large = 0;
    if (token[0] != '-' && std::from_chars(first, last, large).ec == std::errc())
      fail(line, "integer " + std::to_string(large) + " is too large");
  }
  return {false, 0, toFloat(token)};
}

ZelValue numberValue(std::string_view token, size_t line) {
  Number number = parseNumber(token, line);
  if (number.integer) return ZelValue(number.whole);
  return ZelValue(number.value);
}

ZelValue toValue(od::value json, size_t line);

// Integers up to this size are exact as floats.
constexpr int64_t kExactInFloat = int64_t(1) << 24;

// An array whose items are all numbers, each exact as a float, is kept as
// floats; any other item turns it into an array of values from there on.
ZelValue arrayValue(od::array array, size_t line) {
  std::vector<float> numbers;
  std::vector<bool> whole;
  std::vector<ZelValue> items;
  bool compact = true;
  for (auto element : array) {
    od::value item = element.value();
    if (compact && item.type().value() == od::json_type::number) {
      Number number = parseNumber(item.raw_json_token(), line);
      if (!number.integer || std::abs(number.whole) <= kExactInFloat) {
        numbers.push_back(number.value);
        whole.push_back(number.integer);
        continue;
      }
    }
    if (compact) {
      items = ZelValue::numbers(std::move(numbers), std::move(whole)).items();
      compact = false;
    }
    items.push_back(toValue(item, line));
  }
  if (compact && !numbers.empty()) return ZelValue::numbers(std::move(numbers), std::move(whole));
  return ZelValue(std::move(items));
}

ZelValue toValue(od::value json, size_t line) {
  switch (json.type().value()) {
    case od::json_type::null:
      if (!json.is_null().value())
        fail(line, "\"" + std::string(json.raw_json_token()) + "\" is not null");
      return ZelValue();
    case od::json_type::boolean:
      return ZelValue(json.get_bool().value());
    case od::json_type::number:
      return numberValue(json.raw_json_token(), line);
    case od::json_type::string:
      return ZelValue(toBytes(json.get_string().value(), line));
    case od::json_type::array:
      return arrayValue(json.get_array().value(), line);
    default:
      fail(line, "unexpected object value");
  }
}

// The member's value, or false when the object has none.
bool findMember(od::object& object, const char* key, od::value& value) {
  auto found = object.find_field_unordered(key);
  if (found.error() == simdjson::NO_SUCH_FIELD) return false;
  value = found.value();
  return true;
}

od::value member(od::object& object, const char* key, size_t line) {
  od::value value;
  if (!findMember(object, key, value)) fail(line, std::string("missing \"") + key + "\"");
  return value;
}

int64_t integerValue(od::value value, const char* key, size_t line) {
  if (value.type().value() == od::json_type::number) {
    Number number = parseNumber(value.raw_json_token(), line);
    if (number.integer) return number.whole;
  }
  fail(line, std::string("\"") + key + "\" is not an integer");
}

int64_t integerMember(od::object& object, const char* key, size_t line) {
  return integerValue(member(object, key, line), key, line);
}

using Keys = std::initializer_list<const char*>;

// Checks the keys before any value is read, leaving the object at its end.
// Returns a bit for each of the keys the object holds, the first key's
// lowest: looking for one it lacks would pass over every value again.
uint32_t onlyKeys(od::object& object, Keys keys, size_t line) {
  uint32_t present = 0;
  for (auto field : object) {
    std::string_view key = field.unescaped_key().value();
    uint32_t bit = 1;
    bool known = false;
    for (const char* name : keys) {
      if (key == name) {
        present |= bit;
        known = true;
      }
      bit <<= 1;
    }
    if (!known) fail(line, "unknown member \"" + std::string(key) + "\"");
  }
  return present;
}

constexpr uint32_t kThirdKey = 1 << 2, kFourthKey = 1 << 3;

bool isText(od::value& value) {
  return value.type().value() == od::json_type::string;
}

ZelParamRecord toParam(od::value json, const std::vector<std::string>& unread, size_t line) {
  if (json.type().value() != od::json_type::object) fail(line, "a parameter is not an object");
  od::object object = json.get_object().value();
  onlyKeys(object, {"code", "name", "type", "class", "count", "values"}, line);
  object.reset().value();
  ZelParamRecord param;
  param.code = integerMember(object, "code", line);
  od::value name = member(object, "name", line);
  if (isText(name))
    param.name = toBytes(name.get_string().value(), line);
  else if (!name.is_null().value())
    fail(line, "a parameter's \"name\" is neither text nor null");
  param.type = integerMember(object, "type", line);
  param.tokenClass = integerMember(object, "class", line);
  param.count = integerMember(object, "count", line);
  od::value values = member(object, "values", line);
  od::json_type type = values.type().value();
  if (type != od::json_type::array && type != od::json_type::null)
    fail(line, "\"values\" is not an array");
  // Left unread, the values are passed over by the parser without a number being made.
  if (param.name && std::find(unread.begin(), unread.end(), *param.name) != unread.end())
    return param;
  param.values = toValue(values, line);
  return param;
}

// The fast way to read a line, in one pass over it: each step below either
// reads what it should or gives up, and the line is then read the careful
// way (toParam, ZelReader::next), which checks every key before any value
// and so finds the same message whatever the order of the faults.

// A parameter whose members are all there once, in the order written.
bool quickParam(od::value json, const std::vector<std::string>& unread, size_t line,
                ZelParamRecord& param) {
  od::object object;
  if (json.get_object().get(object)) return false;
  constexpr const char* kKeys[] = {"code", "name", "type", "class", "count", "values"};
  size_t next = 0;
  for (auto field : object) {
    if (next == std::size(kKeys) || field.unescaped_key().value() != kKeys[next]) return false;
    od::value value = field.value();
    switch (next++) {
      case 0:
        param.code = integerValue(value, "code", line);
        break;
      case 1:
        if (isText(value))
          param.name = toBytes(value.get_string().value(), line);
        else if (!value.is_null().value())
          return false;
        break;
      case 2:
        param.type = integerValue(value, "type", line);
        break;
      case 3:
        param.tokenClass = integerValue(value, "class", line);
        break;
      case 4:
        param.count = integerValue(value, "count", line);
        break;
      default: {
        od::json_type type = value.type().value();
        if (type != od::json_type::array && type != od::json_type::null) return false;
        if (!param.name || std::find(unread.begin(), unread.end(), *param.name) == unread.end())
          param.values = toValue(value, line);
      }
    }
  }
  return next == std::size(kKeys);
}

// A record whose members are each there at most once.
bool quickRecord(od::document& document, const std::vector<std::string>& unread, size_t line,
                 ZelRecord& record) {
  od::object object;
  if (document.get_object().get(object)) return false;
  bool op = false, args = false, params = false, handle = false;
  for (auto field : object) {
    std::string_view key = field.unescaped_key().value();
    od::value value = field.value();
    if (key == "op" && !std::exchange(op, true)) {
      if (!isText(value)) return false;
      record.op = value.get_string().value();
    } else if (key == "args" && !std::exchange(args, true)) {
      if (value.type().value() != od::json_type::array) return false;
      for (auto arg : value.get_array()) record.args.push_back(toValue(arg.value(), line));
    } else if (key == "params" && !std::exchange(params, true)) {
      if (value.type().value() != od::json_type::array) return false;
      record.hasParams = true;
      for (auto param : value.get_array()) {
        if (!quickParam(param.value(), unread, line, record.params.emplace_back())) return false;
      }
    } else if (key == "handle" && !std::exchange(handle, true)) {
      record.handle = integerValue(value, "handle", line);
    } else {
      return false;
    }
  }
  return op && args && document.current_location().error();
}

// The line as one JSON object of the keys, with nothing after it, and the
// keys it holds (see onlyKeys).
od::object parseLine(od::document& document, Keys keys, size_t line, uint32_t& present) {
  if (document.type().value() != od::json_type::object) fail(line, "not a JSON object");
  od::object object = document.get_object().value();
  present = onlyKeys(object, keys, line);
  // Past the object's end the document has no location: anything else there is a second value.
  if (!document.current_location().error()) fail(line, "more than one JSON value");
  object.reset().value();
  return object;
}

}  // namespace

struct ZelReader::Json {
  od::parser parser;
  od::document document;

  // The document of the text, which must have room for the parser's padding.
  // The record of the line read in one pass, or false when it must be read
  // the careful way.
  bool quick(std::string& text, const std::vector<std::string>& unread, size_t line,
             ZelRecord& record) {
    try {
      text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
      document = parser.iterate(simdjson::padded_string_view(text, text.capacity())).value();
      return quickRecord(document, unread, line, record);
    } catch (const simdjson::simdjson_error&) {
      return false;
    } catch (const ZelReadError&) {
      return false;
    }
  }

  od::object parse(std::string& text, Keys keys, size_t line, uint32_t& present) {
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
    document = parser.iterate(simdjson::padded_string_view(text, text.capacity())).value();
    return parseLine(document, keys, line, present);
  }
};

bool ZelValue::asBool() const {
  if (auto* value = std::get_if<bool>(&value_)) return *value;
  wrongKind("a boolean");
}

int64_t ZelValue::asInt() const {
  if (auto* value = std::get_if<int64_t>(&value_)) return *value;
  wrongKind("an integer");
}

float ZelValue::asFloat() const {
  if (auto* value = std::get_if<float>(&value_)) return *value;
  if (auto* value = std::get_if<int64_t>(&value_)) return static_cast<float>(*value);
  if (auto* text = std::get_if<std::string>(&value_)) {
    if (*text == "inf") return std::numeric_limits<float>::infinity();
    if (*text == "-inf") return -std::numeric_limits<float>::infinity();
    if (*text == "nan") return std::numeric_limits<float>::quiet_NaN();
  }
  wrongKind("a float");
}

const std::string& ZelValue::asText() const {
  if (auto* value = std::get_if<std::string>(&value_)) return *value;
  wrongKind("a text");
}

ZelValue ZelValue::numbers(std::vector<float> values, std::vector<bool> whole) {
  return ZelValue(Numbers{std::move(values), std::move(whole), {}});
}

const std::vector<ZelValue>& ZelValue::items() const {
  if (auto* value = std::get_if<std::vector<ZelValue>>(&value_)) return *value;
  if (auto* numbers = std::get_if<Numbers>(&value_)) {
    if (numbers->items.size() != numbers->values.size()) {
      numbers->items.reserve(numbers->values.size());
      for (size_t i = 0; i < numbers->values.size(); ++i) {
        float v = numbers->values[i];
        if (numbers->whole[i])
          numbers->items.emplace_back(static_cast<int64_t>(v));
        else
          numbers->items.emplace_back(v);
      }
    }
    return numbers->items;
  }
  wrongKind("an array");
}

std::vector<float> ZelValue::asFloats() const {
  if (auto* numbers = std::get_if<Numbers>(&value_)) return numbers->values;
  const std::vector<ZelValue>& all = items();
  std::vector<float> values;
  values.reserve(all.size());
  for (const ZelValue& item : all) values.push_back(item.asFloat());
  return values;
}

std::vector<int64_t> ZelValue::asInts() const {
  if (auto* numbers = std::get_if<Numbers>(&value_)) {
    std::vector<int64_t> values;
    values.reserve(numbers->values.size());
    for (size_t i = 0; i < numbers->values.size(); ++i) {
      if (!numbers->whole[i]) wrongKind("an integer");
      values.push_back(static_cast<int64_t>(numbers->values[i]));
    }
    return values;
  }
  const std::vector<ZelValue>& all = items();
  std::vector<int64_t> values;
  values.reserve(all.size());
  for (const ZelValue& item : all) values.push_back(item.asInt());
  return values;
}

ZelReader::ZelReader(std::istream& in) : in_(in), json_(std::make_unique<Json>()) {
  if (!readLine()) fail(1, "no header: the file is empty");
  try {
    uint32_t present = 0;
    od::object header =
        json_->parse(text_, {"format", "version", "generator", "reader"}, line_, present);
    od::value format = member(header, "format", line_);
    if (!isText(format) || format.get_string().value() != "ZEL") fail(line_, "not a ZEL file");
    int64_t version = integerMember(header, "version", line_);
    if (version != 1) fail(line_, "ZEL version " + std::to_string(version) + " is not supported");
    od::value generator = member(header, "generator", line_);
    if (!isText(generator)) fail(line_, "\"generator\" is not text");
    generator_ = toBytes(generator.get_string().value(), line_);
    od::value reader;
    if ((present & kFourthKey) && findMember(header, "reader", reader)) {
      if (!isText(reader)) fail(line_, "\"reader\" is not text");
      reader_ = toBytes(reader.get_string().value(), line_);
    }
  } catch (const simdjson::simdjson_error& error) {
    fail(line_, error.what());
  }
}

ZelReader::~ZelReader() = default;

bool ZelReader::readLine() {
  if (!std::getline(in_, text_)) return false;
  ++line_;
  if (in_.eof()) fail(line_, "the last record has no line end: the file was cut short");
  return true;
}

bool ZelReader::next(ZelRecord& record) {
  if (!readLine()) return false;
  record = ZelRecord();
  record.line = line_;
  if (json_->quick(text_, unread_, line_, record)) return true;
  record = ZelRecord();
  record.line = line_;
  try {
    uint32_t present = 0;
    od::object json = json_->parse(text_, {"op", "args", "params", "handle"}, line_, present);
    od::value op = member(json, "op", line_);
    if (!isText(op)) fail(line_, "\"op\" is not text");
    record.op = op.get_string().value();
    od::value args = member(json, "args", line_);
    if (args.type().value() != od::json_type::array) fail(line_, "\"args\" is not an array");
    for (auto arg : args.get_array()) record.args.push_back(toValue(arg.value(), line_));
    od::value params;
    if ((present & kThirdKey) && findMember(json, "params", params)) {
      if (params.type().value() != od::json_type::array) fail(line_, "\"params\" is not an array");
      record.hasParams = true;
      for (auto param : params.get_array())
        record.params.push_back(toParam(param.value(), unread_, line_));
    }
    if (od::value handle; (present & kFourthKey) && findMember(json, "handle", handle))
      record.handle = integerValue(handle, "handle", line_);
  } catch (const simdjson::simdjson_error& error) {
    fail(line_, error.what());
  }
  return true;
}

namespace {

ZelFile readAll(std::istream& in) {
  ZelReader reader(in);
  ZelFile file;
  file.generator = reader.generator();
  file.reader = reader.reader();
  ZelRecord record;
  while (reader.next(record)) {
    if (record.op == "Quark" && record.args.size() == 2 &&
        record.args[0].kind() == ZelValue::Kind::Text &&
        record.args[1].kind() == ZelValue::Kind::Integer)
      file.quarks[record.args[1].asInt()] = record.args[0].asText();
    file.records.push_back(std::move(record));
  }
  return file;
}

}  // namespace

ZelFile readZelString(std::string_view text) {
  std::istringstream in{std::string(text)};
  return readAll(in);
}

ZelFile readZelFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw ZelReadError("ZEL file \"" + path + "\" cannot be opened");
  return readAll(in);
}
