#pragma once

#include "hostapi/effect.h"

namespace quiltor {

// What the effect tells the host of itself, at run time and in its resource. They must agree.
inline constexpr char kEffectName[] = "Quiltor";
inline constexpr char kEffectCategory[] = "Stylize";
// Known by this in saved projects: never to be changed.
inline constexpr char kEffectMatchName[] = "Quiltor";
inline constexpr char kEntryPointName[] = "EntryPointFunc";

// Major 1 begins at bit 19; minor and bug number are 0, the stage is development, the build is 1.
inline constexpr A_u_long kEffectVersion = 1u << 19 | 1u;
static_assert(kEffectVersion == 0x80001);

// The host interface that the effect was made for. A host refuses what is newer than itself.
inline constexpr A_u_short kInterfaceMajor = 13, kInterfaceMinor = 9;

inline constexpr PF_OutFlags kOutFlags = PF_OutFlag_NON_PARAM_VARY | PF_OutFlag_I_DO_DIALOG |
                                         PF_OutFlag_USE_OUTPUT_EXTENT | PF_OutFlag_CUSTOM_UI |
                                         PF_OutFlag_DEEP_COLOR_AWARE | PF_OutFlag_SEND_UPDATE_PARAMS_UI;
static_assert(kOutFlags == 0x6008064);

inline constexpr PF_OutFlags2 kOutFlags2 =
    PF_OutFlag2_PARAM_GROUP_START_COLLAPSED_FLAG | PF_OutFlag2_REVEALS_ZERO_ALPHA | PF_OutFlag2_SUPPORTS_SMART_RENDER |
    PF_OutFlag2_FLOAT_COLOR_AWARE | PF_OutFlag2_AUTOMATIC_WIDE_TIME_INPUT | PF_OutFlag2_AE13_5_THREADSAFE |
    PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA;
static_assert(kOutFlags2 == 0xC21488);

}  // namespace quiltor
