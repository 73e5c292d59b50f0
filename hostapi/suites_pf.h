// Suites for effects. Each table is an array of function pointers without a header; the version is the number passed to
// AcquireSuite and not the number in the table's name. Slots that nobody here calls keep their place as unused words.
#ifndef QUILTOR_HOSTAPI_SUITES_PF_H
#define QUILTOR_HOSTAPI_SUITES_PF_H

#include "hostapi/effect.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct PF_PathOutlinePtr_Opaque* PF_PathOutlinePtr;

// Once per processor, as the iteration count of iterate_generic.
enum {
  PF_Iterations_ONCE_PER_PROCESSOR = -1,
};

#define kPFHandleSuite "PF Handle Suite"
#define kPFHandleSuiteVersion2 2
typedef struct PF_HandleSuite1 {
  PF_Handle (*host_new_handle)(A_HandleSize size);
  void* (*host_lock_handle)(PF_Handle handle);
  void (*host_unlock_handle)(PF_Handle handle);
  void (*host_dispose_handle)(PF_Handle handle);
  A_HandleSize (*host_get_handle_size)(PF_Handle handle);
  void* unused5;
} PF_HandleSuite1;

#define kPFANSISuite "PF ANSI Suite"
#define kPFANSISuiteVersion1 1
typedef struct PF_ANSICallbacksSuite1 {
  void* unused0_14[15];
  int (*sprintf)(A_char* buffer, const A_char* format, ...);
  A_char* (*strcpy)(A_char* destination, const A_char* source);
  void* unused17_18[2];
} PF_ANSICallbacksSuite1;

#define kPFWorldSuite "PF World Suite"
#define kPFWorldSuiteVersion2 2
typedef struct PF_WorldSuite2 {
  PF_Err (*PF_NewWorld)(PF_ProgPtr effect, A_long width, A_long height, PF_Boolean clear, PF_PixelFormat format,
                        PF_EffectWorld* world);
  PF_Err (*PF_DisposeWorld)(PF_ProgPtr effect, PF_EffectWorld* world);
  PF_Err (*PF_GetPixelFormat)(const PF_EffectWorld* world, PF_PixelFormat* format_out);
} PF_WorldSuite2;

#define kPFIterate8Suite "PF Iterate8 Suite"
#define kPFIterate8SuiteVersion1 1
typedef struct PF_Iterate8Suite1 {
  void* unused0_3[4];
  PF_Err (*iterate_generic)(A_long iterations, void* refcon,
                            PF_Err (*worker)(void* refcon, A_long thread_index, A_long iteration, A_long iterations));
} PF_Iterate8Suite1;

#define kPFPixelFormatSuite "PF Pixel Format Suite"
#define kPFPixelFormatSuiteVersion1 1
typedef struct PF_PixelFormatSuite {
  PF_Err (*AddSupportedPixelFormat)(PF_ProgPtr effect, PrPixelFormat format);
  void* unused1_3[3];
  PF_Err (*GetPixelFormat)(PF_EffectWorld* world, PrPixelFormat* format);
  void* unused5_7[3];
} PF_PixelFormatSuite;

#define kPFEffectUISuite "PF Effect UI Suite"
#define kPFEffectUISuiteVersion1 1
typedef struct PF_EffectUISuite1 {
  PF_Err (*PF_SetOptionsButtonName)(PF_ProgPtr effect, const A_char* name_text);
} PF_EffectUISuite1;

#define kPFParamUtilsSuite "PF Param Utils Suite"
#define kPFParamUtilsSuiteVersion3 3
typedef struct PF_ParamUtilsSuite3 {
  PF_Err (*PF_UpdateParamUI)(PF_ProgPtr effect, PF_ParamIndex param_index, const PF_ParamDef* definition);
  void* unused1_8[8];
} PF_ParamUtilsSuite3;

#define kPFAdvAppSuite "PF AE Adv App Suite"
#define kPFAdvAppSuiteVersion1 1
typedef struct PF_AdvAppSuite1 {
  void* unused0_4[5];
  PF_Err (*PF_RefreshAllWindows)(void);
  void* unused6_9[4];
} PF_AdvAppSuite1;

#define kPFPathQuerySuite "PF Path Query Suite"
#define kPFPathQuerySuiteVersion1 1
typedef struct PF_PathQuerySuite1 {
  PF_Err (*PF_NumPaths)(PF_ProgPtr effect, A_long* num_paths);
  PF_Err (*PF_PathInfo)(PF_ProgPtr effect, A_long index, PF_PathID* path_id_out);
  PF_Err (*PF_CheckoutPath)(PF_ProgPtr effect, PF_PathID path_id, A_long time, A_long time_step, A_u_long time_scale,
                            PF_PathOutlinePtr* path_out);
  PF_Err (*PF_CheckinPath)(PF_ProgPtr effect, PF_PathID path_id, PF_Boolean changed, PF_PathOutlinePtr path);
} PF_PathQuerySuite1;

#define kPFPathDataSuite "PF Path Data Suite"
#define kPFPathDataSuiteVersion1 1
typedef struct PF_PathDataSuite1 {
  void* unused0_7[8];
  PF_Err (*PF_PathIsInverted)(PF_ProgPtr effect, PF_PathID path_id, PF_Boolean* inverted_out);
  void* unused9_10[2];
} PF_PathDataSuite1;

#define kPFFillMatteSuite "PF Fill Matte Suite"
#define kPFFillMatteSuiteVersion2 2
typedef struct PF_FillMatteSuite2 {
  PF_Err (*fill)(PF_ProgPtr effect, const PF_Pixel* color, const PF_Rect* dst_rect, PF_EffectWorld* world);
  void* unused1_6[6];
} PF_FillMatteSuite2;

#define kAEGPMaskSuite "AEGP Mask Suite"
#define kAEGPMaskSuiteVersion1 1
typedef struct PF_MaskSuite1 {
  A_Err (*PF_MaskWorldWithPath)(PF_ProgPtr effect, PF_PathOutlinePtr* path_in, PF_FpLong feather_x, PF_FpLong feather_y,
                                PF_Boolean invert, PF_FpLong opacity, PF_Quality quality, PF_EffectWorld* world,
                                PF_Rect* bounds);
} PF_MaskSuite1;

#ifdef __cplusplus
}
#endif

#endif
