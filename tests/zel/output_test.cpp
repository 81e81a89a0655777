// The file holds whole lines at every point; write failures are told once
// and stay visible; the other destinations.
#include "tests/zel/zelfixture.h"

namespace {

void someOperations(int count) {
  for (int i = 0; i < count; ++i) {
    _zelAttributePush();
    _zelTranslate(static_cast<float>(i), 0.5f, -1e-7f);
    _zelSphereV(1, -1, 1, 360, 0, nullptr, nullptr);
    _zelAttributePop();
  }
}

// Whether the file, as it is on disk now, ends on a line end.
bool endsOnALine(const std::string& path, size_t size) {
  if (size == 0) return true;
  std::ifstream in(path, std::ios::binary);
  in.seekg(static_cast<std::streamoff>(size - 1));
  return in.get() == '\n';
}

TEST_F(ZelTest, FileEndsOnAWholeLineWheneverTheBufferIsHandedOn) {
  size_t drains = 0;
  size_t size = 0;
  for (int round = 0; round < 200; ++round) {
    someOperations(50);
    size_t now = std::filesystem::file_size(path_);
    ASSERT_TRUE(endsOnALine(path_, now)) << "after round " << round;
    if (now != size) ++drains;
    size = now;
  }
  EXPECT_GT(drains, 5u) << "the bounded buffer should have been handed on along the way";
}

TEST_F(ZelTest, FlushMidWayLeavesEveryOperationSoFarOnDisk) {
  someOperations(1000);
  _zelFrameBegin();  // left open, as a cancelled conversion leaves it
  ASSERT_TRUE(zelFlush());
  std::vector<ZelRecord> read = readZelFile(path_).records;
  ASSERT_EQ(read.size(), 4001u);
  EXPECT_EQ(read.back().op, "FrameBegin");
  someOperations(1);
  ASSERT_TRUE(zelClose());
  EXPECT_EQ(readZelFile(path_).records.size(), 4005u);
}

// A failure is told once and stays, whether the buffer met it on the way or
// only the flush of a small file does.
TEST_F(ZelTest, WriteFailureIsToldOnceAndStays) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  const std::string expected =
      "ZEL severe error: cannot write the scene file \"/dev/full\": No space left on device";
  _zelOutputFile(kZelSceneFile, "/dev/full");
  _zelFrameBegin();
  EXPECT_FALSE(zelFlush());
  EXPECT_EQ(gReportLines, std::vector<std::string>{expected});
  gReportLines.clear();
  _zelOutputFile(kZelSceneFile, "/dev/full");
  EXPECT_FALSE(zelWriteFailed()) << "opening succeeds; the space runs out on writing";
  someOperations(2000);
  EXPECT_TRUE(zelWriteFailed());
  EXPECT_EQ(zelWriteError(), expected);
  someOperations(2000);
  EXPECT_FALSE(zelFlush());
  EXPECT_FALSE(zelClose());
  EXPECT_EQ(gReportLines, std::vector<std::string>{expected});
  EXPECT_TRUE(zelWriteFailed()) << "still visible after the close";
}

TEST_F(ZelTest, UncreatableFileIsToldAndTheNextOutputClearsIt) {
  const std::pair<const char*, std::string> cases[] = {
      {"/nonexistent-dir/scene.zel",
       "ZEL severe error: cannot create the scene file \"/nonexistent-dir/scene.zel\": No such "
       "file or directory"},
      {nullptr, "ZEL severe error: no name given for the scene file"}};
  for (const auto& [name, expected] : cases) {
    gReportLines.clear();
    _zelOutputFile(kZelSceneFile, name);
    EXPECT_EQ(gReportLines, std::vector<std::string>{expected});
    EXPECT_TRUE(zelWriteFailed());
    EXPECT_EQ(zelWriteError(), expected);
    _zelFrameBegin();
    _zelOutputFile(kZelSceneFile, path_.c_str());
    EXPECT_FALSE(zelWriteFailed());
    EXPECT_STREQ(zelWriteError(), "");
  }
}

TEST_F(ZelTest, StreamGetsTheWholeFileAndStaysOpen) {
  FILE* stream = std::tmpfile();
  ASSERT_NE(stream, nullptr);
  zelOutputToStream(stream);
  _zelFrameBegin();
  _zelFrameEnd();
  ASSERT_TRUE(zelClose());
  ASSERT_EQ(std::fseek(stream, 0, SEEK_SET), 0) << "the library must not have closed it";
  std::string text(4096, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), stream));
  std::fclose(stream);
  ZelFile file = readZelString(text);
  ASSERT_EQ(file.records.size(), 2u);
  EXPECT_EQ(file.records[1].op, "FrameEnd");
}

// Both write nothing more; the checks go on and parameter info is used up.
TEST_F(ZelTest, DiscardAndSkipKeepTheChecks) {
  for (void (*stop)() : {zelDiscardOutput, zelSkipOutput}) {
    gReportLines.clear();
    _zelOutputFile(kZelSceneFile, path_.c_str());
    _zelFrameBegin();
    stop();
    someOperations(3000);
    _zelAttributePop();
    float kd = 0.5f;
    ZelParam info = {"Kd", 0x000D, 1, 1, 1};
    uint16_t code = 0x000D;
    RtPointer value = &kd;
    _zelParameterInfo(1, &info);
    _zelSphereV(1, -1, 1, 360, 1, &code, &value);
    _zelSphereV(1, -1, 1, 360, 1, &code, &value);
    EXPECT_TRUE(zelClose());
    EXPECT_FALSE(zelWriteFailed());
    EXPECT_EQ(gReportLines,
              (std::vector<std::string>{
                  "ZEL error: AttributePop with no AttributePush open",
                  "ZEL error: SphereV: no parameter info came before its parameter list"}));
    EXPECT_EQ(readZelFile(path_).records.size(), 1u) << "the old file ends where output moved on";
  }
}

TEST_F(ZelTest, OutputAfterSkippingStartsWithHeaderAndQuarks) {
  zelSkipOutput();
  const uint16_t name = static_cast<uint16_t>(_zelQuark("skipped"));
  _zelSurfaceV(name, 0, nullptr, nullptr);
  _zelOutputFile(kZelSceneFile, path_.c_str());
  _zelSurfaceV(name, 0, nullptr, nullptr);
  ASSERT_TRUE(zelClose());
  std::vector<ZelRecord> read = records();
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].op, "Quark") << "a name told only while skipping is owed to the new file";
  EXPECT_EQ(read[1].op, "SurfaceV");
}

TEST_F(ZelTest, OneHugeRecordIsWrittenWhole) {
  writePolygon(std::vector<float>(3 * 50000, 0.125f));
  _zelFrameBegin();
  std::vector<ZelRecord> read = records();
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].params.at(0).values.items().size(), 150000u);
}

}  // namespace
