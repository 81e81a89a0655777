// The boundary to the scene library: the only way the Ri layer reaches the
// scene file. The library owns the scene state and the output; these
// functions are all it offers, plus _zelParameterInfo, which tells it how many
// numbers each parameter value holds (it is given pointers only).
//
// Conventions of every call:
// - Names travel as 16-bit token codes: a predeclared code, or one that
//   _zelQuark gave.
// - A function whose name ends in V takes its parameter list last: a count,
//   an array of token codes and an array of value pointers, valid only for
//   the length of the call and null when the count is 0.
// - Pointers to numbers are only read, and only as far as the call's fixed
//   sizes and counts reach (a colour 3 floats, a bound 6, a matrix or basis
//   16, knot vectors count + order, index arrays the sums of their counts).
// - Light and object handles are small positive integers carried in the
//   interface's pointer-typed handles; nothing ever dereferences them.
#pragma once

#include <cstdint>

#include "interface/ritypes.h"

// What the procedural binding passes with RiProcedural.
typedef RtVoid (*RtProcSubdivFunc)(RtPointer data, RtFloat detail);
typedef RtVoid (*RtProcFreeFunc)(RtPointer data);

// How many numbers the library may read from each value of the next
// parameter list. `type` and `tokenClass` are the RiTokenType and
// RiTokenClass numbers of the token; `count` is the number of scalars in the
// value (floats or 32-bit integers, three per point or colour), or for a
// string token the number of char* in it.
struct ZelParam {
  const char* name;
  uint16_t code;
  uint8_t type;
  uint8_t tokenClass;
  uint32_t count;
};

// Called immediately before every call that takes a parameter list (also
// with n == 0). `params[i]` describes element i of that call's list; the
// library copies what it needs, so the array need not outlive this call.
void _zelParameterInfo(int32_t n, const ZelParam* params);

// Names
int32_t _zelQuark(const char* name);  // a stable code for the text; 16 bits of it are used

// Nesting
void _zelFrameBegin();
void _zelFrameEnd();
void _zelSceneBegin();
void _zelSceneEnd();
void _zelAttributePush();
void _zelAttributePop();
void _zelMatrixPush();
void _zelMatrixPop();
RtObjectHandle _zelObjectBegin();
void _zelObjectEnd();
void _zelObjectCall(RtObjectHandle handle);

// Camera
void _zelRasterViewport(int32_t xmin, int32_t xmax, int32_t ymin, int32_t ymax);
void _zelRasterAspect(float aspect);
void _zelImageAspect(float aspect);
void _zelImageWindow(float left, float right, float bottom, float top);
void _zelImageCrop(float xmin, float xmax, float ymin, float ymax);
void _zelViewIdentity();
void _zelViewOrthographic();
void _zelViewPerspective(float fov);
void _zelClip(float nearplane, float farplane);

// Sampling
void _zelSampleAdaptive(float variation);
void _zelSampleUniform(float xsamples, float ysamples);
void _zelSampleJitter(float jitter);
void _zelFilter(uint16_t filter);  // 0x0100 gaussian .. 0x0104 sinc
void _zelCustomFilter(RtFilterFunc function);
void _zelFilterWidth(float xwidth, float ywidth);
constexpr uint16_t kZelHidden = 0x0400;
constexpr uint16_t kZelPaint = 0x0401;
void _zelHider(uint16_t hider);  // 0 (none), kZelHidden or kZelPaint

// Image
void _zelColorGain(float gain);
void _zelColorGamma(float gamma);
void _zelColorQuantize(int32_t one, int32_t min, int32_t max);
void _zelColorJitter(float amplitude);
void _zelDepthQuantize(int32_t one, int32_t min, int32_t max);
void _zelDepthJitter(float amplitude);
// Both matrices hold 3 * n floats.
void _zelColorSpace(int32_t n, const float* nRGB, const float* RGBn);

// Output
// What the file that _zelOutputFile names is.
constexpr uint16_t kZelSceneFile = 0x0200;    // the scene file itself
constexpr uint16_t kZelDisplayFile = 0x0201;  // a file that a Display request names
void _zelOutputFile(uint16_t kind, const char* name);
void _zelOutputDisplay(const char* name);
// The sample modes: the codes of the tokens "rgb" .. "rgbaz", in this range.
constexpr uint16_t kZelFirstSamples = 0x0301;
constexpr uint16_t kZelLastSamples = 0x0307;
void _zelOutputSamples(uint16_t mode);
void _zelTune(int32_t gridsize, int32_t bucketwidth, int32_t bucketheight);
void _zelComment(const char* format, ...) __attribute__((format(printf, 1, 2)));

// Attributes
void _zelColor(const float* color);
void _zelOpacity(const float* color);
void _zelShadingRate(float size);
void _zelShadingModel(uint16_t model);  // 0x0500 constant, 0x0501 smooth
void _zelMatteObject(int16_t onoff);
void _zelBound(const float* bound);
void _zelFlatness(float flatness);
void _zelOrientation(uint16_t orientation);  // 0x0600 .. 0x0604
void _zelBackface(int16_t visible);
void _zelObjectName(const char* name);
void _zelGroupName(const char* name);
void _zelBasis(uint16_t direction, uint16_t basis);  // 0x0800 u, 0x0801 v; 0x0900 .. 0x0904
void _zelCustomBasis(uint16_t direction, const float* basis, int32_t step);

// Transforms
void _zelLoadIdentity();
void _zelLoadMatrix(const float* matrix);
void _zelMultMatrix(const float* matrix);
void _zelPerspective(float fov);
void _zelTranslate(float dx, float dy, float dz);
void _zelRotate(float angle, float dx, float dy, float dz);
void _zelScale(float sx, float sy, float sz);
void _zelSkew(float angle, float dx1, float dy1, float dz1, float dx2, float dy2, float dz2);
void _zelMarkSpace(uint16_t space);
RtPoint* _zelProjectPoints(uint16_t fromspace, uint16_t tospace, int32_t n, RtPoint* points);

// Shaders
RtLightHandle _zelLightSourceV(uint16_t name, int32_t n, const uint16_t* codes,
                               const RtPointer* values);
void _zelLightSwitch(RtLightHandle light, int16_t onoff);
void _zelSurfaceV(uint16_t name, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelAtmosphereV(uint16_t name, int32_t n, const uint16_t* codes, const RtPointer* values);

// Geometry
void _zelPolygonV(int32_t nverts, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelGeneralPolygonV(int32_t nloops, const int32_t* nverts, int32_t n, const uint16_t* codes,
                         const RtPointer* values);
void _zelPolygonMeshV(int32_t npolys, const int32_t* nverts, const int32_t* verts, int32_t n,
                      const uint16_t* codes, const RtPointer* values);
void _zelGeneralPolygonMeshV(int32_t npolys, const int32_t* nloops, const int32_t* nverts,
                             const int32_t* verts, int32_t n, const uint16_t* codes,
                             const RtPointer* values);
void _zelPatchV(uint16_t type, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelPatchMeshV(uint16_t type, int32_t nu, uint16_t uwrap, int32_t nv, uint16_t vwrap,
                    int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelNurbMeshV(int32_t nu, int32_t uorder, const float* uknot, float umin, float umax,
                   int32_t nv, int32_t vorder, const float* vknot, float vmin, float vmax,
                   int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelSphereV(float radius, float zmin, float zmax, float thetamax, int32_t n,
                 const uint16_t* codes, const RtPointer* values);
void _zelConeV(float radius, float zmin, float zmax, float thetamax, int32_t n,
               const uint16_t* codes, const RtPointer* values);
void _zelCylinderV(float radius, float zmin, float zmax, float thetamax, int32_t n,
                   const uint16_t* codes, const RtPointer* values);
void _zelHyperboloidV(const float* point1, const float* point2, float thetamax, int32_t n,
                      const uint16_t* codes, const RtPointer* values);
void _zelParaboloidV(float rmax, float zmin, float zmax, float thetamax, int32_t n,
                     const uint16_t* codes, const RtPointer* values);
void _zelDiskV(float height, float radius, float thetamax, int32_t n, const uint16_t* codes,
               const RtPointer* values);
void _zelTorusV(float majorradius, float minorradius, float phimin, float phimax, float thetamax,
                int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelProcedural(RtPointer data, const float* bound, RtProcSubdivFunc subdivfunc,
                    RtProcFreeFunc freefunc);
// A procedural of a standard generator ("DelayedReadArchive", "RunProgram",
// "DynamicLoad"), with the strings of its data; bound may be null.
void _zelStandardProcedural(const char* generator, int32_t n, const char* const* strings,
                            const float* bound);
void _zelProcedural2V(const char* generator, const char* bounder, int32_t n, const uint16_t* codes,
                      const RtPointer* values);
void _zelSystem(const char* command);

// Geometry of later versions. Names are texts; tags and string arguments are
// arrays of texts. A subdivision mesh's nargs holds 2 numbers per tag (ints,
// floats), a hierarchical one's 3 (ints, floats, strings).
void _zelSubdivisionMeshV(const char* scheme, int32_t nfaces, const int32_t* nvertices,
                          const int32_t* vertices, int32_t ntags, const char* const* tags,
                          const int32_t* nargs, const int32_t* intargs, const float* floatargs,
                          int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelHierarchicalSubdivisionMeshV(const char* scheme, int32_t nfaces, const int32_t* nvertices,
                                      const int32_t* vertices, int32_t ntags,
                                      const char* const* tags, const int32_t* nargs,
                                      const int32_t* intargs, const float* floatargs,
                                      const char* const* stringargs, int32_t n,
                                      const uint16_t* codes, const RtPointer* values);
void _zelPointsV(int32_t npoints, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelCurvesV(const char* type, int32_t ncurves, const int32_t* nvertices, const char* wrap,
                 int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelBlobbyV(int32_t nleaf, int32_t ncode, const int32_t* code, int32_t nfloats,
                 const float* floats, int32_t nstrings, const char* const* strings, int32_t n,
                 const uint16_t* codes, const RtPointer* values);

// Errors: `which` is always kZelHandlerSetting; `mode` is one of the three
// below, the codes of the tokens "ignore", "print" and "abort".
constexpr uint16_t kZelHandlerSetting = 0x0B0F;
constexpr uint16_t kZelIgnore = 0x0C00;
constexpr uint16_t kZelPrint = 0x0C01;
constexpr uint16_t kZelAbort = 0x0C02;
void _zelErrorHandler(uint16_t which, uint16_t mode);
void _zelCustomErrorHandler(uint16_t which, RtErrorHandler handler);

// --- Requests of later versions: shading nodes, cameras and spaces, scene
// blocks, and classic requests by the names later versions added ---------------
// Names travel as text here: they are plugin, camera, resource and channel
// names that only the renderer that reads the scene knows.

// The kind of a shading node.
constexpr uint16_t kZelBxdf = 0x0D00;
constexpr uint16_t kZelPattern = 0x0D01;
constexpr uint16_t kZelLight = 0x0D02;
constexpr uint16_t kZelIntegrator = 0x0D03;
constexpr uint16_t kZelDisplace = 0x0D04;
constexpr uint16_t kZelDisplayFilter = 0x0D05;
constexpr uint16_t kZelSampleFilter = 0x0D06;
constexpr uint16_t kZelLightFilter = 0x0D07;
constexpr uint16_t kZelShader = 0x0D08;
void _zelShadingNodeV(uint16_t kind, const char* type, const char* handle, int32_t n,
                      const uint16_t* codes, const RtPointer* values);

void _zelLightNodeSwitch(const char* handle, int16_t onoff);

void _zelCameraV(const char* name, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelCoordSysTransform(uint16_t space);
void _zelScopedMarkSpace(uint16_t space);
void _zelClippingPlane(float x, float y, float z, float nx, float ny, float nz);
void _zelGeometricRepresentation(const char* type);
void _zelDisplayChannelV(const char* declaration, int32_t n, const uint16_t* codes,
                         const RtPointer* values);
// `ptcs` holds nptc texts.
void _zelMakeBrickMapV(int32_t nptc, const char* const* ptcs, const char* bkm, int32_t n,
                       const uint16_t* codes, const RtPointer* values);

void _zelResourceV(const char* handle, const char* type, int32_t n, const uint16_t* codes,
                   const RtPointer* values);
void _zelResourceBegin();
void _zelResourceEnd();
void _zelIfBegin(const char* expression);
void _zelElseIf(const char* expression);
void _zelElse();
void _zelIfEnd();
void _zelEditBeginV(const char* type, int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelEditEnd();
void _zelEditWorldBeginV(int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelEditWorldEnd();
void _zelEditAttributeBeginV(int32_t n, const uint16_t* codes, const RtPointer* values);
void _zelEditAttributeEnd();

void _zelNamedFilter(const char* name, float xwidth, float ywidth);
void _zelNamedProjectionV(const char* name, int32_t n, const uint16_t* codes,
                          const RtPointer* values);
void _zelNamedHiderV(const char* name, int32_t n, const uint16_t* codes, const RtPointer* values);
// A name beginning with '+' is an output in addition to the others.
void _zelNamedDisplayV(const char* name, const char* type, const char* mode, int32_t n,
                       const uint16_t* codes, const RtPointer* values);
