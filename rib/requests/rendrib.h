// The RIB reader that plays each request into the Ri calls: one handler per
// request, each a straight run of match calls ending in one Ri call. A handler
// that meets a fault returns at once; the match that found it has reported and
// skipped to the next request.
//
// rendrib keeps no data of its own: the colour sample count, the basis steps
// and the light and object number tables live in parserib.
#pragma once

#include <cstdint>

#include "foundation/Array.h"
#include "foundation/String.h"
#include "interface/ritypes.h"
#include "rib/bytesource.h"
#include "rib/parserib.h"

class tokenvalue;

class rendrib : public parserib {
 public:
  explicit rendrib(bytesource& in, const char* name = "stdin", readeroptions options = {});
  // An archive's reader inside `outer`'s stream (see parserib).
  rendrib(bytesource& in, const char* name, const parserib& outer) : parserib(in, name, outer) {}

  // The standard filter for a name, compared exactly; null after reporting
  // "Unknown filter function" and skipping to the next request.
  RtFilterFunc FilterFunc(const String& name);
  // The standard filter for a name, or null; silent.
  static RtFilterFunc standardFilter(const String& name);

  // Frame and camera (frame_camera.cpp).
  void version() override;
  void Declare() override;
  void Begin() override;
  void End() override;
  void FrameBegin() override;
  void FrameEnd() override;
  void WorldBegin() override;
  void WorldEnd() override;
  void Format() override;
  void FrameAspectRatio() override;
  void ScreenWindow() override;
  void CropWindow() override;
  void Projection() override;
  void Clipping() override;
  void DepthOfField() override;
  void Shutter() override;
  void PixelVariance() override;
  void PixelSamples() override;
  void PixelFilter() override;
  void Exposure() override;
  void Imager() override;
  void Quantize() override;
  void Display() override;
  void Hider() override;
  void ColorSamples() override;
  void RelativeDetail() override;
  void Option() override;

  // Attributes, shaders and lights (attributes_lights.cpp).
  void AttributeBegin() override;
  void AttributeEnd() override;
  void Color() override;
  void Opacity() override;
  void TextureCoordinates() override;
  void LightSource() override;
  void AreaLightSource() override;
  void Illuminate() override;
  void Surface() override;
  void Atmosphere() override;
  void Interior() override;
  void Exterior() override;
  void ShadingRate() override;
  void ShadingInterpolation() override;
  void Matte() override;
  void Bound() override;
  void Detail() override;
  void DetailRange() override;
  void GeometricApproximation() override;
  void Orientation() override;
  void ReverseOrientation() override;
  void Sides() override;
  void Attribute() override;

  // Transforms (transforms.cpp).
  void Identity() override;
  void Transform() override;
  void ConcatTransform() override;
  void Perspective() override;
  void Translate() override;
  void Rotate() override;
  void Scale() override;
  void Skew() override;
  void Deformation() override;
  void Displacement() override;
  void CoordinateSystem() override;
  void TransformBegin() override;
  void TransformEnd() override;

  // Polygons (polygons.cpp).
  void Polygon() override;
  void GeneralPolygon() override;
  void PointsPolygons() override;
  void PointsGeneralPolygons() override;

  // Patches and bases (patches_basis.cpp).
  void Basis() override;
  void Patch() override;
  void PatchMesh() override;
  void NuPatch() override;
  void TrimCurve() override;

  // Quadrics, solids, objects and motion (quadrics_objects_motion.cpp).
  void Sphere() override;
  void Cone() override;
  void Cylinder() override;
  void Hyperboloid() override;
  void Paraboloid() override;
  void Disk() override;
  void Torus() override;
  void Geometry() override;
  void SolidBegin() override;
  void SolidEnd() override;
  void ObjectBegin() override;
  void ObjectEnd() override;
  void ObjectInstance() override;
  void MotionBegin() override;
  void MotionEnd() override;

  // Texture files and error handling (texture_errorhandler.cpp).
  void MakeTexture() override;
  void MakeBump() override;
  void MakeLatLongEnvironment() override;
  void MakeCubeFaceEnvironment() override;
  void MakeShadow() override;
  void ErrorHandler() override;

 protected:
  // The messages of one handle table: "Light ..." or "Object ...".
  struct HandleWords {
    const char* outOfRange;
    const char* leap;
    const char* unknown;
  };
  static const HandleWords kLightWords;
  static const HandleWords kObjectWords;

  // Shared argument shapes (rendrib.cpp). Each returns 0 after a fault, which
  // has then been reported and skipped, as a failed match does.
  int16_t matchToken(String* s);
  int16_t matchFloats(float* out, int n);
  int16_t matchTokenAndList(String* name, tokenvalue& params);
  int16_t matchDeclaredName(String* name);
  int16_t matchFilter(RtFilterFunc& filter);
  int16_t matchColor(RtColor color);

  // Counts that size later arrays (rendrib.cpp).
  int16_t sumCounts(const Array<int32_t>& counts, int32_t n, const char* what, int32_t& sum);
  int16_t nonNegative(int32_t value, const char* what);
  int16_t fitCount(int64_t value, int32_t& count);
  int16_t verifyFaces(const tokenvalue& params, int32_t npolys, int32_t points,
                      int32_t faceVertexCount);
  // A list that must hold "P", whose size is the point count `n` (polygons.cpp).
  int16_t matchPointsList(tokenvalue& params, int32_t& n);

  // The light and object number tables (attributes_lights.cpp).
  void registerNumber(int32_t number, uint16_t& last, const HandleWords& words);
  handle_assoc* lookupNumber(Hash<handle_assoc>& table, int32_t number, const HandleWords& words);
  using LightCall = RtLightHandle (*)(RtToken, RtInt, RtToken[], RtPointer[]);
  void lightSource(LightCall call);
  // The light's number, list and call, once its shader name is read.
  virtual void lightAfterName(const String& name, LightCall call);

  // One side of a Basis request (patches_basis.cpp).
  int16_t matchBasis(String* name, Array<float>& matrix, RtFloat (*&basis)[4], int32_t& step);

  // The quadrics' numbers and checked list (quadrics_objects_motion.cpp).
  int16_t matchQuadric(Array<float>& args, int32_t k, tokenvalue& params);

  // MakeTexture and MakeBump (texture_errorhandler.cpp).
  using WrappedTextureCall = RtVoid (*)(char*, char*, RtToken, RtToken, RtFilterFunc, RtFloat,
                                        RtFloat, RtInt, RtToken[], RtPointer[]);
  void makeWrappedTexture(WrappedTextureCall call);
};
