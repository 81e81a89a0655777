#include "frontend/gzipbytesource.h"

#include <gtest/gtest.h>

#include <string>

#include "frontend/inputfile.h"
#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"

namespace {

std::string readAll(bytesource& in) {
  std::string text;
  unsigned char c;
  while (!in.eof() && in.get(c)) text.push_back(static_cast<char>(c));
  return text;
}

// Text of many lines, long enough to span several blocks of every buffer.
std::string manyLines(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += "Sphere " + std::to_string(i) + " -1 1 360\n";
  return text;
}

struct decompressed {
  std::string text;
  bool failed;
  std::string problem;
};

decompressed decompress(const std::string& fileBytes) {
  scratchdir dir;
  inputfile file;
  EXPECT_TRUE(file.open(dir.write("in.gz", fileBytes).string()));
  gzipbytesource gz(file);
  decompressed d;
  d.text = readAll(gz);
  d.failed = gz.failed();
  d.problem = gz.problem();
  return d;
}

}  // namespace

TEST(GzipByteSource, RecognisesOnlyTheGzipSignature) {
  const unsigned char gz[] = {0x1F, 0x8B}, swapped[] = {0x8B, 0x1F}, text[] = {'#', '#'};
  EXPECT_TRUE(gzipbytesource::recognises(gz, 2));
  EXPECT_FALSE(gzipbytesource::recognises(gz, 1));
  EXPECT_FALSE(gzipbytesource::recognises(swapped, 2));
  EXPECT_FALSE(gzipbytesource::recognises(text, 2));
}

// One member of several blocks, and members concatenated one after another.
TEST(GzipByteSource, DeliversTheDecompressedBytes) {
  const std::string big = manyLines(40000);
  for (auto [gz, text] :
       {std::pair{gzipped(big), big},
        {gzipped("WorldBegin\n") + gzipped("WorldEnd\n"), "WorldBegin\nWorldEnd\n"}}) {
    decompressed d = decompress(gz);
    EXPECT_EQ(d.text, text);
    EXPECT_FALSE(d.failed);
  }
}

TEST(GzipByteSource, KeepsWhatCameBeforeATruncation) {
  std::string text = manyLines(40000);
  std::string gz = gzipped(text);
  decompressed d = decompress(gz.substr(0, gz.size() / 2));
  EXPECT_TRUE(d.failed);
  EXPECT_EQ(d.problem, "the compressed data ends early");
  EXPECT_GT(d.text.size(), 0u);
  EXPECT_EQ(d.text, text.substr(0, d.text.size()));
}

TEST(GzipByteSource, FailsOnCorruptData) {
  std::string gz = gzipped(manyLines(100));
  for (size_t i = 12; i < 40; ++i) gz[i] = static_cast<char>(0xFF);
  decompressed d = decompress(gz);
  EXPECT_TRUE(d.failed);
  EXPECT_EQ(d.problem.rfind("the compressed data is corrupt (", 0), 0u) << d.problem;
}

TEST(InputFile, ServesPeekedBytesFirstAndCountsWhatWasRead) {
  scratchdir dir;
  inputfile file;
  ASSERT_TRUE(file.open(dir.write("in.rib", "WorldBegin\n").string()));
  EXPECT_EQ(file.size(), 11);
  size_t n = 0;
  const unsigned char* head = file.peek(2, n);
  ASSERT_EQ(n, 2u);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(head), 2), "Wo");
  EXPECT_EQ(file.consumed(), 0u);
  plainbytesource plain(file);
  EXPECT_EQ(readAll(plain), "WorldBegin\n");
  EXPECT_EQ(file.consumed(), 11u);
  EXPECT_FALSE(plain.failed());
}

TEST(InputFile, TellsWhyItCannotOpen) {
  scratchdir dir;
  inputfile missing, directory;
  EXPECT_FALSE(missing.open(dir.file("none.rib").string()));
  EXPECT_EQ(missing.problem(), "No such file or directory");
  EXPECT_FALSE(directory.open(dir.path().string()));
  EXPECT_EQ(directory.problem(), "Is a directory");
}
