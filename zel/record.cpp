#include "zel/record.h"

#include "zel/jsonformat.h"
#include "zel/library.h"
#include "zel/messages.h"

namespace zel {

void writeQuark(uint16_t code) {
  Library& lib = library();
  if (lib.output.formats()) {
    std::string& out = lib.output.line();
    out += "{\"op\":\"Quark\",\"args\":[";
    const std::string& name = lib.quarks.name(code);
    appendText(out, name.data(), name.size());
    out += ',';
    appendInt(out, code);
    out += "]}\n";
    lib.output.commit();
  }
  lib.quarks.markWritten(code);
}

void payQuark(uint16_t code) {
  if (library().quarks.owed(code)) writeQuark(code);
}

namespace {

std::string* lineOrNull() {
  Output& output = library().output;
  return output.formats() ? &output.line() : nullptr;
}

}  // namespace

Record::Record(const char* op) : out_(lineOrNull()), op_(op) {
  begin();
}

Record::Record(const char* op, const ParamList& list)
    : out_(lineOrNull()),
      op_(op),
      hasList_(true),
      list_(list),
      match_(library().params.match(list.n, list.codes)) {
  for (int32_t i = 0; list.codes != nullptr && i < list.n; ++i) payQuark(list.codes[i]);
  begin();
}

void Record::begin() {
  if (!out_) return;
  *out_ += "{\"op\":\"";
  *out_ += op_;
  *out_ += "\",\"args\":[";
}

// Whether to append an argument, after its comma.
bool Record::separate() {
  if (!out_) return false;
  if (!first_) *out_ += ',';
  first_ = false;
  return true;
}

Record& Record::i(int64_t value) {
  if (separate()) appendInt(*out_, value);
  return *this;
}

Record& Record::f(float value) {
  if (separate()) appendFloat(*out_, value);
  return *this;
}

Record& Record::text(const char* value) {
  if (separate()) appendText(*out_, value);
  return *this;
}

Record& Record::floats(const float* values, size_t n) {
  if (separate()) appendFloats(*out_, values, n);
  return *this;
}

Record& Record::ints(const int32_t* values, size_t n) {
  if (separate()) appendInts(*out_, values, n);
  return *this;
}

Record& Record::texts(const char* const* values, size_t n) {
  if (separate()) appendTexts(*out_, values, n);
  return *this;
}

Record& Record::opaque(bool present) {
  if (separate()) *out_ += present ? "true" : "null";
  return *this;
}

Record& Record::handle(int64_t value) {
  hasHandle_ = true;
  handle_ = value;
  return *this;
}

void Record::end() {
  Library& lib = library();
  if (out_) {
    *out_ += ']';
    if (hasList_) lib.params.write(*out_, list_.n, list_.codes, list_.values, match_);
    if (hasHandle_) {
      *out_ += ",\"handle\":";
      appendInt(*out_, handle_);
    }
    *out_ += "}\n";
    lib.output.commit();
  } else if (hasList_) {
    lib.params.clear();  // used up, as writing it would
  }
  if (match_ == PendingParams::Match::Missing)
    report(kBug, kError, std::string(op_) + ": no parameter info came before its parameter list");
  else if (match_ == PendingParams::Match::Mismatch)
    report(kBug, kError,
           std::string(op_) + ": the parameter info does not match its parameter list");
}

void reportFault(int32_t code, const std::string& fault) {
  if (!fault.empty()) report(code, kError, fault);
}

}  // namespace zel
