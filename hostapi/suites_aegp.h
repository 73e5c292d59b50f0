// Suites that reach the host's project: layers, streams, masks, scripts. Documented for the host's main thread; the
// layer interface may be called while rendering. Dispose in the order value, stream, mask or effect, suites.
#ifndef QUILTOR_HOSTAPI_SUITES_AEGP_H
#define QUILTOR_HOSTAPI_SUITES_AEGP_H

#include "hostapi/effect.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef A_FpLong AEGP_FourDVal[4];
typedef A_FpLong AEGP_OneDVal;
typedef A_Handle AEGP_ArbBlockVal;
typedef struct AEGP_MarkerValH_Opaque** AEGP_MarkerValH;
typedef A_long AEGP_LayerIDVal;
typedef A_long AEGP_MaskIDVal;
typedef struct AEGP_MaskOutlineValH_Opaque** AEGP_MaskOutlineValH;
typedef struct AEGP_TextDocumentH_Opaque** AEGP_TextDocumentH;
typedef struct AEGP_StreamRefH_Opaque** AEGP_StreamRefH;
typedef struct AEGP_MarkerValP_Opaque* AEGP_MarkerValP;
typedef struct AEGP_GlobalRefcon_Opaque* AEGP_GlobalRefcon;
typedef A_long AEGP_PluginID;
typedef struct AEGP_MemHandle_Opaque** AEGP_MemHandle;
typedef A_u_long AEGP_MemSize;
typedef struct AEGP_LayerH_Opaque** AEGP_LayerH;
typedef struct AEGP_EffectRefH_Opaque** AEGP_EffectRefH;
typedef A_long AEGP_LayerStream;
typedef A_short AEGP_LTimeMode;
typedef struct AEGP_MaskRefH_Opaque** AEGP_MaskRefH;
typedef A_long AEGP_MaskStream;
typedef A_u_long AEGP_DynStreamFlags;
typedef A_long AEGP_MaskIndex;

// Layer streams.
enum {
  AEGP_LayerStream_ANCHORPOINT = 0,
  AEGP_LayerStream_POSITION = 1,
  AEGP_LayerStream_SCALE = 2,
  AEGP_LayerStream_ROTATION = 3,
};

// Mask streams.
enum {
  AEGP_MaskStream_OUTLINE = 400,
  AEGP_MaskStream_OPACITY = 401,
  AEGP_MaskStream_FEATHER = 402,
  AEGP_MaskStream_EXPANSION = 403,
};

// Time modes.
enum {
  AEGP_LTimeMode_LayerTime = 0,
  AEGP_LTimeMode_CompTime = 1,
};

// Flags of a dynamic stream.
enum {
  AEGP_DynStreamFlag_HIDDEN = 2,
  AEGP_DynStreamFlag_DISABLED = 16,
};

typedef struct AEGP_TwoDVal {
  A_FpLong x;
  A_FpLong y;
} AEGP_TwoDVal;

typedef struct AEGP_ThreeDVal {
  A_FpLong x;
  A_FpLong y;
  A_FpLong z;
} AEGP_ThreeDVal;

typedef struct AEGP_ColorVal {
  A_FpLong alphaF;
  A_FpLong redF;
  A_FpLong greenF;
  A_FpLong blueF;
} AEGP_ColorVal;

typedef union AEGP_StreamVal {
  AEGP_FourDVal four_d;
  AEGP_ThreeDVal three_d;
  AEGP_TwoDVal two_d;
  AEGP_OneDVal one_d;
  AEGP_ColorVal color;
  AEGP_ArbBlockVal arbH;
  AEGP_MarkerValH markerH;
  AEGP_LayerIDVal layer_id;
  AEGP_MaskIDVal mask_id;
  AEGP_MaskOutlineValH mask;
  AEGP_TextDocumentH text_documentH;
} AEGP_StreamVal;

typedef struct AEGP_StreamValue {
  AEGP_StreamRefH streamH;
  AEGP_StreamVal val;
} AEGP_StreamValue;

typedef union AEGP_StreamVal2 {
  AEGP_FourDVal four_d;
  AEGP_ThreeDVal three_d;
  AEGP_TwoDVal two_d;
  AEGP_OneDVal one_d;
  AEGP_ColorVal color;
  AEGP_ArbBlockVal arbH;
  AEGP_MarkerValP markerP;
  AEGP_LayerIDVal layer_id;
  AEGP_MaskIDVal mask_id;
  AEGP_MaskOutlineValH mask;
  AEGP_TextDocumentH text_documentH;
} AEGP_StreamVal2;

typedef struct AEGP_StreamValue2 {
  AEGP_StreamRefH streamH;
  AEGP_StreamVal2 val;
} AEGP_StreamValue2;

#define kAEGPUtilitySuite "AEGP Utility Suite"
#define kAEGPUtilitySuiteVersion7 7
#define kAEGPUtilitySuiteVersion11 11
typedef struct AEGP_UtilitySuite3 {
  void* unused0_6[7];
  A_Err (*AEGP_RegisterWithAEGP)(AEGP_GlobalRefcon refcon, const A_char* plugin_name, AEGP_PluginID* plugin_id);
  void* unused8_24[17];
} AEGP_UtilitySuite3;

typedef struct AEGP_UtilitySuite5 {
  void* unused0_25[26];
  A_Err (*AEGP_IsScriptingAvailable)(A_Boolean* available_out);
  A_Err (*AEGP_ExecuteScript)(AEGP_PluginID plugin_id, const A_char* script, A_Boolean platform_encoding,
                              AEGP_MemHandle* result_out, AEGP_MemHandle* error_out);
  void* unused28_30[3];
} AEGP_UtilitySuite5;

#define kAEGPMemorySuite "AEGP Memory Suite"
#define kAEGPMemorySuiteVersion1 1
typedef struct AEGP_MemorySuite1 {
  void* unused0;
  A_Err (*AEGP_FreeMemHandle)(AEGP_MemHandle mem);
  A_Err (*AEGP_LockMemHandle)(AEGP_MemHandle mem, void** pointer_out);
  A_Err (*AEGP_UnlockMemHandle)(AEGP_MemHandle mem);
  A_Err (*AEGP_GetMemHandleSize)(AEGP_MemHandle mem, AEGP_MemSize* size);
  void* unused5_7[3];
} AEGP_MemorySuite1;

#define kAEGPPFInterfaceSuite "AEGP PF Interface Suite"
#define kAEGPPFInterfaceSuiteVersion1 1
typedef struct AEGP_PFInterfaceSuite1 {
  A_Err (*AEGP_GetEffectLayer)(PF_ProgPtr effect, AEGP_LayerH* layer_out);
  A_Err (*AEGP_GetNewEffectForEffect)(AEGP_PluginID plugin_id, PF_ProgPtr effect, AEGP_EffectRefH* effect_out);
  void* unused2_4[3];
} AEGP_PFInterfaceSuite1;

#define kAEGPEffectSuite "AEGP Effect Suite"
#define kAEGPEffectSuiteVersion2 2
typedef struct AEGP_EffectSuite2 {
  void* unused0_7[8];
  A_Err (*AEGP_DisposeEffect)(AEGP_EffectRefH effect_ref);
  void* unused9_16[8];
} AEGP_EffectSuite2;

#define kAEGPStreamSuite "AEGP Stream Suite"
#define kAEGPStreamSuiteVersion7 7
#define kAEGPStreamSuiteVersion9 9
typedef struct AEGP_StreamSuite2 {
  void* unused0_2[3];
  A_Err (*AEGP_GetNewLayerStream)(AEGP_PluginID plugin_id, AEGP_LayerH layer, AEGP_LayerStream stream_code,
                                  AEGP_StreamRefH* stream_out);
  void* unused4;
  A_Err (*AEGP_GetNewEffectStreamByIndex)(AEGP_PluginID plugin_id, AEGP_EffectRefH effect_ref,
                                          PF_ParamIndex param_index, AEGP_StreamRefH* stream_out);
  void* unused6;
  A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH stream);
  void* unused8_12[5];
  A_Err (*AEGP_GetNewStreamValue)(AEGP_PluginID plugin_id, AEGP_StreamRefH stream, AEGP_LTimeMode time_mode,
                                  const A_Time* time, A_Boolean pre_expression, AEGP_StreamValue* value);
  A_Err (*AEGP_DisposeStreamValue)(AEGP_StreamValue* value);
  void* unused15_21[7];
} AEGP_StreamSuite2;

typedef struct AEGP_StreamSuite4 {
  void* unused0_5[6];
  A_Err (*AEGP_GetNewMaskStream)(AEGP_PluginID plugin_id, AEGP_MaskRefH mask, AEGP_MaskStream stream_code,
                                 AEGP_StreamRefH* stream_out);
  A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH stream);
  void* unused8_12[5];
  A_Err (*AEGP_GetNewStreamValue)(AEGP_PluginID plugin_id, AEGP_StreamRefH stream, AEGP_LTimeMode time_mode,
                                  const A_Time* time, A_Boolean pre_expression, AEGP_StreamValue2* value);
  A_Err (*AEGP_DisposeStreamValue)(AEGP_StreamValue2* value);
  void* unused15_21[7];
} AEGP_StreamSuite4;

#define kAEGPDynamicStreamSuite "AEGP Dynamic Stream Suite"
#define kAEGPDynamicStreamSuiteVersion2 2
typedef struct AEGP_DynamicStreamSuite2 {
  void* unused0_3[4];
  A_Err (*AEGP_GetDynamicStreamFlags)(AEGP_StreamRefH stream, AEGP_DynStreamFlags* stream_flags);
  A_Err (*AEGP_SetDynamicStreamFlag)(AEGP_StreamRefH stream, AEGP_DynStreamFlags flag, A_Boolean undoable,
                                     A_Boolean set);
  void* unused6_10[5];
  A_Err (*AEGP_SetStreamName)(AEGP_StreamRefH stream, const A_char* name_text);
  void* unused12_16[5];
} AEGP_DynamicStreamSuite2;

#define kAEGPLayerMaskSuite "AEGP Layer Mask Suite"
#define kAEGPLayerMaskSuiteVersion6 6
typedef struct AEGP_MaskSuite5 {
  A_Err (*AEGP_GetLayerNumMasks)(AEGP_LayerH layer, A_long* count_out);
  A_Err (*AEGP_GetLayerMaskByIndex)(AEGP_LayerH layer, AEGP_MaskIndex mask_index, AEGP_MaskRefH* mask_out);
  A_Err (*AEGP_DisposeMask)(AEGP_MaskRefH mask);
  void* unused3_8[6];
  A_Err (*AEGP_GetMaskID)(AEGP_MaskRefH mask, AEGP_MaskIDVal* id_out);
  void* unused10_18[9];
} AEGP_MaskSuite5;

#ifdef __cplusplus
}
#endif

#endif
