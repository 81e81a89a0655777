// The RenderMan Interface's published types, at the widths this program uses
// everywhere: RtInt is 32 bits and RtBoolean 16 bits, whatever the platform's
// long and int are.
#pragma once

#include <cstdint>

typedef int16_t RtBoolean;
typedef int32_t RtInt;
typedef float RtFloat;
typedef char* RtToken;
typedef RtFloat RtColor[3];
typedef RtFloat RtPoint[3];
typedef RtFloat RtMatrix[4][4];
typedef RtFloat RtBasis[4][4];
typedef RtFloat RtBound[6];
typedef char* RtString;
typedef void* RtPointer;
typedef void RtVoid;
typedef RtFloat (*RtFilterFunc)(RtFloat, RtFloat, RtFloat, RtFloat);
typedef RtVoid (*RtErrorHandler)(RtInt code, RtInt severity, const char* message);
typedef RtVoid (*RtFunc)();
typedef RtPointer RtObjectHandle;
typedef RtPointer RtLightHandle;

#define RI_FALSE 0
#define RI_TRUE 1
#define RI_NULL ((RtToken)0)
