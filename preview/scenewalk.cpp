#include "preview/scenewalk.h"

#include <algorithm>
#include <string_view>

#include "preview/args.h"
#include "preview/recordpipe.h"
#include "preview/tessellate.h"

namespace {

constexpr int32_t kMaxCallDepth = 32;
// Instances of instances multiply: a few lines can call for billions of
// records. Past a quarter as many records as triangles allowed (4 M for the
// whole picture), further instances are not drawn.
constexpr uint64_t kTrianglesPerReplayed = 4;
constexpr int64_t kVDirection = 0x0801;

// Records that change nothing in the picture.
constexpr std::string_view kPassed[] = {"Quark",
                                        "SampleAdaptive",
                                        "SampleUniform",
                                        "SampleJitter",
                                        "Filter",
                                        "CustomFilter",
                                        "FilterWidth",
                                        "Hider",
                                        "ColorGain",
                                        "ColorGamma",
                                        "ColorJitter",
                                        "DepthJitter",
                                        "ColorQuantize",
                                        "DepthQuantize",
                                        "ColorSpace",
                                        "OutputFile",
                                        "OutputDisplay",
                                        "OutputSamples",
                                        "Tune",
                                        "Comment",
                                        "Opacity",
                                        "ShadingRate",
                                        "ShadingModel",
                                        "MatteObject",
                                        "Bound",
                                        "Flatness",
                                        "Orientation",
                                        "Backface",
                                        "ObjectName",
                                        "GroupName",
                                        "MarkSpace",
                                        "ProjectPoints",
                                        "SurfaceV",
                                        "AtmosphereV",
                                        "System",
                                        "ErrorHandler",
                                        "CustomErrorHandler",
                                        "ImageCrop",
                                        "ShadingNodeV",
                                        "LightNodeSwitch",
                                        "CameraV",
                                        "ClippingPlane",
                                        "NamedFilter",
                                        "NamedProjectionV",
                                        "NamedHiderV",
                                        "ScopedMarkSpace",
                                        "GeometricRepresentation",
                                        "NamedDisplayV",
                                        "DisplayChannelV",
                                        "MakeBrickMapV",
                                        "ResourceV",
                                        "ResourceBegin",
                                        "ResourceEnd",
                                        "Else",
                                        "IfEnd",
                                        "EditEnd",
                                        "EditWorldEnd",
                                        "EditAttributeEnd",
                                        "IfBegin",
                                        "ElseIf",
                                        "EditBeginV",
                                        "EditWorldBeginV",
                                        "EditAttributeBeginV",
                                        "CoordSysTransform"};

// Geometry that names something outside the file, and so has no shape here.
constexpr std::string_view kUndrawn[] = {"Procedural", "StandardProcedural", "Procedural2V"};

bool among(std::string_view op, const auto& list) {
  return std::find(std::begin(list), std::end(list), op) != std::end(list);
}

Mat4 matrixArg(const ZelRecord& r, size_t i) {
  std::vector<float> v = argFloats(r, i);
  if (v.size() != 16) failRecord(r, "a matrix needs 16 numbers, has " + std::to_string(v.size()));
  Mat4 m;
  std::copy(v.begin(), v.end(), m.m.begin());
  return m;
}

Vec3 vecArgs(const ZelRecord& r, size_t i) {
  return {argFloat(r, i), argFloat(r, i + 1), argFloat(r, i + 2)};
}

}  // namespace

SceneWalk::SceneWalk(Scene& scene, size_t maxTriangles, std::optional<StillPicture> still)
    : scene_(scene),
      builder_(scene.mesh, maxTriangles),
      still_(still),
      maxReplayed_(maxTriangles / kTrianglesPerReplayed) {}

bool SceneWalk::take(const ZelRecord& r) {
  if (ended_) return false;
  if (defining_) {
    if (r.op == "ObjectEnd") {
      defining_ = nullptr;
    } else {
      defining_->push_back(r);
    }
    return true;
  }
  if (nesting(r) || transform(r) || attribute(r)) return !ended_;
  if (!inScene_ && scene_.camera.take(r)) return true;
  if (Tessellator t = tessellatorFor(r.op)) {
    if (inScene_ && !builder_.full()) t(r, builder_);
  } else if (r.op == "LightSourceV") {
    light(r);
  } else if (r.op == "LightSwitch") {
    lightSwitch(r);
  } else if (r.op == "ObjectCall") {
    call(r);
  } else if (among(r.op, kUndrawn)) {
    note(r, "not drawn: its geometry is made outside the scene file");
  } else if (!among(r.op, kPassed) && !(!inScene_ && r.op.starts_with("View"))) {
    note(r, "unknown record, passed over");
  }
  return true;
}

bool SceneWalk::nesting(const ZelRecord& r) {
  if (r.op == "SceneBegin") {
    aim();
    inScene_ = true;
  } else if (r.op == "SceneEnd" || (r.op == "FrameEnd" && inScene_)) {
    ended_ = true;
  } else if (r.op == "AttributePush") {
    attributes_.push_back(saved());
  } else if (r.op == "AttributePop") {
    if (attributes_.empty()) return true;
    restore(attributes_.back());
    attributes_.pop_back();
  } else if (r.op == "MatrixPush") {
    matrices_.push_back(builder_.toWorld);
  } else if (r.op == "MatrixPop") {
    if (matrices_.empty()) return true;
    builder_.toWorld = matrices_.back();
    matrices_.pop_back();
  } else if (r.op == "ObjectBegin") {
    // A definition met while an instance is drawn must not replace the
    // records being drawn: it is read and dropped.
    defining_ = calls_ > 0 ? &dropped_ : &objects_[r.handle.value_or(0)];
    defining_->clear();
  } else if (r.op == "FrameBegin" || r.op == "FrameEnd" || r.op == "ObjectEnd") {
  } else {
    return false;
  }
  return true;
}

bool SceneWalk::transform(const ZelRecord& r) {
  Mat4& m = builder_.toWorld;
  if (r.op == "LoadIdentity") {
    m = Mat4{};
  } else if (r.op == "LoadMatrix") {
    m = matrixArg(r, 0);
  } else if (r.op == "MultMatrix") {
    m = matrixArg(r, 0) * m;
  } else if (r.op == "Translate") {
    Vec3 v = vecArgs(r, 0);
    m = Mat4::translate(v.x, v.y, v.z) * m;
  } else if (r.op == "Scale") {
    Vec3 v = vecArgs(r, 0);
    m = Mat4::scale(v.x, v.y, v.z) * m;
  } else if (r.op == "Rotate") {
    m = Mat4::rotate(argFloat(r, 0), vecArgs(r, 1)) * m;
  } else if (r.op == "Skew") {
    m = Mat4::skew(argFloat(r, 0), vecArgs(r, 1), vecArgs(r, 4)) * m;
  } else if (r.op == "Perspective") {
    m = Mat4::perspective(argFloat(r, 0)) * m;
  } else {
    return false;
  }
  return true;
}

bool SceneWalk::attribute(const ZelRecord& r) {
  if (r.op == "Color") {
    std::vector<float> c = argFloats(r, 0);
    if (c.size() < 3) failRecord(r, "a colour needs 3 numbers");
    builder_.color = {c[0], c[1], c[2]};
  } else if (r.op == "Basis" || r.op == "CustomBasis") {
    Basis basis;
    if (r.op == "Basis") {
      std::optional<Basis> standard = standardBasis(argInt(r, 1));
      if (!standard) failRecord(r, "unknown basis " + std::to_string(argInt(r, 1)));
      basis = *standard;
    } else {
      std::vector<float> m = argFloats(r, 1);
      if (m.size() != 16) failRecord(r, "a basis needs 16 numbers");
      std::copy(m.begin(), m.end(), basis.m.begin());
      basis.step = static_cast<int32_t>(std::clamp<int64_t>(argInt(r, 2), 1, 4));
    }
    (argInt(r, 0) == kVDirection ? builder_.vBasis : builder_.uBasis) = basis;
  } else {
    return false;
  }
  return true;
}

void SceneWalk::light(const ZelRecord& r) {
  Light l;
  if (!lightFrom(r, builder_.toWorld, l)) {
    note(r, "a light of its own shader, not lighting the picture");
    return;
  }
  l.handle = r.handle.value_or(0);
  scene_.lighting.lights.push_back(l);
  std::vector<uint32_t> on = lights_;
  on.push_back(static_cast<uint32_t>(scene_.lighting.lights.size() - 1));
  useLights(std::move(on));
}

void SceneWalk::lightSwitch(const ZelRecord& r) {
  int64_t handle = argInt(r, 0);
  const std::vector<Light>& all = scene_.lighting.lights;
  // The latest light with the handle: a handle given again names the new light.
  for (size_t i = all.size(); i-- > 0;) {
    if (all[i].handle != handle || handle == 0) continue;
    std::vector<uint32_t> on = lights_;
    std::erase(on, static_cast<uint32_t>(i));
    if (argInt(r, 1) != 0) on.push_back(static_cast<uint32_t>(i));
    useLights(std::move(on));
    return;
  }
}

void SceneWalk::useLights(std::vector<uint32_t> lights) {
  std::sort(lights.begin(), lights.end());
  auto [it, added] =
      setIndex_.try_emplace(lights, static_cast<uint32_t>(scene_.lighting.sets.size()));
  if (added) scene_.lighting.sets.push_back(lights);
  builder_.lightSet = it->second;
  lights_ = std::move(lights);
}

SceneWalk::Attributes SceneWalk::saved() const {
  return {builder_.toWorld, builder_.color, builder_.uBasis, builder_.vBasis, lights_};
}

void SceneWalk::restore(const Attributes& a) {
  builder_.toWorld = a.transform;
  builder_.color = a.color;
  builder_.uBasis = a.u;
  builder_.vBasis = a.v;
  useLights(a.lights);
}

void SceneWalk::call(const ZelRecord& r) {
  auto found = objects_.find(argInt(r, 0));
  if (found == objects_.end() || calls_ >= kMaxCallDepth || builder_.full()) return;
  // The call itself counts, so that objects which only call others are held too.
  uint64_t records = found->second.size() + 1;
  if (replayed_ + records > maxReplayed_) {
    note(r, "instances beyond " + std::to_string(maxReplayed_) + " records in all are not drawn");
    return;
  }
  replayed_ += records;
  ++calls_;
  // An instance is drawn in its own scope: what its records change ends with it.
  attributes_.push_back(saved());
  size_t depth = attributes_.size();
  for (const ZelRecord& inner : found->second) take(inner);
  attributes_.resize(depth);
  take(ZelRecord{r.line, "AttributePop", {}, false, {}, std::nullopt});
  --calls_;
}

void SceneWalk::aim() {
  scene_.camera.worldToCamera = builder_.toWorld;
  Mat4 cameraToWorld = builder_.toWorld.inverseAffine();
  builder_.eyeAtPoint = scene_.camera.perspective;
  builder_.eye = builder_.eyeAtPoint ? cameraToWorld.point({0, 0, 0})
                                     : normalized(cameraToWorld.direction({0, 0, -1}));
  builder_.toWorld = Mat4{};
  std::array<int32_t, 2> size = scene_.camera.imageSize();
  if (still_) size = still_->size.value_or(size);
  View view(scene_.camera, size[0], size[1]);
  builder_.worldToCamera = view.worldToCamera;
  builder_.perspective = view.perspective;
  // A picture of another shape than the screen window stretches it one way more than the other.
  builder_.pixelsPerUnit =
      view.scale * std::max(float(size[0]) / std::abs(view.screen[1] - view.screen[0]),
                            float(size[1]) / std::abs(view.screen[3] - view.screen[2]));
  // A second scene begun within the first moves the camera: what was left out may show.
  if (still_ && !inScene_) builder_.sight.emplace(view);
  if (inScene_) builder_.sight.reset();
}

void SceneWalk::note(const ZelRecord& r, const std::string& what) {
  if (noted_.insert(r.op).second) {
    scene_.notes.push_back("ZEL line " + std::to_string(r.line) + ": " + r.op + ": " + what);
  }
}

void SceneWalk::finish() {
  if (!ended_) scene_.notes.push_back("the scene file ends before its scene does");
  if (builder_.full()) {
    scene_.notes.push_back("the scene makes more than " + std::to_string(builder_.made()) +
                           " triangles: the rest is not drawn");
  }
}

const std::vector<std::string>& unreadParameters() {
  static const std::vector<std::string> names = {"N", "Np", "st", "s", "t"};
  return names;
}

Scene readScene(std::istream& in, size_t maxTriangles, std::optional<StillPicture> still,
                const TakeMesh& take) {
  Scene scene;
  RecordPipe records(in, unreadParameters());
  SceneWalk walk(scene, maxTriangles, still);
  std::vector<ZelRecord> batch;
  bool going = true;
  while (going && records.next(batch)) {
    for (const ZelRecord& r : batch) {
      try {
        going = walk.take(r);
      } catch (const ZelReadError& e) {
        failRecord(r, e.what());
      }
      if (!going) break;
    }
    if (take) take(scene);
  }
  walk.finish();
  return scene;
}
