// The requests of later versions in the extended reader: good forms and their
// records, bad forms with their whole messages and recovery at the next
// request, and the classic reader refusing them as before.
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "tests/rib/requests/conversion.h"

namespace {

using Lines = std::vector<std::string>;

std::string text(const ZelValue& v) {
  switch (v.kind()) {
    case ZelValue::Kind::Text:
      return '"' + v.asText() + '"';
    case ZelValue::Kind::Array: {
      std::string s = "[";
      for (const ZelValue& item : v.items()) s += (s.size() > 1 ? " " : "") + text(item);
      return s + "]";
    }
    case ZelValue::Kind::Null:
      return "null";
    default: {
      char number[32];
      std::snprintf(number, sizeof number, "%g", v.asFloat());
      return number;
    }
  }
}

// A record as "Op arg ... | name type/class/count values ...", Quarks left out.
Lines records(const Conversion& c) {
  Lines lines;
  for (const ZelRecord& r : c.zel.records) {
    if (r.op == "Quark") continue;
    std::string line = r.op;
    for (const ZelValue& a : r.args) {
      const bool quark = a.kind() == ZelValue::Kind::Integer && c.zel.quarks.count(a.asInt());
      line += " " + (quark ? "'" + c.zel.quarks.at(a.asInt()) + "'" : text(a));
    }
    if (r.hasParams) line += " |";
    for (const ZelParamRecord& p : r.params) {
      line += " " + p.name.value_or("null") + " " + std::to_string(p.type) + "/" +
              std::to_string(p.tokenClass) + "/" + std::to_string(p.count) + " " + text(p.values);
    }
    lines.push_back(line);
  }
  return lines;
}

struct Case {
  const char* rib;
  Lines log;
  Lines records;
  Lines messages = {};  // of the Ri layer and the scene library
};

void expectCases(const std::vector<Case>& cases, bool extended) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rib);
    Conversion out = convert(c.rib, extended);
    EXPECT_EQ(out.log, c.log);
    EXPECT_EQ(records(out), c.records);
    EXPECT_EQ(out.messages, c.messages);
  }
}

// The good forms the golden scenes of later versions do not show.
TEST(ModernRequests, GoodFormsAreRecordedAsTheyStand) {
  expectCases(
      {
          {"Light \"DomeLightNode\" \"sky\" Illuminate \"sky\" 0",
           {},
           {"ShadingNodeV 3330 \"DomeLightNode\" \"sky\" |", "LightNodeSwitch \"sky\" 0"}},
          {"Pattern \"p\" \"h\" \"uniform reference float[2] uv\" [\"a:x\" \"b:y\"]",
           {},
           {"ShadingNodeV 3329 \"p\" \"h\" | uv 10/1/2 [\"a:x\" \"b:y\"]"}},
          {"DisplayChannel \"varying color Ci\" \"string filter\" \"gaussian\"",
           {},
           {"DisplayChannelV \"varying color Ci\" | filter 3/1/1 [\"gaussian\"]"}},
          {"PixelFilter \"mitchell\" 2 3 PixelFilter \"box\" 1 1 Projection \"fisheye\" "
           "Projection \"orthographic\" Hider \"raytrace\" \"int minsamples\" [4] Hider \"hidden\"",
           {},
           {"NamedFilter \"mitchell\" 2 3", "Filter 258", "FilterWidth 1 1",
            "NamedProjectionV \"fisheye\" |", "ViewOrthographic",
            "NamedHiderV \"raytrace\" | minsamples 2/1/1 [4]", "Hider 1024"}},
          {"Display \"a.exr\" \"openexr\" \"rgba\" Display \"+b\" \"it\" \"Ci,a\" "
           "Display \"+c.tif\" \"file\" \"rgb\" Display \"d.tif\" \"tiff\" \"rgba\" "
           "Display \"e.tif\" \"file\" \"rgb\"",
           {},
           {"NamedDisplayV \"a.exr\" \"openexr\" \"rgba\" |",
            "NamedDisplayV \"+b\" \"it\" \"Ci,a\" |", "NamedDisplayV \"+c.tif\" \"file\" \"rgb\" |",
            "NamedDisplayV \"d.tif\" \"tiff\" \"rgba\" |", "OutputFile 513 \"e.tif\"",
            "OutputSamples 769"}},
      },
      true);
}

TEST(ModernRequests, BadFormsAreReportedAndReadingGoesOn) {
  const char* next = " Sphere 1 -1 1 360";
  const std::string sphere = "SphereV 1 -1 1 360 |";
  std::vector<Case> cases = {
      {"Bxdf \"SurfaceNode\"",
       {"RIB error: general syntactic error at line 1 'Sphere': Expected String"},
       {}},
      {"Light 1 \"h\"", {"RIB error: general syntactic error at line 1 '1': Expected String"}, {}},
      {"ClippingPlane 0 0 1 0 0",
       {"RIB error: general syntactic error at line 1 'Sphere': Expected float"},
       {}},
      {"DisplayChannel \"Ci\"",
       {"RIB error: incorrect parameter value at line 1 'Sphere': DisplayChannel \"Ci\" is "
        "neither a declaration with a name nor a declared name"},
       {}},
      {"MakeBrickMap [] \"o.bkm\"",
       {"RIB error: incorrect parameter value at line 1 'Sphere': MakeBrickMap \"o.bkm\" names no "
        "point cloud file"},
       {}},
      {"Resource \"r\" \"attributes\" \"string operation\" \"load\"",
       {"RIB error: incorrect parameter value at line 1 'Sphere': Resource \"r\" \"attributes\" "
        "needs a \"string operation\" of \"save\" or \"restore\""},
       {}},
      {"ResourceEnd",
       {"RIB error: general syntactic error at line 1 'Sphere': ResourceEnd without ResourceBegin"},
       {}},
      {"Else", {"RIB error: general syntactic error at line 1 'Sphere': Else without IfBegin"}, {}},
      {"ElseIf \"1\"",
       {"RIB error: general syntactic error at line 1 'Sphere': ElseIf without IfBegin"},
       {}},
      {"EditWorldEnd",
       {"RIB error: general syntactic error at line 1 'Sphere': EditWorldEnd without "
        "EditWorldBegin"},
       {}},
      {"IfBegin \"1\" Else Else ElseIf \"2\" IfEnd",
       {"RIB error: general syntactic error at line 1 'ElseIf': A second Else for the IfBegin of "
        "line 1",
        "RIB error: general syntactic error at line 1 'IfEnd': ElseIf after the Else of the "
        "IfBegin of line 1"},
       {"IfBegin \"1\"", "Else", "IfEnd"}},
      {"IfBegin \"1\"\nEditBegin \"x\"\nIfEnd\nElse\nEditEnd\nIfEnd",
       {"RIB error: general syntactic error at line 3 'Else': IfEnd while the EditBegin of line 2 "
        "is open",
        "RIB error: general syntactic error at line 4 'EditEnd': Else while the EditBegin of line "
        "2 is open"},
       {"IfBegin \"1\"", "EditBeginV \"x\" |", "EditEnd", "IfEnd"}},
  };
  for (Case& c : cases) c.records.push_back(sphere);
  std::vector<std::string> ribs;
  for (Case& c : cases) c.rib = ribs.emplace_back(std::string(c.rib) + next).c_str();
  expectCases(cases, true);
}

TEST(ModernRequests, BlocksLeftOpenAreReportedAtTheEnd) {
  expectCases(
      {{"ResourceBegin\nIfBegin \"1\"\nSphere 1 -1 1 360\n",
        {"RIB error: general syntactic error at line 3 '360': IfBegin of line 2 has no IfEnd",
         "RIB error: general syntactic error at line 3 '360': ResourceBegin of line 1 has "
         "no ResourceEnd"},
        {"ResourceBegin", "IfBegin \"1\"", "SphereV 1 -1 1 360 |"}}},
      true);
}

TEST(ModernRequests, TheClassicReaderRefusesThemAsBefore) {
  std::istringstream words(
      "Bxdf Pattern Light Integrator Displace DisplayFilter SampleFilter LightFilter Shader "
      "Camera CoordSysTransform ScopedCoordinateSystem ClippingPlane GeometricRepresentation "
      "DisplayChannel MakeBrickMap Resource ResourceBegin ResourceEnd IfBegin ElseIf Else IfEnd "
      "EditBegin EditEnd EditWorldBegin EditWorldEnd EditAttributeBegin EditAttributeEnd "
      "HierarchicalSubdivisionMesh");
  for (std::string word; words >> word;) {
    expectCases({{(word + " \"a\" Sphere 1 -1 1 360").c_str(),
                  {"RIB error: undefined RIB request at line 1 '" + word + "'"},
                  {"SphereV 1 -1 1 360 |"}}},
                false);
  }
  expectCases(
      {
          {"PixelFilter \"mitchell\" 2 2 Sphere 1 -1 1 360",
           {"RIB error: general syntactic error at line 1 '2': Unknown filter function "
            "'mitchell'"},
           {"SphereV 1 -1 1 360 |"}},
          {"Hider \"raytrace\"",
           {},
           {"Hider 1024"},
           {"error: Parameter out of range. RiHiderV: unknown hider type \"raytrace\", using "
            "hidden"}},
          {"Projection \"fisheye\"", {}, {"ViewOrthographic"}},
          {"Display \"+b.tif\" \"file\" \"rgba\"",
           {},
           {"OutputFile 513 \"+b.tif\"", "OutputSamples 771"}},
      },
      false);
}

}  // namespace
