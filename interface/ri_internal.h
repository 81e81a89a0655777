// What the binding's source files share: the layer's state, the translation of
// names to codes, the motion gate, and the pattern of a named call.
// Not part of the published binding.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <memory>

#include "interface/ri.h"

// The layer's state. It is never reset: it runs on from one frame, and one
// conversion, to the next.
extern int32_t gFormatWidth;   // x resolution of the last RiFormat
extern int32_t gFormatHeight;  // y resolution of the last RiFormat
extern int32_t gOriginX;       // last display "origin"
extern int32_t gOriginY;
extern int32_t gGridSize;     // last option "gridsize"
extern int32_t gBucketWidth;  // last option "bucketsize"
extern int32_t gBucketHeight;
extern int16_t gInMotion;     // a motion block is open
extern int16_t gMotionFirst;  // no motion-sensitive call has passed yet in the open block

// Copies the (token, value) pairs that follow in `arguments`, up to the null
// token, into two new arrays (both null for an empty list). The caller frees
// them with delete[].
RtInt collectParameters(va_list arguments, RtToken** tokens, RtPointer** values);

// The code of a token or name. A name without a record is declared as a
// uniform string with a code from the scene library, so it stays stable. A
// null name has code 0 and is not declared.
uint16_t tokenCode(RtToken token);

// tokenCode of each of the n tokens; null when n is 0 or less.
std::unique_ptr<uint16_t[]> tokenCodes(RtInt n, RtToken tokens[]);

// Inside a motion block only the first motion-sensitive call passes.
bool motionGate();

// Sends the raster viewport from the last format size and display origin.
void sendViewport();

// The text of a token or name for a message; never null.
const char* printableName(RtToken token);

// Names the running Ri call for the error model while it lives.
class NamedCall {
 public:
  explicit NamedCall(const char* name);
  ~NamedCall();
  NamedCall(const NamedCall&) = delete;
  NamedCall& operator=(const NamedCall&) = delete;
};

// Whether a call is one of those of which a motion block passes only the first.
constexpr bool kGated = true;
constexpr bool kUngated = false;

// The whole body of a call's plain form: the motion gate where the call is
// motion-sensitive (a stopped call returns `fail`), the call's name for the
// error model, and the parameter list after `last`, collected up to its null
// token and handed to `worker` behind the fixed arguments. A macro because
// va_start works only in the variadic function itself.
#define RI_PLAIN_FORM(gated, fail, name, last, worker, ...)       \
  do {                                                            \
    if (gated && !motionGate()) return fail;                      \
    NamedCall named(name);                                        \
    va_list arguments;                                            \
    va_start(arguments, last);                                    \
    CollectedList list(arguments);                                \
    va_end(arguments);                                            \
    return worker(__VA_ARGS__, list.n, list.tokens, list.values); \
  } while (0)

// The parameter list of a variable-argument call, collected on construction
// and freed on destruction.
class CollectedList {
 public:
  explicit CollectedList(va_list arguments);
  ~CollectedList();
  CollectedList(const CollectedList&) = delete;
  CollectedList& operator=(const CollectedList&) = delete;

  RtInt n;
  RtToken* tokens;
  RtPointer* values;
};
