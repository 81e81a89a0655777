#include "zel/record.h"

#include "zel/jsonformat.h"
#include "zel/library.h"
#include "zel/messages.h"

namespace zel {

void writeQuark(uint16_t code) {
  Library& lib = library();
  std::string& out = lib.output.line();
  out += "{\"op\":\"Quark\",\"args\":[";
  const std::string& name = lib.quarks.name(code);
  appendText(out, name.data(), name.size());
  out += ',';
  appendInt(out, code);
  out += "]}\n";
  lib.output.commit();
  lib.quarks.markWritten(code);
}

void payQuark(uint16_t code) {
  if (library().quarks.owed(code)) writeQuark(code);
}

Record::Record(const char* op) : out_(library().output.line()), op_(op) {
  out_ += "{\"op\":\"";
  out_ += op;
  out_ += "\",\"args\":[";
}

Record::Record(const char* op, const ParamList& list)
    : out_(library().output.line()),
      op_(op),
      hasList_(true),
      list_(list),
      match_(library().params.match(list.n, list.codes)) {
  for (int32_t i = 0; list.codes != nullptr && i < list.n; ++i) payQuark(list.codes[i]);
  out_ += "{\"op\":\"";
  out_ += op;
  out_ += "\",\"args\":[";
}

void Record::separate() {
  if (!first_) out_ += ',';
  first_ = false;
}

Record& Record::i(int64_t value) {
  separate();
  appendInt(out_, value);
  return *this;
}

Record& Record::f(float value) {
  separate();
  appendFloat(out_, value);
  return *this;
}

Record& Record::text(const char* value) {
  separate();
  appendText(out_, value);
  return *this;
}

Record& Record::floats(const float* values, size_t n) {
  separate();
  appendFloats(out_, values, n);
  return *this;
}

Record& Record::ints(const int32_t* values, size_t n) {
  separate();
  appendInts(out_, values, n);
  return *this;
}

Record& Record::opaque(bool present) {
  separate();
  out_ += present ? "true" : "null";
  return *this;
}

Record& Record::handle(int64_t value) {
  hasHandle_ = true;
  handle_ = value;
  return *this;
}

void Record::end() {
  Library& lib = library();
  out_ += ']';
  if (hasList_) lib.params.write(out_, list_.n, list_.codes, list_.values, match_);
  if (hasHandle_) {
    out_ += ",\"handle\":";
    appendInt(out_, handle_);
  }
  out_ += "}\n";
  lib.output.commit();
  if (match_ == PendingParams::Match::Missing)
    report(kBug, 2, std::string(op_) + ": no parameter info came before its parameter list");
  else if (match_ == PendingParams::Match::Mismatch)
    report(kBug, 2, std::string(op_) + ": the parameter info does not match its parameter list");
}

void reportFault(int32_t code, const std::string& fault) {
  if (!fault.empty()) report(code, 2, fault);
}

}  // namespace zel
