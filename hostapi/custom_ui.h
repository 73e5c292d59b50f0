// Custom controls: events and the drawing suites. Main thread only. Drawing happens in draw events alone; supplier and
// surface are borrowed, every object that a New function made needs one ReleaseObject.
#ifndef QUILTOR_HOSTAPI_CUSTOM_UI_H
#define QUILTOR_HOSTAPI_CUSTOM_UI_H

#include "hostapi/effect.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct PF_FixedPoint PF_FixedPoint;
typedef struct PF_FloatMatrix PF_FloatMatrix;
typedef A_long PF_WindowType;
typedef struct PF_ContextRefcon_Opaque* PF_ContextRefcon;
typedef struct DRAWBOT_DrawRef_Opaque* DRAWBOT_DrawRef;
typedef A_long PF_EffectArea;
typedef A_long PF_Modifiers;
typedef A_u_long PF_KeyCode;
typedef A_long PF_CursorType;
typedef struct PF_Context** PF_ContextH;
typedef A_long PF_EventType;
typedef A_long PF_EventInFlags;
typedef A_long PF_EventOutFlags;
typedef struct DRAWBOT_SupplierRef_Opaque* DRAWBOT_SupplierRef;
typedef struct DRAWBOT_SurfaceRef_Opaque* DRAWBOT_SurfaceRef;
typedef int DRAWBOT_PixelLayout;
typedef struct DRAWBOT_ImageRef_Opaque* DRAWBOT_ImageRef;
typedef struct DRAWBOT_ObjectRef_Opaque* DRAWBOT_ObjectRef;

// Event types.
enum {
  PF_Event_NEW_CONTEXT = 0,
  PF_Event_ACTIVATE = 1,
  PF_Event_DO_CLICK = 2,
  PF_Event_DRAG = 3,
  PF_Event_DRAW = 4,
  PF_Event_DEACTIVATE = 5,
  PF_Event_CLOSE_CONTEXT = 6,
  PF_Event_IDLE = 7,
  PF_Event_KEYDOWN_OBSOLETE = 8,
  PF_Event_ADJUST_CURSOR = 9,
  PF_Event_KEYDOWN = 10,
  PF_Event_MOUSE_EXITED = 11,
};

// Event flags.
enum {
  PF_EI_DONT_DRAW = 1,
  PF_EO_HANDLED_EVENT = 1,
  PF_EO_UPDATE_NOW = 8,
};

// Windows and areas.
enum {
  PF_Window_EFFECT = 2,
  PF_EA_PARAM_TITLE = 1,
  PF_EA_CONTROL = 2,
};

// Pixel layouts.
enum {
  kDRAWBOT_PixelLayout_32BGRA_Straight = 6,
  kDRAWBOT_PixelLayout_32BGRA_Premul = 7,
};

typedef struct PF_Context {
  A_u_long magic;
  PF_WindowType w_type;
  PF_ContextRefcon reserved_flt;
  A_intptr_t plugin_state[4];
  DRAWBOT_DrawRef reserved_drawref;
  void* reserved_paneP;
  void* reserved_job_manageP;
} PF_Context;

typedef struct PF_EffectWindowInfo {
  PF_ParamIndex index;
  PF_EffectArea area;
  PF_UnionableRect current_frame;
  PF_UnionableRect param_title_frame;
  A_long horiz_offset;
} PF_EffectWindowInfo;

typedef struct PF_DoClickEventInfo {
  A_u_long when;
  PF_Point screen_point;
  A_long num_clicks;
  PF_Modifiers modifiers;
  A_intptr_t continue_refcon[4];
  PF_Boolean send_drag;
  PF_Boolean last_time;
} PF_DoClickEventInfo;

typedef struct PF_DrawEventInfo {
  PF_UnionableRect update_rect;
  A_long depth;
} PF_DrawEventInfo;

typedef struct PF_KeyDownEvent {
  A_u_long when;
  PF_Point screen_point;
  PF_KeyCode keycode;
  PF_Modifiers modifiers;
} PF_KeyDownEvent;

typedef struct PF_AdjustCursorEventInfo {
  PF_Point screen_point;
  PF_Modifiers modifiers;
  PF_CursorType set_cursor;
} PF_AdjustCursorEventInfo;

typedef union PF_EventUnion {
  PF_DoClickEventInfo do_click;
  PF_DrawEventInfo draw;
  PF_KeyDownEvent key_down;
  PF_AdjustCursorEventInfo adjust_cursor;
} PF_EventUnion;

typedef struct PF_EventCallbacks {
  void* refcon;
  PF_Err (*layer_to_comp)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale, PF_FixedPoint* pt);
  PF_Err (*comp_to_layer)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale, PF_FixedPoint* pt);
  PF_Err (*get_comp2layer_xform)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale, A_long* exists,
                                 PF_FloatMatrix* c2l);
  PF_Err (*get_layer2comp_xform)(void* refcon, PF_ContextH context, A_long curr_time, A_long time_scale,
                                 PF_FloatMatrix* l2c);
  PF_Err (*source_to_frame)(void* refcon, PF_ContextH context, PF_FixedPoint* pt);
  PF_Err (*frame_to_source)(void* refcon, PF_ContextH context, PF_FixedPoint* pt);
  PF_Err (*info_draw_color)(void* refcon, PF_Pixel color);
  PF_Err (*info_draw_text)(void* refcon, const A_char* text1, const A_char* text2);
} PF_EventCallbacks;

typedef struct PF_EventExtra {
  PF_ContextH contextH;
  PF_EventType e_type;
  PF_EventUnion u;
  PF_EffectWindowInfo effect_win;
  PF_EventCallbacks cbs;
  PF_EventInFlags evt_in_flags;
  PF_EventOutFlags evt_out_flags;
} PF_EventExtra;

typedef struct DRAWBOT_PointF32 {
  float x;
  float y;
} DRAWBOT_PointF32;

#define kPFEffectCustomUISuite "PF Effect Custom UI Suite"
#define kPFEffectCustomUISuiteVersion1 1
typedef struct PF_EffectCustomUISuite1 {
  PF_Err (*PF_GetDrawingReference)(PF_ContextH context, DRAWBOT_DrawRef* draw_ref_out);
} PF_EffectCustomUISuite1;

#define kDRAWBOTDrawSuite "DRAWBOT Draw Suite"
#define kDRAWBOTDrawSuiteVersion1 1
typedef struct DRAWBOT_DrawbotSuite1 {
  SPErr (*GetSupplier)(DRAWBOT_DrawRef draw_ref, DRAWBOT_SupplierRef* supplier_out);
  SPErr (*GetSurface)(DRAWBOT_DrawRef draw_ref, DRAWBOT_SurfaceRef* surface_out);
} DRAWBOT_DrawbotSuite1;

#define kDRAWBOTSupplierSuite "DRAWBOT Supplier Suite"
#define kDRAWBOTSupplierSuiteVersion1 1
typedef struct DRAWBOT_SupplierSuite1 {
  void* unused0_4[5];
  SPErr (*NewImageFromBuffer)(DRAWBOT_SupplierRef supplier, int width, int height, int row_bytes,
                              DRAWBOT_PixelLayout pixel_layout, const void* pixels, DRAWBOT_ImageRef* image_out);
  void* unused6_11[6];
  SPErr (*ReleaseObject)(DRAWBOT_ObjectRef object);
} DRAWBOT_SupplierSuite1;

#define kDRAWBOTSurfaceSuite "DRAWBOT Surface Suite"
#define kDRAWBOTSurfaceSuiteVersion1 1
typedef struct DRAWBOT_SurfaceSuite1 {
  void* unused0_9[10];
  SPErr (*DrawImage)(DRAWBOT_SurfaceRef surface, DRAWBOT_ImageRef image, const DRAWBOT_PointF32* origin, float alpha);
  void* unused11_15[5];
} DRAWBOT_SurfaceSuite1;

#define kDRAWBOTPathSuite "DRAWBOT Path Suite"
#define kDRAWBOTPathSuiteVersion1 1
typedef struct DRAWBOT_PathSuite1 {
  void* unused0_5[6];
} DRAWBOT_PathSuite1;

#ifdef __cplusplus
}
#endif

#endif
