// Holds every record and suite table against the published layout of the 64-bit host interface: sizes, alignments,
// offsets. Both sides of the interface are built from these headers here, so a wrong offset would show in no other
// test.
#include "hostapi/custom_ui.h"
#include "hostapi/effect.h"
#include "hostapi/smart_render.h"
#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"

// clang-format off
#define RECORD(type, size, alignment) \
  static_assert(sizeof(type) == (size) && alignof(type) == (alignment), #type " has another size or alignment")
#define AT(type, member, offset, size) \
  static_assert(offsetof(type, member) == (offset) && sizeof(type::member) == (size), #type "::" #member " lies elsewhere")

RECORD(A_Time, 8, 4);
AT(A_Time, value, 0, 4);
AT(A_Time, scale, 4, 4);

RECORD(A_Ratio, 8, 4);
AT(A_Ratio, num, 0, 4);
AT(A_Ratio, den, 4, 4);

RECORD(PF_Point, 8, 4);
AT(PF_Point, h, 0, 4);
AT(PF_Point, v, 4, 4);

RECORD(PF_LRect, 16, 4);
AT(PF_LRect, left, 0, 4);
AT(PF_LRect, top, 4, 4);
AT(PF_LRect, right, 8, 4);
AT(PF_LRect, bottom, 12, 4);

RECORD(PF_RationalScale, 8, 4);
AT(PF_RationalScale, num, 0, 4);
AT(PF_RationalScale, den, 4, 4);

RECORD(PF_Pixel, 4, 1);
AT(PF_Pixel, alpha, 0, 1);
AT(PF_Pixel, red, 1, 1);
AT(PF_Pixel, green, 2, 1);
AT(PF_Pixel, blue, 3, 1);

RECORD(PF_Pixel16, 8, 2);
AT(PF_Pixel16, alpha, 0, 2);
AT(PF_Pixel16, red, 2, 2);
AT(PF_Pixel16, green, 4, 2);
AT(PF_Pixel16, blue, 6, 2);

RECORD(PF_PixelFloat, 16, 4);
AT(PF_PixelFloat, alpha, 0, 4);
AT(PF_PixelFloat, red, 4, 4);
AT(PF_PixelFloat, green, 8, 4);
AT(PF_PixelFloat, blue, 12, 4);

RECORD(PF_LayerDef, 120, 8);
AT(PF_LayerDef, reserved0, 0, 8);
AT(PF_LayerDef, reserved1, 8, 8);
AT(PF_LayerDef, world_flags, 16, 4);
AT(PF_LayerDef, data, 24, 8);
AT(PF_LayerDef, rowbytes, 32, 4);
AT(PF_LayerDef, width, 36, 4);
AT(PF_LayerDef, height, 40, 4);
AT(PF_LayerDef, extent_hint, 44, 16);
AT(PF_LayerDef, platform_ref, 64, 8);
AT(PF_LayerDef, reserved_long1, 72, 4);
AT(PF_LayerDef, reserved_long4, 80, 8);
AT(PF_LayerDef, pix_aspect_ratio, 88, 8);
AT(PF_LayerDef, reserved_long2, 96, 8);
AT(PF_LayerDef, origin_x, 104, 4);
AT(PF_LayerDef, origin_y, 108, 4);
AT(PF_LayerDef, reserved_long3, 112, 4);
AT(PF_LayerDef, dephault, 116, 4);

RECORD(PF_SliderDef, 88, 4);
AT(PF_SliderDef, value, 0, 4);
AT(PF_SliderDef, value_str, 4, 32);
AT(PF_SliderDef, value_desc, 36, 32);
AT(PF_SliderDef, valid_min, 68, 4);
AT(PF_SliderDef, valid_max, 72, 4);
AT(PF_SliderDef, slider_min, 76, 4);
AT(PF_SliderDef, slider_max, 80, 4);
AT(PF_SliderDef, dephault, 84, 4);

RECORD(PF_FixedSliderDef, 92, 4);
AT(PF_FixedSliderDef, value, 0, 4);
AT(PF_FixedSliderDef, value_str, 4, 32);
AT(PF_FixedSliderDef, value_desc, 36, 32);
AT(PF_FixedSliderDef, valid_min, 68, 4);
AT(PF_FixedSliderDef, valid_max, 72, 4);
AT(PF_FixedSliderDef, slider_min, 76, 4);
AT(PF_FixedSliderDef, slider_max, 80, 4);
AT(PF_FixedSliderDef, dephault, 84, 4);
AT(PF_FixedSliderDef, precision, 88, 2);
AT(PF_FixedSliderDef, display_flags, 90, 2);

RECORD(PF_AngleDef, 16, 4);
AT(PF_AngleDef, value, 0, 4);
AT(PF_AngleDef, dephault, 4, 4);
AT(PF_AngleDef, valid_min, 8, 4);
AT(PF_AngleDef, valid_max, 12, 4);

RECORD(PF_CheckBoxDef_u, 8, 8);
AT(PF_CheckBoxDef_u, nameptr, 0, 8);

RECORD(PF_CheckBoxDef, 16, 8);
AT(PF_CheckBoxDef, value, 0, 4);
AT(PF_CheckBoxDef, dephault, 4, 1);
AT(PF_CheckBoxDef, reserved, 5, 1);
AT(PF_CheckBoxDef, reserved1, 6, 2);
AT(PF_CheckBoxDef, u, 8, 8);

RECORD(PF_ColorDef, 8, 1);
AT(PF_ColorDef, value, 0, 4);
AT(PF_ColorDef, dephault, 4, 4);

RECORD(PF_PointDef, 20, 4);
AT(PF_PointDef, x_value, 0, 4);
AT(PF_PointDef, y_value, 4, 4);
AT(PF_PointDef, reserved, 8, 3);
AT(PF_PointDef, restrict_bounds, 11, 1);
AT(PF_PointDef, x_dephault, 12, 4);
AT(PF_PointDef, y_dephault, 16, 4);

RECORD(PF_PopupDef_u, 8, 8);
AT(PF_PopupDef_u, namesptr, 0, 8);

RECORD(PF_PopupDef, 16, 8);
AT(PF_PopupDef, value, 0, 4);
AT(PF_PopupDef, num_choices, 4, 2);
AT(PF_PopupDef, dephault, 6, 2);
AT(PF_PopupDef, u, 8, 8);

RECORD(PF_FloatSliderDef, 88, 8);
AT(PF_FloatSliderDef, value, 0, 8);
AT(PF_FloatSliderDef, phase, 8, 8);
AT(PF_FloatSliderDef, value_desc, 16, 32);
AT(PF_FloatSliderDef, valid_min, 48, 4);
AT(PF_FloatSliderDef, valid_max, 52, 4);
AT(PF_FloatSliderDef, slider_min, 56, 4);
AT(PF_FloatSliderDef, slider_max, 60, 4);
AT(PF_FloatSliderDef, dephault, 64, 4);
AT(PF_FloatSliderDef, precision, 68, 2);
AT(PF_FloatSliderDef, display_flags, 70, 2);
AT(PF_FloatSliderDef, fs_flags, 72, 4);
AT(PF_FloatSliderDef, curve_tolerance, 76, 4);
AT(PF_FloatSliderDef, useExponent, 80, 1);
AT(PF_FloatSliderDef, exponent, 84, 4);

RECORD(PF_ArbitraryDef, 32, 8);
AT(PF_ArbitraryDef, id, 0, 2);
AT(PF_ArbitraryDef, pad, 2, 2);
AT(PF_ArbitraryDef, dephault, 8, 8);
AT(PF_ArbitraryDef, value, 16, 8);
AT(PF_ArbitraryDef, refconPV, 24, 8);

RECORD(PF_PathDef, 12, 4);
AT(PF_PathDef, path_id, 0, 4);
AT(PF_PathDef, reserved0, 4, 4);
AT(PF_PathDef, dephault, 8, 4);

RECORD(PF_ButtonDef_u, 8, 8);
AT(PF_ButtonDef_u, namesptr, 0, 8);

RECORD(PF_ButtonDef, 16, 8);
AT(PF_ButtonDef, value, 0, 4);
AT(PF_ButtonDef, u, 8, 8);

RECORD(PF_Point3DDef, 64, 8);
AT(PF_Point3DDef, x_value, 0, 8);
AT(PF_Point3DDef, y_value, 8, 8);
AT(PF_Point3DDef, z_value, 16, 8);
AT(PF_Point3DDef, x_dephault, 24, 8);
AT(PF_Point3DDef, y_dephault, 32, 8);
AT(PF_Point3DDef, z_dephault, 40, 8);
AT(PF_Point3DDef, reserved, 48, 16);

RECORD(PF_ParamDefUnion, 120, 8);
AT(PF_ParamDefUnion, ld, 0, 120);
AT(PF_ParamDefUnion, sd, 0, 88);
AT(PF_ParamDefUnion, fd, 0, 92);
AT(PF_ParamDefUnion, ad, 0, 16);
AT(PF_ParamDefUnion, bd, 0, 16);
AT(PF_ParamDefUnion, cd, 0, 8);
AT(PF_ParamDefUnion, td, 0, 20);
AT(PF_ParamDefUnion, pd, 0, 16);
AT(PF_ParamDefUnion, fs_d, 0, 88);
AT(PF_ParamDefUnion, arb_d, 0, 32);
AT(PF_ParamDefUnion, path_d, 0, 12);
AT(PF_ParamDefUnion, button_d, 0, 16);
AT(PF_ParamDefUnion, point3d_d, 0, 64);

RECORD(PF_ParamDef_uu, 4, 4);
AT(PF_ParamDef_uu, id, 0, 4);
AT(PF_ParamDef_uu, change_flags, 0, 4);

RECORD(PF_ParamDef, 176, 8);
AT(PF_ParamDef, uu, 0, 4);
AT(PF_ParamDef, ui_flags, 4, 4);
AT(PF_ParamDef, ui_width, 8, 2);
AT(PF_ParamDef, ui_height, 10, 2);
AT(PF_ParamDef, param_type, 12, 4);
AT(PF_ParamDef, name, 16, 32);
AT(PF_ParamDef, flags, 48, 4);
AT(PF_ParamDef, unused, 52, 4);
AT(PF_ParamDef, u, 56, 120);

RECORD(PF_UserChangedParamExtra, 4, 4);
AT(PF_UserChangedParamExtra, param_index, 0, 4);

RECORD(PF_CustomUIInfo, 44, 4);
AT(PF_CustomUIInfo, reserved, 0, 4);
AT(PF_CustomUIInfo, events, 4, 4);
AT(PF_CustomUIInfo, comp_ui_width, 8, 4);
AT(PF_CustomUIInfo, comp_ui_height, 12, 4);
AT(PF_CustomUIInfo, comp_ui_alignment, 16, 4);
AT(PF_CustomUIInfo, layer_ui_width, 20, 4);
AT(PF_CustomUIInfo, layer_ui_height, 24, 4);
AT(PF_CustomUIInfo, layer_ui_alignment, 28, 4);
AT(PF_CustomUIInfo, preview_ui_width, 32, 4);
AT(PF_CustomUIInfo, preview_ui_height, 36, 4);
AT(PF_CustomUIInfo, preview_ui_alignment, 40, 4);

RECORD(SPBasicSuite, 56, 8);
AT(SPBasicSuite, AcquireSuite, 0, 8);
AT(SPBasicSuite, ReleaseSuite, 8, 8);
AT(SPBasicSuite, IsEqual, 16, 8);
AT(SPBasicSuite, AllocateBlock, 24, 8);
AT(SPBasicSuite, FreeBlock, 32, 8);
AT(SPBasicSuite, ReallocateBlock, 40, 8);
AT(SPBasicSuite, Undefined, 48, 8);

RECORD(PF_InteractCallbacks, 176, 8);
AT(PF_InteractCallbacks, checkout_param, 0, 8);
AT(PF_InteractCallbacks, checkin_param, 8, 8);
AT(PF_InteractCallbacks, add_param, 16, 8);
AT(PF_InteractCallbacks, abort, 24, 8);
AT(PF_InteractCallbacks, progress, 32, 8);
AT(PF_InteractCallbacks, register_ui, 40, 8);
AT(PF_InteractCallbacks, checkout_layer_audio, 48, 8);
AT(PF_InteractCallbacks, checkin_layer_audio, 56, 8);
AT(PF_InteractCallbacks, get_audio_data, 64, 8);
AT(PF_InteractCallbacks, reserved_str, 72, 24);
AT(PF_InteractCallbacks, reserved, 96, 80);

RECORD(PF_SpecVersion, 4, 2);
AT(PF_SpecVersion, major, 0, 2);
AT(PF_SpecVersion, minor, 2, 2);

RECORD(PF_SoundFormatInfo, 16, 8);
AT(PF_SoundFormatInfo, rateF, 0, 8);
AT(PF_SoundFormatInfo, num_channels, 8, 2);
AT(PF_SoundFormatInfo, format, 10, 2);
AT(PF_SoundFormatInfo, sample_size, 12, 2);

RECORD(PF_SoundWorld, 32, 8);
AT(PF_SoundWorld, fi, 0, 16);
AT(PF_SoundWorld, num_samples, 16, 4);
AT(PF_SoundWorld, dataP, 24, 8);

RECORD(PF_InData, 408, 8);
AT(PF_InData, inter, 0, 176);
AT(PF_InData, utils, 176, 8);
AT(PF_InData, effect_ref, 184, 8);
AT(PF_InData, quality, 192, 4);
AT(PF_InData, version, 196, 4);
AT(PF_InData, serial_num, 200, 4);
AT(PF_InData, appl_id, 204, 4);
AT(PF_InData, num_params, 208, 4);
AT(PF_InData, reserved, 212, 4);
AT(PF_InData, what_cpu, 216, 4);
AT(PF_InData, what_fpu, 220, 4);
AT(PF_InData, current_time, 224, 4);
AT(PF_InData, time_step, 228, 4);
AT(PF_InData, total_time, 232, 4);
AT(PF_InData, local_time_step, 236, 4);
AT(PF_InData, time_scale, 240, 4);
AT(PF_InData, field, 244, 4);
AT(PF_InData, shutter_angle, 248, 4);
AT(PF_InData, width, 252, 4);
AT(PF_InData, height, 256, 4);
AT(PF_InData, extent_hint, 260, 16);
AT(PF_InData, output_origin_x, 276, 4);
AT(PF_InData, output_origin_y, 280, 4);
AT(PF_InData, downsample_x, 284, 8);
AT(PF_InData, downsample_y, 292, 8);
AT(PF_InData, pixel_aspect_ratio, 300, 8);
AT(PF_InData, in_flags, 308, 4);
AT(PF_InData, global_data, 312, 8);
AT(PF_InData, sequence_data, 320, 8);
AT(PF_InData, frame_data, 328, 8);
AT(PF_InData, start_sampL, 336, 4);
AT(PF_InData, dur_sampL, 340, 4);
AT(PF_InData, total_sampL, 344, 4);
AT(PF_InData, src_snd, 352, 32);
AT(PF_InData, pica_basicP, 384, 8);
AT(PF_InData, pre_effect_source_origin_x, 392, 4);
AT(PF_InData, pre_effect_source_origin_y, 396, 4);
AT(PF_InData, shutter_phase, 400, 4);

RECORD(PF_OutData, 408, 8);
AT(PF_OutData, my_version, 0, 4);
AT(PF_OutData, name, 4, 32);
AT(PF_OutData, global_data, 40, 8);
AT(PF_OutData, num_params, 48, 4);
AT(PF_OutData, sequence_data, 56, 8);
AT(PF_OutData, flat_sdata_size, 64, 4);
AT(PF_OutData, frame_data, 72, 8);
AT(PF_OutData, width, 80, 4);
AT(PF_OutData, height, 84, 4);
AT(PF_OutData, origin, 88, 8);
AT(PF_OutData, out_flags, 96, 4);
AT(PF_OutData, return_msg, 100, 256);
AT(PF_OutData, start_sampL, 356, 4);
AT(PF_OutData, dur_sampL, 360, 4);
AT(PF_OutData, dest_snd, 368, 32);
AT(PF_OutData, out_flags2, 400, 4);

RECORD(PF_RenderRequest, 44, 4);
AT(PF_RenderRequest, rect, 0, 16);
AT(PF_RenderRequest, field, 16, 4);
AT(PF_RenderRequest, channel_mask, 20, 4);
AT(PF_RenderRequest, preserve_rgb_of_zero_alpha, 24, 1);
AT(PF_RenderRequest, unused, 25, 3);
AT(PF_RenderRequest, reserved, 28, 16);

RECORD(PF_CheckoutResult, 76, 4);
AT(PF_CheckoutResult, result_rect, 0, 16);
AT(PF_CheckoutResult, max_result_rect, 16, 16);
AT(PF_CheckoutResult, par, 32, 8);
AT(PF_CheckoutResult, solid, 40, 1);
AT(PF_CheckoutResult, reservedB, 41, 3);
AT(PF_CheckoutResult, ref_width, 44, 4);
AT(PF_CheckoutResult, ref_height, 48, 4);
AT(PF_CheckoutResult, reserved, 52, 24);

RECORD(PF_PreRenderInput, 64, 8);
AT(PF_PreRenderInput, output_request, 0, 44);
AT(PF_PreRenderInput, bitdepth, 44, 2);
AT(PF_PreRenderInput, gpu_data, 48, 8);
AT(PF_PreRenderInput, what_gpu, 56, 4);
AT(PF_PreRenderInput, device_index, 60, 4);

RECORD(PF_PreRenderOutput, 56, 8);
AT(PF_PreRenderOutput, result_rect, 0, 16);
AT(PF_PreRenderOutput, max_result_rect, 16, 16);
AT(PF_PreRenderOutput, solid, 32, 1);
AT(PF_PreRenderOutput, reserved, 33, 1);
AT(PF_PreRenderOutput, flags, 34, 2);
AT(PF_PreRenderOutput, pre_render_data, 40, 8);
AT(PF_PreRenderOutput, delete_pre_render_data_func, 48, 8);

RECORD(PF_PreRenderCallbacks, 16, 8);
AT(PF_PreRenderCallbacks, checkout_layer, 0, 8);
AT(PF_PreRenderCallbacks, GuidMixInPtr, 8, 8);

RECORD(PF_PreRenderExtra, 24, 8);
AT(PF_PreRenderExtra, input, 0, 8);
AT(PF_PreRenderExtra, output, 8, 8);
AT(PF_PreRenderExtra, cb, 16, 8);

RECORD(PF_SmartRenderInput, 72, 8);
AT(PF_SmartRenderInput, output_request, 0, 44);
AT(PF_SmartRenderInput, bitdepth, 44, 2);
AT(PF_SmartRenderInput, pre_render_data, 48, 8);
AT(PF_SmartRenderInput, gpu_data, 56, 8);
AT(PF_SmartRenderInput, what_gpu, 64, 4);
AT(PF_SmartRenderInput, device_index, 68, 4);

RECORD(PF_SmartRenderCallbacks, 24, 8);
AT(PF_SmartRenderCallbacks, checkout_layer_pixels, 0, 8);
AT(PF_SmartRenderCallbacks, checkin_layer_pixels, 8, 8);
AT(PF_SmartRenderCallbacks, checkout_output, 16, 8);

RECORD(PF_SmartRenderExtra, 16, 8);
AT(PF_SmartRenderExtra, input, 0, 8);
AT(PF_SmartRenderExtra, cb, 8, 8);

RECORD(PF_HandleSuite1, 48, 8);
AT(PF_HandleSuite1, host_new_handle, 0, 8);
AT(PF_HandleSuite1, host_lock_handle, 8, 8);
AT(PF_HandleSuite1, host_unlock_handle, 16, 8);
AT(PF_HandleSuite1, host_dispose_handle, 24, 8);
AT(PF_HandleSuite1, host_get_handle_size, 32, 8);

RECORD(PF_ANSICallbacksSuite1, 152, 8);
AT(PF_ANSICallbacksSuite1, sprintf, 120, 8);
AT(PF_ANSICallbacksSuite1, strcpy, 128, 8);

RECORD(PF_WorldSuite2, 24, 8);
AT(PF_WorldSuite2, PF_NewWorld, 0, 8);
AT(PF_WorldSuite2, PF_DisposeWorld, 8, 8);
AT(PF_WorldSuite2, PF_GetPixelFormat, 16, 8);

RECORD(PF_Iterate8Suite1, 40, 8);
AT(PF_Iterate8Suite1, iterate_generic, 32, 8);

RECORD(PF_PixelFormatSuite, 64, 8);
AT(PF_PixelFormatSuite, AddSupportedPixelFormat, 0, 8);
AT(PF_PixelFormatSuite, GetPixelFormat, 32, 8);

RECORD(PF_EffectUISuite1, 8, 8);
AT(PF_EffectUISuite1, PF_SetOptionsButtonName, 0, 8);

RECORD(PF_ParamUtilsSuite3, 72, 8);
AT(PF_ParamUtilsSuite3, PF_UpdateParamUI, 0, 8);

RECORD(PF_AdvAppSuite1, 80, 8);
AT(PF_AdvAppSuite1, PF_RefreshAllWindows, 40, 8);

RECORD(PF_PathQuerySuite1, 32, 8);
AT(PF_PathQuerySuite1, PF_NumPaths, 0, 8);
AT(PF_PathQuerySuite1, PF_PathInfo, 8, 8);
AT(PF_PathQuerySuite1, PF_CheckoutPath, 16, 8);
AT(PF_PathQuerySuite1, PF_CheckinPath, 24, 8);

RECORD(PF_PathDataSuite1, 88, 8);
AT(PF_PathDataSuite1, PF_PathIsInverted, 64, 8);

RECORD(PF_FillMatteSuite2, 56, 8);
AT(PF_FillMatteSuite2, fill, 0, 8);

RECORD(PF_MaskSuite1, 8, 8);
AT(PF_MaskSuite1, PF_MaskWorldWithPath, 0, 8);

RECORD(AEGP_TwoDVal, 16, 8);
AT(AEGP_TwoDVal, x, 0, 8);
AT(AEGP_TwoDVal, y, 8, 8);

RECORD(AEGP_ThreeDVal, 24, 8);
AT(AEGP_ThreeDVal, x, 0, 8);
AT(AEGP_ThreeDVal, y, 8, 8);
AT(AEGP_ThreeDVal, z, 16, 8);

RECORD(AEGP_ColorVal, 32, 8);
AT(AEGP_ColorVal, alphaF, 0, 8);
AT(AEGP_ColorVal, redF, 8, 8);
AT(AEGP_ColorVal, greenF, 16, 8);
AT(AEGP_ColorVal, blueF, 24, 8);

RECORD(AEGP_StreamVal, 32, 8);
AT(AEGP_StreamVal, four_d, 0, 32);
AT(AEGP_StreamVal, three_d, 0, 24);
AT(AEGP_StreamVal, two_d, 0, 16);
AT(AEGP_StreamVal, one_d, 0, 8);
AT(AEGP_StreamVal, color, 0, 32);
AT(AEGP_StreamVal, arbH, 0, 8);
AT(AEGP_StreamVal, markerH, 0, 8);
AT(AEGP_StreamVal, layer_id, 0, 4);
AT(AEGP_StreamVal, mask_id, 0, 4);
AT(AEGP_StreamVal, mask, 0, 8);
AT(AEGP_StreamVal, text_documentH, 0, 8);

RECORD(AEGP_StreamValue, 40, 8);
AT(AEGP_StreamValue, streamH, 0, 8);
AT(AEGP_StreamValue, val, 8, 32);

RECORD(AEGP_StreamVal2, 32, 8);
AT(AEGP_StreamVal2, four_d, 0, 32);
AT(AEGP_StreamVal2, three_d, 0, 24);
AT(AEGP_StreamVal2, two_d, 0, 16);
AT(AEGP_StreamVal2, one_d, 0, 8);
AT(AEGP_StreamVal2, color, 0, 32);
AT(AEGP_StreamVal2, arbH, 0, 8);
AT(AEGP_StreamVal2, markerP, 0, 8);
AT(AEGP_StreamVal2, layer_id, 0, 4);
AT(AEGP_StreamVal2, mask_id, 0, 4);
AT(AEGP_StreamVal2, mask, 0, 8);
AT(AEGP_StreamVal2, text_documentH, 0, 8);

RECORD(AEGP_StreamValue2, 40, 8);
AT(AEGP_StreamValue2, streamH, 0, 8);
AT(AEGP_StreamValue2, val, 8, 32);

RECORD(AEGP_UtilitySuite3, 200, 8);
AT(AEGP_UtilitySuite3, AEGP_RegisterWithAEGP, 56, 8);

RECORD(AEGP_UtilitySuite5, 248, 8);
AT(AEGP_UtilitySuite5, AEGP_IsScriptingAvailable, 208, 8);
AT(AEGP_UtilitySuite5, AEGP_ExecuteScript, 216, 8);

RECORD(AEGP_MemorySuite1, 64, 8);
AT(AEGP_MemorySuite1, AEGP_FreeMemHandle, 8, 8);
AT(AEGP_MemorySuite1, AEGP_LockMemHandle, 16, 8);
AT(AEGP_MemorySuite1, AEGP_UnlockMemHandle, 24, 8);
AT(AEGP_MemorySuite1, AEGP_GetMemHandleSize, 32, 8);

RECORD(AEGP_PFInterfaceSuite1, 40, 8);
AT(AEGP_PFInterfaceSuite1, AEGP_GetEffectLayer, 0, 8);
AT(AEGP_PFInterfaceSuite1, AEGP_GetNewEffectForEffect, 8, 8);

RECORD(AEGP_EffectSuite2, 136, 8);
AT(AEGP_EffectSuite2, AEGP_DisposeEffect, 64, 8);

RECORD(AEGP_StreamSuite2, 176, 8);
AT(AEGP_StreamSuite2, AEGP_GetNewLayerStream, 24, 8);
AT(AEGP_StreamSuite2, AEGP_GetNewEffectStreamByIndex, 40, 8);
AT(AEGP_StreamSuite2, AEGP_DisposeStream, 56, 8);
AT(AEGP_StreamSuite2, AEGP_GetNewStreamValue, 104, 8);
AT(AEGP_StreamSuite2, AEGP_DisposeStreamValue, 112, 8);

RECORD(AEGP_StreamSuite4, 176, 8);
AT(AEGP_StreamSuite4, AEGP_GetNewMaskStream, 48, 8);
AT(AEGP_StreamSuite4, AEGP_DisposeStream, 56, 8);
AT(AEGP_StreamSuite4, AEGP_GetNewStreamValue, 104, 8);
AT(AEGP_StreamSuite4, AEGP_DisposeStreamValue, 112, 8);

RECORD(AEGP_DynamicStreamSuite2, 136, 8);
AT(AEGP_DynamicStreamSuite2, AEGP_GetDynamicStreamFlags, 32, 8);
AT(AEGP_DynamicStreamSuite2, AEGP_SetDynamicStreamFlag, 40, 8);
AT(AEGP_DynamicStreamSuite2, AEGP_SetStreamName, 88, 8);

RECORD(AEGP_MaskSuite5, 152, 8);
AT(AEGP_MaskSuite5, AEGP_GetLayerNumMasks, 0, 8);
AT(AEGP_MaskSuite5, AEGP_GetLayerMaskByIndex, 8, 8);
AT(AEGP_MaskSuite5, AEGP_DisposeMask, 16, 8);
AT(AEGP_MaskSuite5, AEGP_GetMaskID, 72, 8);

RECORD(PF_Context, 72, 8);
AT(PF_Context, magic, 0, 4);
AT(PF_Context, w_type, 4, 4);
AT(PF_Context, reserved_flt, 8, 8);
AT(PF_Context, plugin_state, 16, 32);
AT(PF_Context, reserved_drawref, 48, 8);
AT(PF_Context, reserved_paneP, 56, 8);
AT(PF_Context, reserved_job_manageP, 64, 8);

RECORD(PF_EffectWindowInfo, 44, 4);
AT(PF_EffectWindowInfo, index, 0, 4);
AT(PF_EffectWindowInfo, area, 4, 4);
AT(PF_EffectWindowInfo, current_frame, 8, 16);
AT(PF_EffectWindowInfo, param_title_frame, 24, 16);
AT(PF_EffectWindowInfo, horiz_offset, 40, 4);

RECORD(PF_DoClickEventInfo, 64, 8);
AT(PF_DoClickEventInfo, when, 0, 4);
AT(PF_DoClickEventInfo, screen_point, 4, 8);
AT(PF_DoClickEventInfo, num_clicks, 12, 4);
AT(PF_DoClickEventInfo, modifiers, 16, 4);
AT(PF_DoClickEventInfo, continue_refcon, 24, 32);
AT(PF_DoClickEventInfo, send_drag, 56, 1);
AT(PF_DoClickEventInfo, last_time, 57, 1);

RECORD(PF_DrawEventInfo, 20, 4);
AT(PF_DrawEventInfo, update_rect, 0, 16);
AT(PF_DrawEventInfo, depth, 16, 4);

RECORD(PF_KeyDownEvent, 20, 4);
AT(PF_KeyDownEvent, when, 0, 4);
AT(PF_KeyDownEvent, screen_point, 4, 8);
AT(PF_KeyDownEvent, keycode, 12, 4);
AT(PF_KeyDownEvent, modifiers, 16, 4);

RECORD(PF_AdjustCursorEventInfo, 16, 4);
AT(PF_AdjustCursorEventInfo, screen_point, 0, 8);
AT(PF_AdjustCursorEventInfo, modifiers, 8, 4);
AT(PF_AdjustCursorEventInfo, set_cursor, 12, 4);

RECORD(PF_EventUnion, 64, 8);
AT(PF_EventUnion, do_click, 0, 64);
AT(PF_EventUnion, draw, 0, 20);
AT(PF_EventUnion, key_down, 0, 20);
AT(PF_EventUnion, adjust_cursor, 0, 16);

RECORD(PF_EventCallbacks, 72, 8);
AT(PF_EventCallbacks, refcon, 0, 8);
AT(PF_EventCallbacks, layer_to_comp, 8, 8);
AT(PF_EventCallbacks, comp_to_layer, 16, 8);
AT(PF_EventCallbacks, get_comp2layer_xform, 24, 8);
AT(PF_EventCallbacks, get_layer2comp_xform, 32, 8);
AT(PF_EventCallbacks, source_to_frame, 40, 8);
AT(PF_EventCallbacks, frame_to_source, 48, 8);
AT(PF_EventCallbacks, info_draw_color, 56, 8);
AT(PF_EventCallbacks, info_draw_text, 64, 8);

RECORD(PF_EventExtra, 208, 8);
AT(PF_EventExtra, contextH, 0, 8);
AT(PF_EventExtra, e_type, 8, 4);
AT(PF_EventExtra, u, 16, 64);
AT(PF_EventExtra, effect_win, 80, 44);
AT(PF_EventExtra, cbs, 128, 72);
AT(PF_EventExtra, evt_in_flags, 200, 4);
AT(PF_EventExtra, evt_out_flags, 204, 4);

RECORD(DRAWBOT_PointF32, 8, 4);
AT(DRAWBOT_PointF32, x, 0, 4);
AT(DRAWBOT_PointF32, y, 4, 4);

RECORD(PF_EffectCustomUISuite1, 8, 8);
AT(PF_EffectCustomUISuite1, PF_GetDrawingReference, 0, 8);

RECORD(DRAWBOT_DrawbotSuite1, 16, 8);
AT(DRAWBOT_DrawbotSuite1, GetSupplier, 0, 8);
AT(DRAWBOT_DrawbotSuite1, GetSurface, 8, 8);

RECORD(DRAWBOT_SupplierSuite1, 104, 8);
AT(DRAWBOT_SupplierSuite1, NewImageFromBuffer, 40, 8);
AT(DRAWBOT_SupplierSuite1, ReleaseObject, 96, 8);

RECORD(DRAWBOT_SurfaceSuite1, 128, 8);
AT(DRAWBOT_SurfaceSuite1, DrawImage, 80, 8);

RECORD(DRAWBOT_PathSuite1, 48, 8);
