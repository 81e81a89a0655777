#include <gtest/gtest.h>

#include <string>

#include "error_test_sink.h"
#include "interface/scene/zel.h"
#include "interface/token.h"

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

struct GoodDeclaration {
  const char* name;
  const char* declaration;
  RiTokenType type;
  RiTokenClass tokenClass;
};

TEST_F(Declare, AcceptsAnOptionalClassAndATypeWithSpaceAround) {
  const GoodDeclaration cases[] = {
      {"decl_float", "float", TypeFloat, ClassUniform},
      {"decl_uniform_color", "uniform color", TypeColor, ClassUniform},
      {"decl_spaced_point", " \t varying \n  point \r\f\v", TypePoint, ClassVarying},
      {"decl_string", "string", TypeString, ClassUniform},
      // Integers and strings hold one value per primitive whatever is declared.
      {"decl_varying_integer", "varying integer", TypeInteger, ClassUniform},
      {"decl_varying_string", "varying string", TypeString, ClassUniform},
  };
  for (const GoodDeclaration& c : cases) {
    SCOPED_TRACE(c.declaration);
    const Token* t = record(riDeclare(c.name, c.declaration));
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t, find(c.name));
    EXPECT_EQ(t->type, c.type);
    EXPECT_EQ(t->tokenClass, c.tokenClass);
    EXPECT_EQ(t->size, 1);
  }
  EXPECT_TRUE(lines().empty());
}

TEST_F(Declare, CodeOfANewNameComesFromTheSceneLibrary) {
  const Token* t = record(riDeclare("decl_quarked", "float"));
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->code, static_cast<uint16_t>(_zelQuark("decl_quarked")));
}

TEST_F(Declare, BadDeclarationsAreReportedAndDeclareNothing) {
  const char* const bad[] = {"vertex point", "float[3]", "Uniform float",         "uniform",
                             "float x",      "",         "varying varying float", "float3"};
  int i = 0;
  for (const char* declaration : bad) {
    SCOPED_TRACE(declaration);
    lines().clear();
    std::string name = "decl_bad" + std::to_string(i++);
    EXPECT_EQ(riDeclare(name, declaration), nullptr);
    EXPECT_EQ(find(name.c_str()), nullptr);
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0], std::string("error: Declare type syntax error. bad declaration \"") +
                              declaration + "\"");
    EXPECT_EQ(RiLastError, 47);
  }
}

TEST_F(Declare, BadDeclarationOfAKnownNameLeavesItsRecord) {
  EXPECT_EQ(riDeclare("P", "float x"), nullptr);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0], "error: Declare type syntax error. bad declaration \"float x\"");
  EXPECT_EQ(record(RI_P)->type, TypePoint);
  EXPECT_EQ(find("P"), record(RI_P));
}

TEST_F(Declare, RiDeclareNamesNoCall) {
  EXPECT_EQ(riDeclare("decl_unnamed", "bad"), nullptr);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0], "error: Declare type syntax error. bad declaration \"bad\"");
  EXPECT_EQ(Error::fFuncName, nullptr);
}

TEST_F(Declare, NullDeclarationIsReportedAsTheTextNull) {
  EXPECT_EQ(declare("decl_nulltext", 0x7400, nullptr, 0), nullptr);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0], "error: Declare type syntax error. bad declaration \"null\"");
  EXPECT_EQ(find("decl_nulltext"), nullptr);
}

TEST_F(Declare, FullGrammarAdmitsVertexAndAnArraySize) {
  const Token* v = declare("decl_full_vertex", 0x7500, "vertex point", 1);
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(v->tokenClass, ClassVertex);
  EXPECT_EQ(v->type, TypePoint);

  const Token* sized = declare("decl_full_sized", 0x7501, " varying float [ 3 ] ", 1);
  ASSERT_NE(sized, nullptr);
  EXPECT_EQ(sized->tokenClass, ClassVarying);
  EXPECT_EQ(sized->size, 3);
  EXPECT_EQ(declare("decl_full_tight", 0x7502, "float[12]", 1)->size, 12);
  EXPECT_TRUE(lines().empty());

  const char* const bad[] = {"float[]", "float[3", "float[3] x", "float[x]", "vertex"};
  for (const char* declaration : bad) {
    SCOPED_TRACE(declaration);
    lines().clear();
    EXPECT_EQ(declare("decl_full_bad", 0x7503, declaration, 1), nullptr);
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0], std::string("error: Declare type syntax error. bad declaration \"") +
                              declaration + "\"");
  }
}

TEST_F(Declare, TypedFormGivesATypedTokenAClass) {
  EXPECT_EQ(declare("decl_typed_noclass", 1, TypeFloat, ClassNone, 1)->tokenClass, ClassUniform);
  EXPECT_EQ(declare("decl_typed_keyword", 2, TypeNone, ClassNone, 1)->tokenClass, ClassNone);
  EXPECT_EQ(declare("decl_typed_vint", 3, TypeInteger, ClassVertex, 1)->tokenClass, ClassUniform);
  EXPECT_EQ(declare("decl_typed_vcolor", 4, TypeColor, ClassVertex, 1)->tokenClass, ClassVertex);
}

}  // namespace
