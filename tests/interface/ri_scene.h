// A fixture for tests of the Ri calls: each test writes a scene file of its
// own through the scene library and reads it back with the ZEL reader.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "interface/ri.h"
#include "tests/support/describe.h"
#include "tests/support/scratchdir.h"
#include "zel/reader/zelreader.h"

class RiSceneTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Ends the scene file and reads it back.
  ZelFile readScene();
  // The records written, Quark records left out.
  std::vector<ZelRecord> operations();
  // The same, each as its name and arguments, as describe gives them.
  std::vector<std::string> lines();
  // The interface's report lines so far.
  const std::vector<std::string>& messages() const;

 private:
  scratchdir dir_;
  std::string path_;
};

// A name for an RtToken or char* argument; the calls do not write to it.
inline char* text(const char* word) {
  return const_cast<char*>(word);
}
