#include <gtest/gtest.h>

#include <set>
#include <string>

#include "interface/token.h"
#include "tests/interface/ri_scene.h"

namespace {

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
