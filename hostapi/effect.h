// The call into an effect: selectors, error codes, flags, the input and output records and their callbacks. The host
// rebuilds both records for every call: an effect keeps no pointer to them after returning.
#ifndef QUILTOR_HOSTAPI_EFFECT_H
#define QUILTOR_HOSTAPI_EFFECT_H

#include "hostapi/params.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct PF_UtilCallbacks PF_UtilCallbacks;
typedef struct PF_ParamDef* PF_ParamDefPtr;
typedef struct PF_LayerAudio_Opaque* PF_LayerAudio;
typedef void* PF_SndSamplePtr;
typedef A_short PF_SoundChannels;
typedef A_short PF_SoundFormat;
typedef A_short PF_SoundSampleSize;
typedef A_long PF_InFlags;
typedef A_long PF_OutFlags;
typedef A_long PF_OutFlags2;

// Selectors.
enum {
  PF_Cmd_ABOUT = 0,
  PF_Cmd_GLOBAL_SETUP = 1,
  PF_Cmd_UNUSED_0 = 2,
  PF_Cmd_GLOBAL_SETDOWN = 3,
  PF_Cmd_PARAMS_SETUP = 4,
  PF_Cmd_SEQUENCE_SETUP = 5,
  PF_Cmd_SEQUENCE_RESETUP = 6,
  PF_Cmd_SEQUENCE_FLATTEN = 7,
  PF_Cmd_SEQUENCE_SETDOWN = 8,
  PF_Cmd_DO_DIALOG = 9,
  PF_Cmd_FRAME_SETUP = 10,
  PF_Cmd_RENDER = 11,
  PF_Cmd_FRAME_SETDOWN = 12,
  PF_Cmd_USER_CHANGED_PARAM = 13,
  PF_Cmd_UPDATE_PARAMS_UI = 14,
  PF_Cmd_EVENT = 15,
  PF_Cmd_GET_EXTERNAL_DEPENDENCIES = 16,
  PF_Cmd_COMPLETELY_GENERAL = 17,
  PF_Cmd_QUERY_DYNAMIC_FLAGS = 18,
  PF_Cmd_AUDIO_RENDER = 19,
  PF_Cmd_AUDIO_SETUP = 20,
  PF_Cmd_AUDIO_SETDOWN = 21,
  PF_Cmd_ARBITRARY_CALLBACK = 22,
  PF_Cmd_SMART_PRE_RENDER = 23,
  PF_Cmd_SMART_RENDER = 24,
  PF_Cmd_RESERVED1 = 25,
  PF_Cmd_RESERVED2 = 26,
  PF_Cmd_RESERVED3 = 27,
  PF_Cmd_GET_FLATTENED_SEQUENCE_DATA = 28,
};

// Errors.
enum {
  PF_Err_NONE = 0,
  PF_Err_OUT_OF_MEMORY = 4,
  PF_Err_INTERNAL_STRUCT_DAMAGED = 512,
  PF_Err_INVALID_INDEX = 513,
  PF_Err_UNRECOGNIZED_PARAM_TYPE = 514,
  PF_Err_INVALID_CALLBACK = 515,
  PF_Err_BAD_CALLBACK_PARAM = 516,
  PF_Err_CANNOT_PARSE_KEYFRAME_TEXT = 518,
  PF_Interrupt_CANCEL = 517,
};

// Errors of the basic suite: four-character codes, and only zero means success.
enum {
  kSPNoError = 0,
  kSPBadParameterError = 0x5061726D,
  kSPSuiteNotFoundError = 0x53214664,
  kSPSuiteAlreadyReleasedError = 0x5352656C,
};

// Output flags.
enum {
  PF_OutFlag_NON_PARAM_VARY = 0x4,
  PF_OutFlag_I_DO_DIALOG = 0x20,
  PF_OutFlag_USE_OUTPUT_EXTENT = 0x40,
  PF_OutFlag_DISPLAY_ERROR_MESSAGE = 0x100,
  PF_OutFlag_CUSTOM_UI = 0x8000,
  PF_OutFlag_REFRESH_UI = 0x20000,
  PF_OutFlag_FORCE_RERENDER = 0x400000,
  PF_OutFlag_I_HAVE_EXTERNAL_DEPENDENCIES = 0x1000000,
  PF_OutFlag_DEEP_COLOR_AWARE = 0x2000000,
  PF_OutFlag_SEND_UPDATE_PARAMS_UI = 0x4000000,
  PF_OutFlag_AUDIO_EFFECT_TOO = 0x40000000,
  PF_OutFlag_AUDIO_EFFECT_ONLY = -0x7FFFFFFF - 1,
};

// Output flags, second word.
enum {
  PF_OutFlag2_SUPPORTS_QUERY_DYNAMIC_FLAGS = 0x1,
  PF_OutFlag2_PARAM_GROUP_START_COLLAPSED_FLAG = 0x8,
  PF_OutFlag2_REVEALS_ZERO_ALPHA = 0x80,
  PF_OutFlag2_SUPPORTS_SMART_RENDER = 0x400,
  PF_OutFlag2_FLOAT_COLOR_AWARE = 0x1000,
  PF_OutFlag2_AUTOMATIC_WIDE_TIME_INPUT = 0x20000,
  PF_OutFlag2_AE13_5_THREADSAFE = 0x400000,
  PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA = 0x800000,
};

// Applications.
enum {
  kAppId_AfterEffects = 0x46585443,
  kAppId_PremierePro = 0x50724D72,
};

// Quality, fields and channels of a request.
enum {
  PF_Quality_DRAWING_AUDIO = -1,
  PF_Quality_LO = 0,
  PF_Quality_HI = 1,
  PF_Field_FRAME = 0,
  PF_Field_UPPER = 1,
  PF_Field_LOWER = 2,
  PF_ChannelMask_ARGB = 15,
};

// The version word: bits 0-8 build, 9-10 stage, 11-14 bug fix, 15-18 minor, 19-21 major low bits, 26-29 major high
// bits.
enum {
  PF_Stage_DEVELOP = 0,
  PF_Stage_RELEASE = 3,
};

typedef struct SPBasicSuite {
  SPErr (*AcquireSuite)(const char* name, int32_t version, const void** suite);
  SPErr (*ReleaseSuite)(const char* name, int32_t version);
  SPBoolean (*IsEqual)(const char* token1, const char* token2);
  SPErr (*AllocateBlock)(size_t size, void** block);
  SPErr (*FreeBlock)(void* block);
  SPErr (*ReallocateBlock)(void* block, size_t new_size, void** newblock);
  SPErr (*Undefined)(void);
} SPBasicSuite;

typedef struct PF_InteractCallbacks {
  PF_Err (*checkout_param)(PF_ProgPtr effect, PF_ParamIndex param_index, A_long time, A_long time_step,
                           A_u_long time_scale, PF_ParamDef* param);
  PF_Err (*checkin_param)(PF_ProgPtr effect, PF_ParamDef* param);
  PF_Err (*add_param)(PF_ProgPtr effect, PF_ParamIndex param_index, PF_ParamDefPtr definition);
  PF_Err (*abort)(PF_ProgPtr effect);
  PF_Err (*progress)(PF_ProgPtr effect, A_long current, A_long total);
  PF_Err (*register_ui)(PF_ProgPtr effect, PF_CustomUIInfo* ui_info);
  PF_Err (*checkout_layer_audio)(PF_ProgPtr effect, PF_ParamIndex param_index, A_long start_time, A_long duration,
                                 A_u_long time_scale, PF_UFixed rate, A_long bytes_per_sample, A_long num_channels,
                                 A_long fmt_signed, PF_LayerAudio* audio);
  PF_Err (*checkin_layer_audio)(PF_ProgPtr effect, PF_LayerAudio audio);
  PF_Err (*get_audio_data)(PF_ProgPtr effect, PF_LayerAudio audio, PF_SndSamplePtr* data, A_long* num_samples,
                           PF_UFixed* rate, A_long* bytes_per_sample, A_long* num_channels, A_long* fmt_signed);
  void* reserved_str[3];
  void* reserved[10];
} PF_InteractCallbacks;

typedef struct PF_SpecVersion {
  A_short major;
  A_short minor;
} PF_SpecVersion;

typedef struct PF_SoundFormatInfo {
  PF_FpLong rateF;
  PF_SoundChannels num_channels;
  PF_SoundFormat format;
  PF_SoundSampleSize sample_size;
} PF_SoundFormatInfo;

typedef struct PF_SoundWorld {
  PF_SoundFormatInfo fi;
  A_long num_samples;
  void* dataP;
} PF_SoundWorld;

typedef struct PF_InData {
  PF_InteractCallbacks inter;
  PF_UtilCallbacks* utils;
  PF_ProgPtr effect_ref;
  PF_Quality quality;
  PF_SpecVersion version;
  A_long serial_num;
  A_AppID appl_id;
  A_long num_params;
  A_long reserved;
  A_long what_cpu;
  A_long what_fpu;
  A_long current_time;
  A_long time_step;
  A_long total_time;
  A_long local_time_step;
  A_u_long time_scale;
  PF_Field field;
  PF_Fixed shutter_angle;
  A_long width;
  A_long height;
  PF_Rect extent_hint;
  A_long output_origin_x;
  A_long output_origin_y;
  PF_RationalScale downsample_x;
  PF_RationalScale downsample_y;
  PF_RationalScale pixel_aspect_ratio;
  PF_InFlags in_flags;
  PF_Handle global_data;
  PF_Handle sequence_data;
  PF_Handle frame_data;
  A_long start_sampL;
  A_long dur_sampL;
  A_long total_sampL;
  PF_SoundWorld src_snd;
  SPBasicSuite* pica_basicP;
  A_long pre_effect_source_origin_x;
  A_long pre_effect_source_origin_y;
  PF_Fixed shutter_phase;
} PF_InData;

typedef struct PF_OutData {
  A_u_long my_version;
  A_char name[32];
  PF_Handle global_data;
  A_long num_params;
  PF_Handle sequence_data;
  A_long flat_sdata_size;
  PF_Handle frame_data;
  A_long width;
  A_long height;
  PF_Point origin;
  PF_OutFlags out_flags;
  A_char return_msg[256];
  A_long start_sampL;
  A_long dur_sampL;
  PF_SoundWorld dest_snd;
  PF_OutFlags2 out_flags2;
} PF_OutData;

#ifdef __cplusplus
}
#endif

#endif
