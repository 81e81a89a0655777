// Reads ZEL version 1 scene files back into records, for tests and tools.
// Texts come back as the bytes that were written (\u0080-\u00FF are single
// bytes again), and the strings "inf", "-inf" and "nan" read as floats where
// a float is asked for. A file that breaks the format gives a ZelReadError
// naming the line.
#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

class ZelReadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// One JSON value of a record. The file carries no types beyond JSON's, so a
// float that happens to be whole reads as an integer; asFloat takes both.
class ZelValue {
 public:
  enum class Kind { Null, Boolean, Integer, Float, Text, Array };

  ZelValue() = default;
  explicit ZelValue(bool value) : value_(value) {}
  explicit ZelValue(int64_t value) : value_(value) {}
  explicit ZelValue(float value) : value_(value) {}
  explicit ZelValue(std::string value) : value_(std::move(value)) {}
  explicit ZelValue(std::vector<ZelValue> items) : value_(std::move(items)) {}
  // An array of numbers kept as floats, a flag per item marking the integers
  // (each exact as a float): the scene's long arrays cost no value per item.
  static ZelValue numbers(std::vector<float> values, std::vector<bool> whole);

  Kind kind() const {
    return value_.index() == kNumbersIndex ? Kind::Array : static_cast<Kind>(value_.index());
  }
  bool isNull() const { return kind() == Kind::Null; }

  // Each throws ZelReadError when the value is of another kind.
  bool asBool() const;
  int64_t asInt() const;
  float asFloat() const;  // an integer, a float, or "inf", "-inf", "nan"
  const std::string& asText() const;
  // An array of numbers makes its items on the first call, so one value is not
  // for several threads at once.
  const std::vector<ZelValue>& items() const;
  std::vector<float> asFloats() const;  // an array, each item as asFloat
  std::vector<int64_t> asInts() const;

 private:
  struct Numbers {
    std::vector<float> values;
    std::vector<bool> whole;
    mutable std::vector<ZelValue> items;  // made when asked for
  };
  static constexpr size_t kNumbersIndex = 6;

  explicit ZelValue(Numbers numbers) : value_(std::move(numbers)) {}

  std::variant<std::monostate, bool, int64_t, float, std::string, std::vector<ZelValue>, Numbers>
      value_;
};

struct ZelParamRecord {
  int64_t code = 0;
  std::optional<std::string> name;
  int64_t type = 0;
  int64_t tokenClass = 0;
  int64_t count = 0;
  ZelValue values;  // an array, or null when there was nothing to read
};

struct ZelRecord {
  size_t line = 0;  // 1 is the header
  std::string op;
  std::vector<ZelValue> args;
  bool hasParams = false;
  std::vector<ZelParamRecord> params;
  std::optional<int64_t> handle;
};

// Reads a stream record by record, so that a file of any size can be read.
class ZelReader {
 public:
  // Reads and checks the header.
  explicit ZelReader(std::istream& in);
  ~ZelReader();

  const std::string& generator() const { return generator_; }
  // The header's "reader", or "" when it has none (the classic reader).
  const std::string& reader() const { return reader_; }
  // The next record, or false at the end of the file.
  bool next(ZelRecord& record);
  // Parameters of these names keep their other members, but their values
  // are not read: they come back null. For a caller that only asks whether
  // a parameter is there, and would otherwise pay for millions of numbers.
  void leaveValuesUnread(std::vector<std::string> names) { unread_ = std::move(names); }

 private:
  struct Json;  // the JSON parser and its buffers, kept from line to line

  bool readLine();

  std::istream& in_;
  std::unique_ptr<Json> json_;
  std::string text_;
  size_t line_ = 0;
  std::string generator_;
  std::string reader_;
  std::vector<std::string> unread_;
};

struct ZelFile {
  std::string generator;
  std::string reader;
  std::vector<ZelRecord> records;
  std::map<int64_t, std::string> quarks;  // from the Quark records
};

ZelFile readZelString(std::string_view text);
ZelFile readZelFile(const std::string& path);
