// Pixels and worlds. The compositing host stores alpha first: 8 bits 0..255, 16 bits 0..32768, 32-bit float with 1.0 as
// white. The video editor stores blue first. Colour is straight, not premultiplied.
#ifndef QUILTOR_HOSTAPI_PIXELS_H
#define QUILTOR_HOSTAPI_PIXELS_H

#include "hostapi/basic_types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef A_long PF_WorldFlags;
typedef struct PF_Pixel* PF_PixelPtr;
typedef struct PF_LayerDef PF_EffectWorld;
typedef struct PF_Pixel PF_Pixel8;
typedef A_long PF_PixelFormat;
typedef int PrPixelFormat;

// World flags.
enum {
  PF_WorldFlag_DEEP = 1,
  PF_WorldFlag_WRITEABLE = 2,
};

// Pixel formats of the compositing host; the letters in memory order are "argb", "ae16" and "ae32".
enum {
  PF_PixelFormat_ARGB32 = 0x62677261,
  PF_PixelFormat_ARGB64 = 0x36316561,
  PF_PixelFormat_ARGB128 = 0x32336561,
  PF_PixelFormat_INVALID = 0x66646162,
};

// Pixel formats of the video editor; "bgra", "BGra" and "BGaL" in memory order.
enum {
  PrPixelFormat_BGRA_4444_8u = 0x61726762,
  PrPixelFormat_BGRA_4444_32f = 0x61724742,
  PrPixelFormat_BGRA_4444_32f_Linear = 0x4C614742,
};

// Channel maxima.
enum {
  PF_MAX_CHAN8 = 255,
  PF_MAX_CHAN16 = 32768,
};

typedef struct PF_Pixel {
  A_u_char alpha;
  A_u_char red;
  A_u_char green;
  A_u_char blue;
} PF_Pixel;

typedef struct PF_Pixel16 {
  A_u_short alpha;
  A_u_short red;
  A_u_short green;
  A_u_short blue;
} PF_Pixel16;

typedef struct PF_PixelFloat {
  PF_FpShort alpha;
  PF_FpShort red;
  PF_FpShort green;
  PF_FpShort blue;
} PF_PixelFloat;

typedef struct PF_LayerDef {
  void* reserved0;
  void* reserved1;
  PF_WorldFlags world_flags;
  PF_PixelPtr data;
  A_long rowbytes;
  A_long width;
  A_long height;
  PF_UnionableRect extent_hint;
  void* platform_ref;
  A_long reserved_long1;
  void* reserved_long4;
  PF_RationalScale pix_aspect_ratio;
  void* reserved_long2;
  A_long origin_x;
  A_long origin_y;
  A_long reserved_long3;
  A_long dephault;
} PF_LayerDef;

#ifdef __cplusplus
}
#endif

#endif
