// Parameter definitions: what the effect registers at parameter setup and what the host hands out at check-out.
// Definitions are copied by add_param before it returns; strings behind pointers are copied too.
#ifndef QUILTOR_HOSTAPI_PARAMS_H
#define QUILTOR_HOSTAPI_PARAMS_H

#include "hostapi/pixels.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef A_long PF_ParamValue;
typedef A_short PF_Precision;
typedef A_short PF_ValueDisplayFlags;
typedef struct PF_Pixel PF_UnionablePixel;
typedef A_u_long PF_FSliderFlags;
typedef PF_Handle PF_ArbitraryH;
typedef A_u_long PF_PathID;
typedef A_long PF_ChangeFlags;
typedef A_long PF_ParamUIFlags;
typedef A_long PF_ParamType;
typedef A_long PF_ParamFlags;
typedef A_long PF_ParamIndex;
typedef A_long PF_CustomEventFlags;
typedef A_long PF_UIAlignment;

// Parameter types.
enum {
  PF_Param_LAYER = 0,
  PF_Param_SLIDER = 1,
  PF_Param_FIX_SLIDER = 2,
  PF_Param_ANGLE = 3,
  PF_Param_CHECKBOX = 4,
  PF_Param_COLOR = 5,
  PF_Param_POINT = 6,
  PF_Param_POPUP = 7,
  PF_Param_FLOAT_SLIDER = 10,
  PF_Param_ARBITRARY_DATA = 11,
  PF_Param_PATH = 12,
  PF_Param_GROUP_START = 13,
  PF_Param_GROUP_END = 14,
  PF_Param_BUTTON = 15,
  PF_Param_POINT_3D = 18,
};

// Parameter flags.
enum {
  PF_ParamFlag_CANNOT_TIME_VARY = 0x2,
  PF_ParamFlag_CANNOT_INTERP = 0x4,
  PF_ParamFlag_START_COLLAPSED = 0x20,
  PF_ParamFlag_SUPERVISE = 0x40,
};

// Parameter UI flags.
enum {
  PF_PUI_CONTROL = 0x2,
  PF_PUI_DISABLED = 0x20,
  PF_PUI_DONT_ERASE_CONTROL = 0x80,
  PF_PUI_INVISIBLE = 0x200,
};

// Display of slider values.
enum {
  PF_ValueDisplayFlag_NONE = 0,
  PF_ValueDisplayFlag_PERCENT = 1,
  PF_Precision_INTEGER = 0,
  PF_Precision_HUNDREDTHS = 2,
};

// Default layers of a layer parameter, and the path id of no path.
enum {
  PF_LayerDefault_MYSELF = -1,
  PF_LayerDefault_NONE = 0,
  PF_PathID_NONE = 0,
};

// Windows whose events a custom control receives.
enum {
  PF_CustomEFlag_EFFECT = 4,
};

// Text lengths, terminator not counted.
enum {
  PF_MAX_EFFECT_PARAM_NAME_LEN = 31,
};

typedef struct PF_SliderDef {
  PF_ParamValue value;
  A_char value_str[32];
  A_char value_desc[32];
  PF_ParamValue valid_min;
  PF_ParamValue valid_max;
  PF_ParamValue slider_min;
  PF_ParamValue slider_max;
  PF_ParamValue dephault;
} PF_SliderDef;

typedef struct PF_FixedSliderDef {
  PF_Fixed value;
  A_char value_str[32];
  A_char value_desc[32];
  PF_Fixed valid_min;
  PF_Fixed valid_max;
  PF_Fixed slider_min;
  PF_Fixed slider_max;
  PF_Fixed dephault;
  PF_Precision precision;
  PF_ValueDisplayFlags display_flags;
} PF_FixedSliderDef;

typedef struct PF_AngleDef {
  PF_Fixed value;
  PF_Fixed dephault;
  PF_Fixed valid_min;
  PF_Fixed valid_max;
} PF_AngleDef;

typedef union PF_CheckBoxDef_u {
  const A_char* nameptr;
} PF_CheckBoxDef_u;

typedef struct PF_CheckBoxDef {
  PF_ParamValue value;
  PF_Boolean dephault;
  A_char reserved;
  A_short reserved1;
  PF_CheckBoxDef_u u;
} PF_CheckBoxDef;

typedef struct PF_ColorDef {
  PF_UnionablePixel value;
  PF_UnionablePixel dephault;
} PF_ColorDef;

typedef struct PF_PointDef {
  PF_Fixed x_value;
  PF_Fixed y_value;
  A_char reserved[3];
  PF_Boolean restrict_bounds;
  PF_Fixed x_dephault;
  PF_Fixed y_dephault;
} PF_PointDef;

typedef union PF_PopupDef_u {
  const A_char* namesptr;
} PF_PopupDef_u;

typedef struct PF_PopupDef {
  PF_ParamValue value;
  A_short num_choices;
  A_short dephault;
  PF_PopupDef_u u;
} PF_PopupDef;

typedef struct PF_FloatSliderDef {
  PF_FpLong value;
  PF_FpLong phase;
  A_char value_desc[32];
  PF_FpShort valid_min;
  PF_FpShort valid_max;
  PF_FpShort slider_min;
  PF_FpShort slider_max;
  PF_FpShort dephault;
  PF_Precision precision;
  PF_ValueDisplayFlags display_flags;
  PF_FSliderFlags fs_flags;
  PF_FpShort curve_tolerance;
  PF_Boolean useExponent;
  PF_FpShort exponent;
} PF_FloatSliderDef;

typedef struct PF_ArbitraryDef {
  A_short id;
  A_short pad;
  PF_ArbitraryH dephault;
  PF_ArbitraryH value;
  void* refconPV;
} PF_ArbitraryDef;

typedef struct PF_PathDef {
  PF_PathID path_id;
  A_long reserved0;
  A_long dephault;
} PF_PathDef;

typedef union PF_ButtonDef_u {
  const A_char* namesptr;
} PF_ButtonDef_u;

typedef struct PF_ButtonDef {
  PF_ParamValue value;
  PF_ButtonDef_u u;
} PF_ButtonDef;

typedef struct PF_Point3DDef {
  PF_FpLong x_value;
  PF_FpLong y_value;
  PF_FpLong z_value;
  PF_FpLong x_dephault;
  PF_FpLong y_dephault;
  PF_FpLong z_dephault;
  char reserved[16];
} PF_Point3DDef;

typedef union PF_ParamDefUnion {
  PF_LayerDef ld;
  PF_SliderDef sd;
  PF_FixedSliderDef fd;
  PF_AngleDef ad;
  PF_CheckBoxDef bd;
  PF_ColorDef cd;
  PF_PointDef td;
  PF_PopupDef pd;
  PF_FloatSliderDef fs_d;
  PF_ArbitraryDef arb_d;
  PF_PathDef path_d;
  PF_ButtonDef button_d;
  PF_Point3DDef point3d_d;
} PF_ParamDefUnion;

typedef union PF_ParamDef_uu {
  A_long id;
  PF_ChangeFlags change_flags;
} PF_ParamDef_uu;

typedef struct PF_ParamDef {
  PF_ParamDef_uu uu;
  PF_ParamUIFlags ui_flags;
  A_short ui_width;
  A_short ui_height;
  PF_ParamType param_type;
  A_char name[32];
  PF_ParamFlags flags;
  A_long unused;
  PF_ParamDefUnion u;
} PF_ParamDef;

typedef struct PF_UserChangedParamExtra {
  PF_ParamIndex param_index;
} PF_UserChangedParamExtra;

typedef struct PF_CustomUIInfo {
  A_long reserved;
  PF_CustomEventFlags events;
  A_long comp_ui_width;
  A_long comp_ui_height;
  PF_UIAlignment comp_ui_alignment;
  A_long layer_ui_width;
  A_long layer_ui_height;
  PF_UIAlignment layer_ui_alignment;
  A_long preview_ui_width;
  A_long preview_ui_height;
  PF_UIAlignment preview_ui_alignment;
} PF_CustomUIInfo;

#ifdef __cplusplus
}
#endif

#endif
