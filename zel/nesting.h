// The scene's block structure and the handles given so far, and the checks on
// them. Each check returns the text of the fault, or an empty string; the
// caller records the operation before it reports.
//
// An end closes every block opened inside the one it ends, so one missing
// AttributePop is reported once, not again at each later end.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zel {

enum class Block : uint8_t { Frame, Scene, Attribute, Matrix, Object };

class Nesting {
 public:
  // Deeper blocks are counted but not told apart, so that memory stays
  // bounded whatever the input does.
  static constexpr size_t kTrackedDepth = 1 << 16;

  std::string begin(Block block);
  std::string end(Block block);

  // ObjectBegin: the check, and the new object's handle in `handle`.
  std::string beginObject(int32_t& handle);
  std::string callObject(intptr_t handle) const;
  int32_t newLight();
  std::string switchLight(intptr_t handle) const;

  void clear();  // a new scene file: nothing open, no handles

 private:
  bool isOpen(Block block) const { return open_[static_cast<size_t>(block)] > 0; }
  void push(Block block, int32_t object);
  void pop();

  // With the counts and the object list every check takes constant or
  // logarithmic time, however deep the input nests.
  std::vector<Block> stack_;
  size_t open_[5] = {};
  std::vector<int32_t> openObjects_;  // ascending, as handles are given in order
  size_t untracked_ = 0;              // levels above kTrackedDepth
  int32_t lastObject_ = 0;
  int32_t lastLight_ = 0;
};

}  // namespace zel
