// Follows the records of a scene file as a renderer would: the transform
// stack, attribute scopes, object definitions and instances, the camera
// before the scene begins, and the geometry and lights within it.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "preview/builder.h"
#include "preview/scene.h"

class SceneWalk {
 public:
  SceneWalk(Scene& scene, size_t maxTriangles, std::optional<StillPicture> still);
  // Takes the next record; false once the first scene has ended.
  bool take(const ZelRecord& r);
  // Says what the walk could not draw, once the file has been read.
  void finish();

 private:
  struct Attributes {
    Mat4 transform;
    Vec3 color;
    Basis u, v;
    std::vector<uint32_t> lights;
  };

  bool transform(const ZelRecord& r);
  bool nesting(const ZelRecord& r);
  bool attribute(const ZelRecord& r);
  void light(const ZelRecord& r);
  void lightSwitch(const ZelRecord& r);
  // The current lights, as one of the scene's sets.
  void useLights(std::vector<uint32_t> lights);
  Attributes saved() const;
  void restore(const Attributes& a);
  void call(const ZelRecord& r);
  void note(const ZelRecord& r, const std::string& what);
  // The camera is whole once the scene begins: what the builder needs of it.
  void aim();

  Scene& scene_;
  Builder builder_;
  std::optional<StillPicture> still_;
  std::vector<Attributes> attributes_;
  std::vector<Mat4> matrices_;
  std::map<int64_t, std::vector<ZelRecord>> objects_;
  std::vector<ZelRecord>* defining_ = nullptr;
  std::vector<ZelRecord> dropped_;
  int32_t calls_ = 0;      // depth of ObjectCall within ObjectCall
  uint64_t replayed_ = 0;  // records drawn again by ObjectCall
  uint64_t maxReplayed_;
  bool inScene_ = false;
  bool ended_ = false;
  std::set<std::string> noted_;
  std::vector<uint32_t> lights_;
  std::map<std::vector<uint32_t>, uint32_t> setIndex_{{{}, 0}};
};
