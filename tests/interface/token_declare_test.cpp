#include <gtest/gtest.h>

#include <set>
#include <string>

#include "error_test_sink.h"
#include "interface/scene/zel.h"
#include "interface/token.h"
#include "tests/interface/ri_scene.h"

namespace {

Token* record(RtToken token) {
  return reinterpret_cast<Token*>(token);
}

// RiDeclare takes the published char* arguments.
RtToken riDeclare(const std::string& name, const std::string& declaration) {
  std::string n = name, d = declaration;
  return RiDeclare(n.data(), d.data());
}

class Declare : public ErrorModelTest {};

TEST_F(Declare, RedeclaringKaKeepsTheFirstRecordSilently) {
  EXPECT_EQ(riDeclare("Ka", "uniform color"), RI_KA);
  EXPECT_EQ(declare("Ka", 0x4444, TypeColor, ClassVarying, 3), record(RI_KA));
  const Token* ka = record(RI_KA);
  EXPECT_EQ(ka->type, TypeFloat);
  EXPECT_EQ(ka->tokenClass, ClassUniform);
  EXPECT_EQ(ka->code, 0x000C);
  EXPECT_EQ(ka->size, 1);
  EXPECT_TRUE(lines().empty());
}

TEST_F(Declare, AcceptsAnOptionalClassAndATypeWithSpaceAround) {
  const struct {
    const char* name;
    const char* declaration;
    bool full;
    RiTokenType type;
    RiTokenClass tokenClass;
    int32_t size;
  } cases[] = {
      {"decl_float", "float", false, TypeFloat, ClassUniform, 1},
      {"decl_uniform_color", "uniform color", false, TypeColor, ClassUniform, 1},
      {"decl_spaced_point", " \t varying \n  point \r\f\v", false, TypePoint, ClassVarying, 1},
      {"decl_string", "string", false, TypeString, ClassUniform, 1},
      // Integers and strings hold one value per primitive whatever is declared.
      {"decl_varying_integer", "varying integer", false, TypeInteger, ClassUniform, 1},
      {"decl_varying_string", "varying string", false, TypeString, ClassUniform, 1},
      {"decl_full_vertex", "vertex point", true, TypePoint, ClassVertex, 1},
      {"decl_full_sized", " varying float [ 3 ] ", true, TypeFloat, ClassVarying, 3},
      {"decl_full_tight", "float[12]", true, TypeFloat, ClassUniform, 12},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.declaration);
    const Token* t = c.full ? declare(c.name, 0x7500, c.declaration, 1)
                            : record(riDeclare(c.name, c.declaration));
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t, find(c.name));
    EXPECT_EQ(t->type, c.type);
    EXPECT_EQ(t->tokenClass, c.tokenClass);
    EXPECT_EQ(t->size, c.size);
  }
  EXPECT_TRUE(lines().empty());
}

TEST_F(Declare, CodeOfANewNameComesFromTheSceneLibrary) {
  const Token* t = record(riDeclare("decl_quarked", "float"));
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->code, static_cast<uint16_t>(_zelQuark("decl_quarked")));
}

// RiDeclare takes the restricted grammar; the full one, used by the
// reader's own declarations, also admits "vertex" and an array size.
TEST_F(Declare, BadDeclarationsAreReportedAndLeaveTheDictionaryAlone) {
  const struct {
    const char* name;
    const char* declaration;  // null: the text "null"
    bool full;
  } bad[] = {
      {"decl_bad", "vertex point", false},
      {"decl_bad", "float[3]", false},
      {"decl_bad", "Uniform float", false},
      {"decl_bad", "uniform", false},
      {"decl_bad", "float x", false},
      {"decl_bad", "", false},
      {"decl_bad", "varying varying float", false},
      {"decl_bad", "float3", false},
      {"decl_bad", "bad", false},
      {"P", "float x", false},
      {"decl_bad", nullptr, false},
      {"decl_bad", "float[]", true},
      {"decl_bad", "float[3", true},
      {"decl_bad", "float[3] x", true},
      {"decl_bad", "float[x]", true},
      {"decl_bad", "vertex", true},
  };
  for (const auto& c : bad) {
    const std::string text = c.declaration ? c.declaration : "null";
    SCOPED_TRACE(text);
    lines().clear();
    RiLastError = 0;
    const Token* before = find(c.name);
    const Token* got = c.full          ? declare(c.name, 0x7503, c.declaration, 1)
                       : c.declaration ? record(riDeclare(c.name, c.declaration))
                                       : declare(c.name, 0x7400, nullptr, 0);
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(find(c.name), before);
    EXPECT_EQ(lines(), std::vector<std::string>{
                           "error: Declare type syntax error. bad declaration \"" + text + "\""});
    EXPECT_EQ(RiLastError, 47);
    EXPECT_EQ(Error::fFuncName, nullptr);  // RiDeclare names no call
  }
  EXPECT_EQ(record(RI_P)->type, TypePoint);
}

TEST_F(Declare, TypedFormGivesATypedTokenAClass) {
  EXPECT_EQ(declare("decl_typed_noclass", 1, TypeFloat, ClassNone, 1)->tokenClass, ClassUniform);
  EXPECT_EQ(declare("decl_typed_keyword", 2, TypeNone, ClassNone, 1)->tokenClass, ClassNone);
  EXPECT_EQ(declare("decl_typed_vint", 3, TypeInteger, ClassVertex, 1)->tokenClass, ClassUniform);
  EXPECT_EQ(declare("decl_typed_vcolor", 4, TypeColor, ClassVertex, 1)->tokenClass, ClassVertex);
}

class RiDeclareQuark : public RiSceneTest {
 protected:
  std::set<std::string> quarkedNames() {
    std::set<std::string> names;
    for (const auto& [code, name] : readScene().quarks) names.insert(name);
    return names;
  }
};

// The library hears of every name given to RiDeclare, whatever the dictionary
// then does with the declaration.
TEST_F(RiDeclareQuark, AsksTheLibraryForAFreshNameAlreadyDeclaredOrBadlyDeclared) {
  declare("quark_known", 0x7600, TypeFloat, ClassUniform, 1);
  EXPECT_EQ(RiDeclare(text("quark_known"), text("color")),
            reinterpret_cast<RtToken>(find("quark_known")));
  EXPECT_EQ(RiDeclare(text("quark_bad"), text("float[3]")), nullptr);
  EXPECT_NE(RiDeclare(text("quark_good"), text("point")), nullptr);
  EXPECT_EQ(find("quark_known")->code, 0x7600);

  std::set<std::string> names = quarkedNames();
  EXPECT_TRUE(names.count("quark_known"));
  EXPECT_TRUE(names.count("quark_bad"));
  EXPECT_TRUE(names.count("quark_good"));
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(messages()[0], "error: Declare type syntax error. bad declaration \"float[3]\"");
}

}  // namespace
