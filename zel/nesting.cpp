#include "zel/nesting.h"

#include <algorithm>
#include <limits>

namespace zel {

namespace {

const char* beginName(Block block) {
  switch (block) {
    case Block::Frame:
      return "FrameBegin";
    case Block::Scene:
      return "SceneBegin";
    case Block::Attribute:
      return "AttributePush";
    case Block::Matrix:
      return "MatrixPush";
    case Block::Object:
      return "ObjectBegin";
  }
  return "";
}

const char* endName(Block block) {
  switch (block) {
    case Block::Frame:
      return "FrameEnd";
    case Block::Scene:
      return "SceneEnd";
    case Block::Attribute:
      return "AttributePop";
    case Block::Matrix:
      return "MatrixPop";
    case Block::Object:
      return "ObjectEnd";
  }
  return "";
}

std::string withArticle(const char* name) {
  return (name[0] == 'A' || name[0] == 'O' ? "an " : "a ") + std::string(name);
}

// Handles grow by one per light or object; at the top they stay there rather
// than wrap to a value that is not positive.
int32_t nextHandle(int32_t& last) {
  if (last < std::numeric_limits<int32_t>::max()) ++last;
  return last;
}

}  // namespace

void Nesting::push(Block block, int32_t object) {
  if (untracked_ > 0 || stack_.size() == kTrackedDepth) {
    ++untracked_;
    return;
  }
  // An allocation that fails here leaves through the caller as an exception
  // (during parsing, outside a named call); the stack is taken back if the
  // object list cannot grow, so that the two agree for the next pop.
  stack_.push_back(block);
  if (block == Block::Object) {
    try {
      openObjects_.push_back(object);
    } catch (...) {
      stack_.pop_back();
      throw;
    }
  }
  ++open_[static_cast<size_t>(block)];
}

void Nesting::pop() {
  Block block = stack_.back();
  stack_.pop_back();
  --open_[static_cast<size_t>(block)];
  if (block == Block::Object) openObjects_.pop_back();
}

std::string Nesting::begin(Block block) {
  std::string fault;
  if (block == Block::Frame && isOpen(Block::Frame))
    fault = "FrameBegin inside an open frame";
  else if (block == Block::Frame && isOpen(Block::Scene))
    fault = "FrameBegin inside an open scene";
  else if (block == Block::Scene && isOpen(Block::Scene))
    fault = "SceneBegin inside an open scene";
  push(block, 0);
  return fault;
}

std::string Nesting::beginObject(int32_t& handle) {
  std::string fault;
  if (!openObjects_.empty())
    fault = "ObjectBegin inside the definition of object " + std::to_string(openObjects_.back());
  handle = nextHandle(lastObject_);
  push(Block::Object, handle);
  return fault;
}

std::string Nesting::end(Block block) {
  if (untracked_ > 0) {
    --untracked_;
    return {};
  }
  if (!isOpen(block)) return std::string(endName(block)) + " with no " + beginName(block) + " open";
  std::string fault;
  if (stack_.back() != block)
    fault = std::string(endName(block)) + " while " + withArticle(beginName(stack_.back())) +
            " is open";
  // Each level is popped once, so the search costs no more than the pushes.
  while (stack_.back() != block) pop();
  pop();
  return fault;
}

std::string Nesting::callObject(intptr_t handle) const {
  if (handle < 1 || handle > lastObject_)
    return "ObjectCall of unknown object " + std::to_string(handle);
  if (std::binary_search(openObjects_.begin(), openObjects_.end(), handle))
    return "ObjectCall of object " + std::to_string(handle) + " inside its own definition";
  return {};
}

int32_t Nesting::newLight() {
  return nextHandle(lastLight_);
}

std::string Nesting::switchLight(intptr_t handle) const {
  // Area lights reach the library as handle 0 (their call returns no light),
  // so switching 0 is a file's ordinary Illuminate of an area light.
  if (handle == 0) return {};
  if (handle < 0 || handle > lastLight_)
    return "LightSwitch of unknown light " + std::to_string(handle);
  return {};
}

void Nesting::clear() {
  stack_.clear();
  stack_.shrink_to_fit();
  openObjects_.clear();
  openObjects_.shrink_to_fit();
  for (size_t& count : open_) count = 0;
  untracked_ = 0;
  lastObject_ = 0;
  lastLight_ = 0;
}

}  // namespace zel
