// Begin and end of frames, scenes, attribute and matrix blocks, and objects.
// Every operation is recorded, a faulty one too; the fault is reported after.
#include <cstdint>

#include "interface/scene/zel.h"
#include "zel/library.h"
#include "zel/messages.h"
#include "zel/record.h"

using namespace zel;

namespace {

void beginBlock(const char* op, Block block) {
  std::string fault = library().nesting.begin(block);
  Record(op).end();
  reportFault(kNesting, fault);
}

void endBlock(const char* op, Block block) {
  std::string fault = library().nesting.end(block);
  Record(op).end();
  reportFault(kNesting, fault);
}

// Handles are small integers carried in the interface's pointer types.
intptr_t handleNumber(RtPointer handle) {
  return reinterpret_cast<intptr_t>(handle);
}
RtPointer handlePointer(int32_t number) {
  return reinterpret_cast<RtPointer>(intptr_t{number});
}

}  // namespace

void _zelFrameBegin() {
  beginBlock("FrameBegin", Block::Frame);
}
void _zelFrameEnd() {
  endBlock("FrameEnd", Block::Frame);
}
void _zelSceneBegin() {
  beginBlock("SceneBegin", Block::Scene);
}
void _zelSceneEnd() {
  endBlock("SceneEnd", Block::Scene);
}
void _zelAttributePush() {
  beginBlock("AttributePush", Block::Attribute);
}
void _zelAttributePop() {
  endBlock("AttributePop", Block::Attribute);
}
void _zelMatrixPush() {
  beginBlock("MatrixPush", Block::Matrix);
}
void _zelMatrixPop() {
  endBlock("MatrixPop", Block::Matrix);
}

RtObjectHandle _zelObjectBegin() {
  int32_t handle = 0;
  std::string fault = library().nesting.beginObject(handle);
  Record("ObjectBegin").handle(handle).end();
  reportFault(kNesting, fault);
  return handlePointer(handle);
}

void _zelObjectEnd() {
  endBlock("ObjectEnd", Block::Object);
}

void _zelObjectCall(RtObjectHandle handle) {
  intptr_t number = handleNumber(handle);
  std::string fault = library().nesting.callObject(number);
  Record("ObjectCall").i(number).end();
  reportFault(kBadHandle, fault);
}

RtLightHandle _zelLightSourceV(uint16_t name, int32_t n, const uint16_t* codes,
                               const RtPointer* values) {
  int32_t handle = library().nesting.newLight();
  payQuark(name);
  Record("LightSourceV", {n, codes, values}).i(name).handle(handle).end();
  return handlePointer(handle);
}

void _zelLightSwitch(RtLightHandle light, int16_t onoff) {
  intptr_t number = handleNumber(light);
  std::string fault = library().nesting.switchLight(number);
  Record("LightSwitch").i(number).i(onoff).end();
  reportFault(kBadHandle, fault);
}
