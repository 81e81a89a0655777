#include "zel/reader/zelreader.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

// Numbers with a fraction or exponent are parsed straight to float, with no
// detour through double, so that each reads back to the bits it was written
// from.
using Json = nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t,
                                  std::uint64_t, float>;

[[noreturn]] void fail(size_t line, const std::string& what) {
  throw ZelReadError("ZEL line " + std::to_string(line) + ": " + what);
}

[[noreturn]] void wrongKind(const char* wanted) {
  throw ZelReadError(std::string("ZEL value is not ") + wanted);
}

// The parser gives UTF-8; the file's texts are bytes written as U+0000 to U+00FF.
std::string toBytes(const std::string& utf8, size_t line) {
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

ZelValue toValue(const Json& json, size_t line) {
  switch (json.type()) {
    case Json::value_t::null:
      return ZelValue();
    case Json::value_t::boolean:
      return ZelValue(json.get<bool>());
    case Json::value_t::number_integer:
      return ZelValue(json.get<int64_t>());
    case Json::value_t::number_unsigned: {
      uint64_t value = json.get<uint64_t>();
      if (value > static_cast<uint64_t>(std::numeric_limits<int64_t>::max()))
        fail(line, "integer " + std::to_string(value) + " is too large");
      return ZelValue(static_cast<int64_t>(value));
    }
    case Json::value_t::number_float:
      return ZelValue(json.get<float>());
    case Json::value_t::string:
      return ZelValue(toBytes(json.get_ref<const std::string&>(), line));
    case Json::value_t::array: {
      std::vector<ZelValue> items;
      items.reserve(json.size());
      for (const Json& item : json) items.push_back(toValue(item, line));
      return ZelValue(std::move(items));
    }
    default:
      fail(line, "unexpected " + std::string(json.type_name()) + " value");
  }
}

const Json& member(const Json& object, const char* key, size_t line) {
  auto found = object.find(key);
  if (found == object.end()) fail(line, std::string("missing \"") + key + "\"");
  return *found;
}

int64_t integerMember(const Json& object, const char* key, size_t line) {
  const Json& value = member(object, key, line);
  if (!value.is_number_integer()) fail(line, std::string("\"") + key + "\" is not an integer");
  return toValue(value, line).asInt();
}

void onlyKeys(const Json& object, std::initializer_list<const char*> keys, size_t line) {
  for (auto it = object.begin(); it != object.end(); ++it) {
    bool known = false;
    for (const char* key : keys) known = known || it.key() == key;
    if (!known) fail(line, "unknown member \"" + it.key() + "\"");
  }
}

ZelParamRecord toParam(const Json& json, size_t line) {
  if (!json.is_object()) fail(line, "a parameter is not an object");
  onlyKeys(json, {"code", "name", "type", "class", "count", "values"}, line);
  ZelParamRecord param;
  param.code = integerMember(json, "code", line);
  const Json& name = member(json, "name", line);
  if (name.is_string())
    param.name = toBytes(name.get_ref<const std::string&>(), line);
  else if (!name.is_null())
    fail(line, "a parameter's \"name\" is neither text nor null");
  param.type = integerMember(json, "type", line);
  param.tokenClass = integerMember(json, "class", line);
  param.count = integerMember(json, "count", line);
  const Json& values = member(json, "values", line);
  if (!values.is_array() && !values.is_null()) fail(line, "\"values\" is not an array");
  param.values = toValue(values, line);
  return param;
}

Json parseLine(const std::string& text, size_t line) {
  try {
    Json json = Json::parse(text);
    if (!json.is_object()) fail(line, "not a JSON object");
    return json;
  } catch (const Json::exception& error) {
    fail(line, error.what());
  }
}

}  // namespace

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

const std::vector<ZelValue>& ZelValue::items() const {
  if (auto* value = std::get_if<std::vector<ZelValue>>(&value_)) return *value;
  wrongKind("an array");
}

std::vector<float> ZelValue::asFloats() const {
  std::vector<float> numbers;
  for (const ZelValue& item : items()) numbers.push_back(item.asFloat());
  return numbers;
}

std::vector<int64_t> ZelValue::asInts() const {
  std::vector<int64_t> numbers;
  for (const ZelValue& item : items()) numbers.push_back(item.asInt());
  return numbers;
}

ZelReader::ZelReader(std::istream& in) : in_(in) {
  std::string text;
  if (!readLine(text)) fail(1, "no header: the file is empty");
  Json header = parseLine(text, line_);
  onlyKeys(header, {"format", "version", "generator", "reader"}, line_);
  const Json& format = member(header, "format", line_);
  if (!format.is_string() || format.get<std::string>() != "ZEL") fail(line_, "not a ZEL file");
  int64_t version = integerMember(header, "version", line_);
  if (version != 1) fail(line_, "ZEL version " + std::to_string(version) + " is not supported");
  const Json& generator = member(header, "generator", line_);
  if (!generator.is_string()) fail(line_, "\"generator\" is not text");
  generator_ = toBytes(generator.get<std::string>(), line_);
  if (header.contains("reader")) {
    const Json& reader = member(header, "reader", line_);
    if (!reader.is_string()) fail(line_, "\"reader\" is not text");
    reader_ = toBytes(reader.get<std::string>(), line_);
  }
}

bool ZelReader::readLine(std::string& line) {
  if (!std::getline(in_, line)) return false;
  ++line_;
  if (in_.eof()) fail(line_, "the last record has no line end: the file was cut short");
  return true;
}

bool ZelReader::next(ZelRecord& record) {
  std::string text;
  if (!readLine(text)) return false;
  Json json = parseLine(text, line_);
  onlyKeys(json, {"op", "args", "params", "handle"}, line_);
  record = ZelRecord();
  record.line = line_;
  const Json& op = member(json, "op", line_);
  if (!op.is_string()) fail(line_, "\"op\" is not text");
  record.op = op.get<std::string>();
  const Json& args = member(json, "args", line_);
  if (!args.is_array()) fail(line_, "\"args\" is not an array");
  record.args = toValue(args, line_).items();
  if (auto params = json.find("params"); params != json.end()) {
    if (!params->is_array()) fail(line_, "\"params\" is not an array");
    record.hasParams = true;
    for (const Json& param : *params) record.params.push_back(toParam(param, line_));
  }
  if (json.contains("handle")) record.handle = integerMember(json, "handle", line_);
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
