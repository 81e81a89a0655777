// The RIB parser: owns the scanner, maps request words to handlers, reads typed
// arguments and parameter lists, and recovers from a bad request by skipping to
// the next known request word. Abstract: rendrib supplies the 93 handlers.
#pragma once

#include <cstdint>

#include "foundation/Array.h"
#include "foundation/Hash.h"
#include "foundation/String.h"
#include "rib/bytesource.h"
#include "rib/lexanrib.h"
#include "rib/readeroptions.h"

class tokenvalue;
struct Token;

// Every RIB request, in keyword-table order, which is also the order of the
// handlers among the virtual operations. X(name) is expanded once per request;
// a subclass may use it to declare all of its overrides at once.
// clang-format off
#define RIB_REQUESTS(X) \
  X(version) X(Declare) X(Begin) X(End) X(FrameBegin) X(FrameEnd) X(WorldBegin) X(WorldEnd) \
  X(Format) X(FrameAspectRatio) X(ScreenWindow) X(CropWindow) X(Projection) X(Clipping) \
  X(DepthOfField) X(Shutter) X(PixelVariance) X(PixelSamples) X(PixelFilter) X(Exposure) \
  X(Imager) X(Quantize) X(Display) X(Hider) X(ColorSamples) X(RelativeDetail) X(Option) \
  \
  X(AttributeBegin) X(AttributeEnd) X(Color) X(Opacity) X(TextureCoordinates) X(LightSource) \
  X(AreaLightSource) X(Illuminate) X(Surface) X(Atmosphere) X(Interior) X(Exterior) \
  X(ShadingRate) X(ShadingInterpolation) X(Matte) X(Bound) X(Detail) X(DetailRange) \
  X(GeometricApproximation) X(Orientation) X(ReverseOrientation) X(Sides) X(Identity) \
  X(Transform) X(ConcatTransform) X(Perspective) X(Translate) X(Rotate) X(Scale) X(Skew) \
  X(Deformation) X(Displacement) X(CoordinateSystem) X(TransformBegin) X(TransformEnd) \
  X(Attribute) \
  \
  X(Polygon) X(GeneralPolygon) X(PointsPolygons) X(PointsGeneralPolygons) \
  \
  X(Basis) X(Patch) X(PatchMesh) X(NuPatch) X(TrimCurve) \
  \
  X(Sphere) X(Cone) X(Cylinder) X(Hyperboloid) X(Paraboloid) X(Disk) X(Torus) X(Geometry) \
  X(SolidBegin) X(SolidEnd) X(ObjectBegin) X(ObjectEnd) X(ObjectInstance) X(MotionBegin) \
  X(MotionEnd) \
  \
  X(MakeTexture) X(MakeBump) X(MakeLatLongEnvironment) X(MakeCubeFaceEnvironment) \
  X(MakeShadow) X(ErrorHandler)
// clang-format on

class parserib {
 public:
  using handler_t = void (parserib::*)();

  // A request word with its handler. A record with a null handler is the probe
  // for a search; records are equal, and hash, by their word alone.
  struct keyword_assoc {
    String keyword;
    handler_t handler = nullptr;

    uint32_t hash() const { return keyword.hash(); }
    int operator==(const keyword_assoc& other) const { return keyword == other.keyword; }
  };

  // A light or object number chosen by the stream, with the handle that the
  // Ri call returned for it. Equal, and hashed, by the number alone.
  struct handle_assoc {
    uint16_t sequence = 0;
    void* handle = nullptr;

    uint32_t hash() const { return sequence; }
    int operator==(const handle_assoc& other) const { return sequence == other.sequence; }
  };

#define RIB_COUNT_REQUEST(name) +1
  static constexpr int kRequestCount = 0 RIB_REQUESTS(RIB_COUNT_REQUEST);
#undef RIB_COUNT_REQUEST
  static constexpr uint16_t kBuckets = 111;

  explicit parserib(bytesource& in, const char* name = "stdin", readeroptions options = {});
  parserib(const parserib&) = delete;
  parserib& operator=(const parserib&) = delete;
  virtual ~parserib();

  // Sets the class-wide line sink of every scanner; it outlives this object.
  virtual void errorPrinter(void (*printer)(const char*));
  // Reads the whole stream, wrapped in Begin and End.
  virtual void parse();
  // Reads one statement; non-zero while the stream has more.
  virtual int16_t parse1();

#define RIB_DECLARE_PURE_HANDLER(name) virtual void name() = 0;
  RIB_REQUESTS(RIB_DECLARE_PURE_HANDLER)
#undef RIB_DECLARE_PURE_HANDLER

  // The allocator's failure handler while parse1 or parse runs: throws kRibNoMemory.
  static void outOfMemory();

  void statement();
  void panic();
  void hash_init();

  // Typed arguments. Each consumes what it matched; on a fault it reports once,
  // runs panic and returns 0. The array forms return the element count.
  int16_t match(handler_t& handler);
  int16_t match(char c);
  int16_t match(int16_t& b);
  int16_t match(int32_t& v);
  int16_t match(float& v);
  int16_t match(float (&m)[4][4]);
  int16_t match(float (&p)[3]);
  int16_t match(String* s);
  int32_t match(Array<int32_t>& a, int32_t n, int16_t bracketed);
  int32_t match(Array<float>& a, int32_t n, int16_t bracketed);
  int32_t match(Array<float[3]>& a, int32_t n, int16_t bracketed);

  // Parameter lists.
  int16_t match(tokenvalue& tv, int16_t bracketed);
  int16_t skipvalue();
  // The variable part is a list of char* token names ended by a null pointer.
  int16_t verify(const tokenvalue& tv, int32_t uniform, int32_t varying, int32_t vertex, ...);
  // Where the list holds the dictionary's `name`, or -1. In the extended
  // reader a declaration of the list's own for that name ("vertex point P")
  // is the same parameter.
  int32_t indexOf(const tokenvalue& tv, const char* name) const;

  int32_t colorsamples = 3;
  lexanrib lex;
  int16_t token = LEXNONE;
  Hash<keyword_assoc> keywords;
  Hash<handle_assoc> lights;
  Hash<handle_assoc> objects;
  uint16_t lastlight = 0;
  uint16_t lastobject = 0;
  // The vertices of all faces of the primitive being read, for facevarying
  // parameters; -1: as its varying count.
  int64_t faceVertices = -1;
  const readeroptions options;

 protected:
  // Whether the current token is one that match(int32_t&) takes.
  bool integerAhead() const {
    int32_t v;
    return token == LEXINT || wholeFloat(v);
  }
  // The reader of a stream played inside another reader's (an archive): a
  // scanner of its own and nothing else until handOver gives it the state.
  parserib(bytesource& in, const char* name, const parserib& outer);
  // Passes the reading state (request table, light and object numbers,
  // colour samples) to `to`, which reads on with it.
  void handOver(parserib& to);

 private:
  // A whole float read where an integer is wanted, in the extended reader:
  // binary writers send integers as floats. False for any other token.
  bool wholeFloat(int32_t& v) const;
  const keyword_assoc* lookupCurrentWord() const;
  // Reports "Expected ..." (code 16), runs panic and returns 0.
  int16_t expected(const char* what);
  int16_t takeFloat(float& v);
  int16_t fetch();
  void report(const RIBException& e);
  void recover();
  void guardedStatement();
  template <typename T>
  bool admits() const;
  template <typename T>
  int32_t matchArray(Array<T>& a, int32_t n, int16_t bracketed);
  template <typename T>
  int16_t checkCount(int32_t count, int32_t n, bool open);
  int16_t readValue(tokenvalue& tv, char* token, int16_t bracketed);
  // An item count as the list keeps it: whole in the extended reader, else
  // modulo 65,536.
  uint32_t kept(int32_t n) const {
    return options.extended ? static_cast<uint32_t>(n) : static_cast<uint16_t>(n);
  }
  // The extended reader's parameter lists (paramlist_extended.cpp).
  Token* extendedToken(const String& name, tokenvalue& tv);
  int16_t skipAnyValue();
  int16_t readWide(tokenvalue& tv, char* token, int16_t bracketed);
  int16_t readStrings(tokenvalue& tv, char* token);
  int16_t readColor(tokenvalue& tv, char* token, int16_t bracketed);
};
