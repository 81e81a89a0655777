#include "zel/params.h"

#include "zel/jsonformat.h"

namespace zel {

namespace {

// RiTokenType numbers.
enum : uint8_t {
  kNone = 0,
  kFloat = 1,
  kInteger = 2,
  kString = 3,
  kPoint = 4,
  kColor = 5,
  kVector = 6,
  kNormal = 7,
  kHPoint = 8,
  kMatrix = 9,
  kReference = 10,
};

bool holdsFloats(uint8_t type) {
  return type == kFloat || type == kPoint || type == kColor || (type >= kVector && type <= kMatrix);
}

}  // namespace

void PendingParams::set(int32_t n, const ZelParam* params) {
  clear();
  set_ = true;
  if (params == nullptr) n = 0;
  for (int32_t i = 0; i < n; ++i) {
    const ZelParam& param = params[i];
    int32_t nameAt = -1;
    if (param.name != nullptr) {
      nameAt = static_cast<int32_t>(names_.size());
      names_ += param.name;
      names_ += '\0';
    }
    infos_.push_back({param.code, param.type, param.tokenClass, param.count, nameAt});
  }
}

PendingParams::Match PendingParams::match(int32_t n, const uint16_t* codes) const {
  if (n <= 0) return infos_.empty() ? Match::Ok : Match::Mismatch;
  if (!set_) return Match::Missing;
  if (codes == nullptr || infos_.size() != static_cast<size_t>(n)) return Match::Mismatch;
  for (int32_t i = 0; i < n; ++i)
    if (infos_[i].code != codes[i]) return Match::Mismatch;
  return Match::Ok;
}

void PendingParams::write(std::string& out, int32_t n, const uint16_t* codes,
                          const RtPointer* values, Match match) {
  out += ",\"params\":[";
  for (int32_t i = 0; codes != nullptr && i < n; ++i) {
    if (i > 0) out += ',';
    if (match == Match::Ok) {
      writeOne(out, infos_[i], values ? values[i] : nullptr);
    } else {
      // Without trustworthy counts nothing may be read from the value.
      out += "{\"code\":";
      appendInt(out, codes[i]);
      out += ",\"name\":null,\"type\":0,\"class\":0,\"count\":0,\"values\":null}";
    }
  }
  out += ']';
  clear();
}

void PendingParams::writeOne(std::string& out, const Info& info, const void* value) const {
  out += "{\"code\":";
  appendInt(out, info.code);
  out += ",\"name\":";
  appendText(out, info.nameAt < 0 ? nullptr : names_.c_str() + info.nameAt);
  out += ",\"type\":";
  appendInt(out, info.type);
  out += ",\"class\":";
  appendInt(out, info.tokenClass);
  out += ",\"count\":";
  appendInt(out, info.count);
  out += ",\"values\":";
  if (value == nullptr) {
    out += "null";
  } else if (holdsFloats(info.type)) {
    appendFloats(out, static_cast<const float*>(value), info.count);
  } else if (info.type == kInteger) {
    appendInts(out, static_cast<const int32_t*>(value), info.count);
  } else if (info.type == kString || info.type == kReference) {
    appendTexts(out, static_cast<const char* const*>(value), info.count);
  } else {
    out += "[]";  // a keyword token, or a type with no known layout: nothing to read
  }
  out += '}';
}

void PendingParams::clear() {
  set_ = false;
  infos_.clear();
  names_.clear();
}

}  // namespace zel
