// The library streams: the heap it holds does not grow with the number of
// operations, and one huge record's buffer is given back once written.
//
// This executable counts live heap bytes by replacing operator new and
// delete; the counts are read only around the library's own calls.
#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/zel/zelfixture.h"

namespace {
std::atomic<int64_t> gLiveBytes{0};
}

// The nothrow form is replaced too: libraries built without the sanitizers
// (the JSON parser) allocate with it, and under AddressSanitizer the
// sanitizer's own would otherwise hand out blocks that reach the free below.
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  void* block = std::malloc(size ? size : 1);
  if (block != nullptr) gLiveBytes += static_cast<int64_t>(malloc_usable_size(block));
  return block;
}

void* operator new(size_t size) {
  void* block = operator new(size, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

// The replaced new above takes its blocks from malloc, so free is their match.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  gLiveBytes -= static_cast<int64_t>(malloc_usable_size(block));
  std::free(block);
}

void operator delete(void* block, size_t) noexcept {
  operator delete(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept {
  operator delete(block);
}

namespace {

// A bit of everything that keeps state: blocks, handles, names, parameter
// lists with their info, comments.
void sceneRound(int round) {
  static const std::vector<float> color = {1, 0.5f, 0.25f};
  static const char* texture[] = {"grain.tex"};
  ZelParam infos[] = {{"Cs", 0x0006, 5, 2, 3}, {"texturename", 0xFF09, 3, 1, 1}};
  uint16_t codes[] = {0x0006, 0xFF09};
  RtPointer values[] = {const_cast<float*>(color.data()), texture};
  _zelFrameBegin();
  _zelSceneBegin();
  RtLightHandle light =
      _zelLightSourceV(static_cast<uint16_t>(_zelQuark("lamp")), 0, nullptr, nullptr);
  _zelLightSwitch(light, 1);
  _zelAttributePush();
  _zelComment("round %d", round);
  _zelParameterInfo(2, infos);
  _zelSphereV(1, -1, 1, 360, 2, codes, values);
  RtObjectHandle object = _zelObjectBegin();
  _zelObjectEnd();
  _zelObjectCall(object);
  _zelAttributePop();
  _zelSceneEnd();
  _zelFrameEnd();
}

TEST_F(ZelTest, HeapStaysFlatOverManyOperations) {
  zelDiscardOutput();
  for (int round = 0; round < 2000; ++round) sceneRound(round);
  zelFlush();
  int64_t before = gLiveBytes;
  for (int round = 0; round < 100000; ++round) sceneRound(round);
  zelFlush();
  EXPECT_LT(gLiveBytes - before, 4096) << "1.3 million operations later";
  EXPECT_TRUE(gReportLines.empty());
}

TEST_F(ZelTest, HugeRecordBufferIsGivenBack) {
  zelDiscardOutput();
  for (int round = 0; round < 100; ++round) sceneRound(round);
  zelFlush();
  int64_t before = gLiveBytes;
  writePolygon(std::vector<float>(3 * 100000, 1.0f / 3.0f));
  zelFlush();
  EXPECT_LT(gLiveBytes - before, 4096);
}

}  // namespace
