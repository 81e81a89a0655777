// The extended reader end to end through the conversion object: archives
// against pasted text, archive faults, and what the switch changes.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "frontend/conversion.h"
#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"
#include "tests/support/describe.h"
#include "zel/reader/zelreader.h"

namespace {

using lines = std::vector<std::string>;
using files = std::map<std::string, std::string>;

struct converted {
  lines log;
  std::string zel;
};

// The records of a scene file without its Quark records: a process keeps its
// token dictionary from one conversion to the next, so which names are paid
// for in which file depends on the conversions before.
lines records(const std::string& zel) {
  lines kept;
  for (const std::string& line : splitLines(zel)) {
    if (line.rfind("{\"op\":\"Quark\"", 0) != 0) kept.push_back(line);
  }
  return kept;
}

// Writes the files into the directory and converts "main.rib".
converted convertIn(const scratchdir& dir, const files& all, bool extended = true) {
  for (const auto& [name, bytes] : all) {
    fs::create_directories(dir.file(name).parent_path());
    dir.write(name, bytes);
  }
  converted c;
  conversion::request r;
  r.input = dir.file("main.rib").string();
  r.output = dir.file("out.zel").string();
  r.extended = extended;
  r.log = [&c](const char* line) { c.log.push_back(line); };
  r.messages = [](const char*) {};
  conversion conv(std::move(r));
  EXPECT_TRUE(conv.open());
  while (conv.step()) {
  }
  c.zel = readFile(dir.file("out.zel"));
  return c;
}

std::string example(const std::string& name) {
  return readFile(sourcePath("examples/" + name));
}

// The text up to the first request line at or after the middle, and the rest.
std::pair<std::string, std::string> splitAtRequest(const std::string& text) {
  size_t at = text.find('\n', text.size() / 2);
  while (at != std::string::npos && !(at + 1 < text.size() && std::isupper(text[at + 1]))) {
    at = text.find('\n', at + 1);
  }
  return {text.substr(0, at + 1), text.substr(at + 1)};
}

// The records of one operation without their parameters' codes, which for
// new names depend on what the process met before.
lines recordsOf(const std::string& zel, const std::string& op) {
  lines found;
  for (const ZelRecord& r : readZelString(zel).records) {
    if (r.op == op) found.push_back(describe(r, false));
  }
  return found;
}

}  // namespace

// ReadArchive plays an archive as if its text stood in its place: the scene
// is the same as for the pasted text, whatever the archive's encoding.
TEST(Extended, ReadArchiveGivesTheSceneOfThePastedText) {
  for (const char* scene : {"polygon_mesh", "patch_mesh", "instances", "nurbs_trim"}) {
    scratchdir dir;
    const std::string name = scene;
    const std::string text = example(name + ".rib");
    const auto [head, tail] = splitAtRequest(text);
    const lines pasted = records(convertIn(dir, {{"main.rib", text}}).zel);
    const files cases[] = {
        {{"main.rib", "ReadArchive \"a.ribb\"\n"}, {"a.ribb", example(name + ".ribb")}},
        {{"main.rib", "ReadArchive \"sub/a.rib.gz\"\n"},
         {"sub/a.rib.gz", example(name + ".rib.gz")}},
        {{"main.rib", head + "ReadArchive \"b.rib\"\n"}, {"b.rib", gzipped(tail)}},
        {{"main.rib", "ReadArchive \"a.rib\" ReadArchive \"b.rib\""},
         {"a.rib", head},
         {"b.rib", "ArchiveBegin \"t\"\n" + tail + "ArchiveEnd ReadArchive \"t\""}},
    };
    for (const files& f : cases) {
      converted c = convertIn(dir, f);
      EXPECT_EQ(c.log, lines{}) << scene << ": " << f.at("main.rib").substr(0, 40);
      EXPECT_TRUE(records(c.zel) == pasted) << scene << ": " << f.at("main.rib").substr(0, 40);
    }
  }
}

TEST(Extended, ArchiveFaultsAreReportedAndTheConversionGoesOn) {
  const struct {
    files given;
    lines log;
  } cases[] = {
      {{{"main.rib", "ReadArchive \"none.rib\"\nSphere 1 -1 1 360\n"}},
       {"RIB error: incorrect parameter value at line 1 'Sphere': "
        "Cannot find archive \"none.rib\""}},
      {{{"main.rib", "ReadArchive \"sub\"\n"}, {"sub/x", ""}},
       {"RIB error: incorrect parameter value at line 1 'sub': Archive \"sub\" is a directory"}},
      {{{"main.rib", "ReadArchive \"main.rib\"\n"}},
       {"RIB error: incorrect parameter value at line 1 'main.rib': Archive \"main.rib\" reads "
        "itself"}},
      {{{"main.rib", "ReadArchive \"a.rib\"\n"}, {"a.rib", "\n\nReadArchive \"./main.rib\"\n"}},
       {"RIB error: incorrect parameter value at line 3 of \"a.rib\" './main.rib': "
        "Archive \"./main.rib\" reads itself"}},
      {{{"main.rib", "Sphere 1 -1 1 360\nArchiveEnd\nSphere 1 -1 1 360\n"}},
       {"RIB error: general syntactic error at line 2 'Sphere': ArchiveEnd without ArchiveBegin"}},
      {{{"main.rib", "\nArchiveBegin \"a\"\nSphere 1 -1 1 360\n"}},
       {"RIB error: general syntactic error at line 3 '360': ArchiveBegin \"a\" of line 2 has no "
        "ArchiveEnd"}},
      {{{"main.rib", "ArchiveBegin \"a\" ReadArchive \"a\" ArchiveEnd ReadArchive \"a\"\n"}},
       {"RIB error: incorrect parameter value at line 1 of \"a\" 'a': Archive \"a\" reads itself"}},
      // Reports inside an archive give its name as written and its own lines;
      // the including file's lines go on counting after it.
      {{{"main.rib", "ReadArchive \"a.rib\"\nSphere 1 -1 1 360\nBogus\n"},
        {"a.rib", "Sphere 1 -1 1 360\n\nSphere 1 -1 1 360 Bogus 2\n"}},
       {"RIB error: undefined RIB request at line 3 of \"a.rib\" 'Bogus'",
        "RIB error: undefined RIB request at line 2 'Bogus'"}},
  };
  for (const auto& c : cases) {
    scratchdir dir;
    EXPECT_EQ(convertIn(dir, c.given).log, c.log) << c.given.at("main.rib");
  }
}

// Each archive reads the next; the 65th is not read.
TEST(Extended, ArchivesNestNoDeeperThan64) {
  files chain{{"main.rib", "ReadArchive \"1\"\n"}};
  for (int i = 1; i <= 70; ++i) {
    chain[std::to_string(i)] = "Translate 1 0 0 ReadArchive \"" + std::to_string(i + 1) + "\"\n";
  }
  scratchdir dir;
  converted c = convertIn(dir, chain);
  EXPECT_EQ(c.log, lines{"RIB error: overflowing an internal limit at line 1 of \"64\" '65': "
                         "Archives nested more than 64 deep: \"65\" is not read"});
}

// What the switch changes; off, each input is read as the classic reader
// reads it.
TEST(Extended, TheSwitchDecidesHowModernFormsAreRead) {
  const struct {
    std::string rib;
    lines extended;
    lines classic;
  } cases[] = {
      {"version 3.04\n",
       {},
       {"RIB warning: protocol version number mismatch at line 1 '3.04': Version 3.04 too new"}},
      {"LightSource \"spotlight\" \"key\"\nIlluminate \"key\" 0\nIlluminate \"fill\" 1\n",
       {"RIB warning: invalid light or object handle at line 3 '1': Unknown light handle \"fill\""},
       {"RIB error: general syntactic error at line 1 'key': Expected integer",
        "RIB error: general syntactic error at line 2 'key': Expected integer",
        "RIB error: general syntactic error at line 3 'fill': Expected integer"}},
      {"ObjectBegin \"o\" ObjectEnd ObjectInstance \"o\" FrameBegin 2.0 FrameEnd Sides 2.5\n",
       {"RIB error: general syntactic error at line 1 '2.5': Expected integer"},
       {"RIB error: general syntactic error at line 1 'o': Expected integer",
        "RIB error: general syntactic error at line 1 'o': Expected integer",
        "RIB error: general syntactic error at line 1 '2.0': Expected Keyword",
        "RIB error: general syntactic error at line 1 '2.5': Expected integer"}},
      {"Surface \"s\" \"uniform float Kd\" 1 \"zork\" 2 \"Ks\" 1\n",
       {"RIB warning: general syntactic error at line 1 '2': Undeclared parameter \"zork\" is "
        "skipped"},
       {}},
      {"Procedural \"RunProgram\" [\"p\" \"a\"] [0 1 0 1 0 1]\nSystem \"ls\"\n",
       {"RIB warning: general syntactic error at line 1 'System': Procedural \"RunProgram\" is "
        "kept as it stands, not expanded (told once)"},
       {"RIB error: undefined RIB request at line 1 'Procedural'"}},
  };
  for (const auto& c : cases) {
    scratchdir dir;
    EXPECT_EQ(convertIn(dir, {{"main.rib", c.rib}}, true).log, c.extended) << c.rib;
    EXPECT_EQ(convertIn(dir, {{"main.rib", c.rib}}, false).log, c.classic) << c.rib;
  }
}

// Inline declarations hold for their one use and are counted as their class
// says. (The later types and classes in records: the golden case "kept".)
TEST(Extended, InlineDeclarationsTypeTheirOneValue) {
  const std::string square = "Polygon \"P\" [0 0 0 1 0 0 1 1 0 0 1 0] ";
  const struct {
    std::string rib;
    std::string op;
    lines recorded;
    lines log;
  } cases[] = {
      {"Surface \"plastic\" \"constant string name\" [\"x\"] \"float[2] uv\" [1 2] \"uniform color "
       "c\" [1 0 0]\nSurface \"plastic\" \"string Kd\" [\"y\"]\nSurface \"plastic\" \"Kd\" 0.5\n",
       "SurfaceV",
       {R"(SurfaceV 11 {name 3 4 1 ["x"]} {uv 1 1 2 [1,2]} {c 5 1 3 [1,0,0]})",
        R"(SurfaceV 11 {Kd 3 1 1 ["y"]})", R"(SurfaceV 11 {Kd 1 1 1 [0.5]})"},
       {}},
      {"PointsPolygons [3 3] [0 1 2 2 1 3] \"P\" [0 0 0 1 0 0 0 1 0 1 1 0] \"facevarying float s\" "
       "[1 2 3 4]\n" +
           square + "\"vertex normal N\" [0 0 1]\n",
       "PolygonV",
       {},
       {"RIB error: invalid array specification at line 1 'Polygon': 6 items expected for "
        "parameter 's'",
        "RIB error: invalid array specification at line 2 '1': 4 items expected for parameter "
        "'N'"}},
  };
  for (const auto& c : cases) {
    scratchdir dir;
    converted out = convertIn(dir, {{"main.rib", c.rib}});
    EXPECT_EQ(recordsOf(out.zel, c.op), c.recorded) << c.rib;
    EXPECT_EQ(out.log, c.log) << c.rib;
  }
}

// What the classic reader drops or changes without a word, the extended one
// keeps or reports.
TEST(Extended, NothingIsLostWithoutAWord) {
  std::string points;
  for (int i = 0; i < 70000; ++i) points += std::to_string(i) + " 0 0 ";
  const struct {
    std::string rib;
    lines extended;
    std::string firstRecord;
  } cases[] = {
      {"Polygon \"P\" [" + points + "]\n", {}, "{\"op\":\"PolygonV\",\"args\":[70000]"},
      {"\xEF\xBB\xBFSides 99999999999\n",
       {"RIB warning: overflowing an internal limit at line 1 '99999999999': Integer beyond 32 "
        "bits, read as 2147483647"},
       "{\"op\":\"Backface\",\"args\":[0]}"},
      {"Sides 1 \xE9 Sides 2\n",
       {"RIB error: invalid binary token at line 1 '1': Byte 0xE9 begins no token: the stream ends "
        "here"},
       "{\"op\":\"Backface\",\"args\":[1]}"},
      {std::string("Sides 1 Sides \x83\x00\x02", 16),
       {"RIB error: malformed binary encoding at line 1 'Sides': A binary token is cut short by "
        "the "
        "end of the stream"},
       "{\"op\":\"Backface\",\"args\":[1]}"},
      {"Attribute \"identifier\" \"name\" \"" + std::string(70000, 'a') + "\"\n",
       {"RIB warning: overflowing an internal limit at line 1: String of 70000 bytes cut to 65535"},
       "{\"op\":\"ObjectName\",\"args\":[\"aaaa"},
  };
  for (const auto& c : cases) {
    scratchdir dir;
    converted out = convertIn(dir, {{"main.rib", c.rib}});
    EXPECT_EQ(out.log, c.extended) << c.rib.substr(0, 40);
    const lines kept = records(out.zel);
    ASSERT_GE(kept.size(), 2u);
    EXPECT_EQ(kept[1].substr(0, c.firstRecord.size()), c.firstRecord) << c.rib.substr(0, 40);
  }
}
