#include "preview/args.h"

#include <string>

#include "preview/previewerror.h"

void failRecord(const ZelRecord& record, const std::string& what) {
  throw PreviewError("ZEL line " + std::to_string(record.line) + ": " + record.op + ": " + what);
}

namespace {

const ZelValue& arg(const ZelRecord& r, size_t i) {
  if (i >= r.args.size()) {
    failRecord(r, "has " + std::to_string(r.args.size()) + " arguments, needs " +
                      std::to_string(i + 1) + " or more");
  }
  return r.args[i];
}

// A value of another kind than the record needs, said with the line.
template <typename F>
auto checked(const ZelRecord& r, size_t i, F read) {
  try {
    return read(arg(r, i));
  } catch (const ZelReadError& e) {
    failRecord(r, "argument " + std::to_string(i + 1) + ": " + e.what());
  }
}

const ZelParamRecord* findParam(const ZelRecord& r, std::string_view name) {
  for (const ZelParamRecord& p : r.params) {
    if (p.name && *p.name == name) return &p;
  }
  return nullptr;
}

}  // namespace

float argFloat(const ZelRecord& r, size_t i) {
  return checked(r, i, [](const ZelValue& v) { return v.asFloat(); });
}

int64_t argInt(const ZelRecord& r, size_t i) {
  return checked(r, i, [](const ZelValue& v) { return v.asInt(); });
}

std::vector<float> argFloats(const ZelRecord& r, size_t i) {
  return checked(r, i, [](const ZelValue& v) { return v.asFloats(); });
}

std::vector<int64_t> argInts(const ZelRecord& r, size_t i) {
  return checked(r, i, [](const ZelValue& v) { return v.asInts(); });
}

size_t argCount(const ZelRecord& r, size_t i, size_t limit) {
  int64_t n = argInt(r, i);
  if (n < 0 || static_cast<uint64_t>(n) > limit) {
    failRecord(r,
               "count " + std::to_string(n) + " out of range (0 to " + std::to_string(limit) + ")");
  }
  return static_cast<size_t>(n);
}

std::vector<float> paramFloats(const ZelRecord& r, std::string_view name) {
  const ZelParamRecord* p = findParam(r, name);
  if (!p || p->values.kind() != ZelValue::Kind::Array) return {};
  try {
    return p->values.asFloats();
  } catch (const ZelReadError& e) {
    failRecord(r, "parameter \"" + std::string(name) + "\": " + e.what());
  }
}

bool hasParam(const ZelRecord& r, std::string_view name) {
  return findParam(r, name) != nullptr;
}

std::vector<Vec3> triples(const std::vector<float>& values) {
  std::vector<Vec3> out(values.size() / 3);
  for (size_t i = 0; i < out.size(); ++i) {
    out[i] = {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
  }
  return out;
}

std::vector<Vec3> pointsOf(const ZelRecord& r, size_t needed, size_t nu, size_t nv) {
  std::vector<Vec3> points;
  if (hasParam(r, "P")) {
    points = triples(paramFloats(r, "P"));
  } else if (hasParam(r, "Pw")) {
    std::vector<float> pw = paramFloats(r, "Pw");
    for (size_t i = 0; i + 3 < pw.size(); i += 4) {
      float w = pw[i + 3] != 0 ? pw[i + 3] : 1.0f;
      points.push_back({pw[i] / w, pw[i + 1] / w, pw[i + 2] / w});
    }
  } else if (hasParam(r, "Pz") && nu > 0 && nv > 0) {
    std::vector<float> z = paramFloats(r, "Pz");
    for (size_t k = 0; k < z.size() && k < nu * nv; ++k) {
      float x = nu > 1 ? float(k % nu) / float(nu - 1) : 0,
            y = nv > 1 ? float(k / nu) / float(nv - 1) : 0;
      points.push_back({x, y, z[k]});
    }
  }
  if (points.size() < needed) {
    failRecord(r, "needs " + std::to_string(needed) + " points in \"P\" or \"Pw\", has " +
                      std::to_string(points.size()));
  }
  return points;
}
