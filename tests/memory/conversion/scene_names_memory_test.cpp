// The scene library gives names their codes also outside any named Ri call
// (RiDeclare asks before it declares), where a failed allocation leaves the
// library as an exception. Whichever allocation fails, every name keeps one
// code of its own.
#include <gtest/gtest.h>

#include <map>
#include <new>
#include <string>

#include "interface/scene/zel.h"
#include "tests/memory/conversion/walkallocator.h"

namespace {

TEST(SceneNamesMemory, EveryAllocationWhileANameGetsItsCodeMayFail) {
  std::map<int32_t, std::string> owners;  // code -> name
  auto codeOf = [&owners](const std::string& name) {
    const int32_t code = _zelQuark(name.c_str());
    failingallocator::Pause pause;
    auto [it, fresh] = owners.emplace(code, name);
    EXPECT_EQ(it->second, name) << "code " << code << " given to two names";
    return code;
  };
  int failures = 0;
  for (uint64_t n = 1;; ++n) {
    const std::string name = "memwalk name " + std::to_string(n);
    walkallocator::arm(n);
    try {
      _zelQuark(name.c_str());
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    failingallocator::disarm();
    if (walkallocator::outcome() == walkallocator::Outcome::none) break;
    // The name that met the failure, asked again, and a new one.
    EXPECT_NE(codeOf(name), 0);
    EXPECT_NE(codeOf("memwalk other " + std::to_string(n)), 0);
    if (HasFailure()) break;
  }
  EXPECT_GT(failures, 0);
}

}  // namespace
