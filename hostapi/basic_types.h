// The host's basic scalar and geometry types. Every width is fixed, so the records that are built from them have the
// same layout on 64-bit Windows and on x86-64 Linux. Compiles as C and as C++.
#ifndef QUILTOR_HOSTAPI_BASIC_TYPES_H
#define QUILTOR_HOSTAPI_BASIC_TYPES_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef char A_char;
typedef uint8_t A_u_char;
typedef int16_t A_short;
typedef uint16_t A_u_short;
typedef int32_t A_long;
typedef uint32_t A_u_long;
typedef uint64_t A_u_longlong;
typedef int64_t A_intptr_t;
typedef float A_FpShort;
typedef double A_FpLong;
typedef uint8_t A_Boolean;
typedef A_long A_Err;
typedef void* A_Handle;
typedef A_u_longlong A_HandleSize;
typedef A_long A_AppID;
typedef int32_t SPErr;
typedef int32_t SPBoolean;
typedef A_long PF_Err;
typedef A_char PF_Boolean;
typedef A_long PF_Fixed;
typedef A_u_long PF_UFixed;
typedef A_FpLong PF_FpLong;
typedef A_FpShort PF_FpShort;
typedef void** PF_Handle;
typedef struct PF_ProgPtr_Opaque* PF_ProgPtr;
typedef A_long PF_Quality;
typedef A_long PF_Field;
typedef struct PF_LRect PF_Rect;
typedef PF_Rect PF_UnionableRect;

typedef struct A_Time {
  A_long value;
  A_u_long scale;
} A_Time;

typedef struct A_Ratio {
  A_long num;
  A_u_long den;
} A_Ratio;

typedef struct PF_Point {
  A_long h;
  A_long v;
} PF_Point;

typedef struct PF_LRect {
  A_long left;
  A_long top;
  A_long right;
  A_long bottom;
} PF_LRect;

typedef struct PF_RationalScale {
  A_long num;
  A_u_long den;
} PF_RationalScale;

#ifdef __cplusplus
}
#endif

#endif
