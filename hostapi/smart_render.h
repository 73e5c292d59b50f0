// Smart rendering: pre-render declares what the frame needs, render delivers it. Both may run on any host thread,
// several at once. The host owns pre_render_data after pre-render and frees it with delete_pre_render_data_func, on any
// thread.
#ifndef QUILTOR_HOSTAPI_SMART_RENDER_H
#define QUILTOR_HOSTAPI_SMART_RENDER_H

#include "hostapi/params.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef A_long PF_ChannelMask;
typedef A_long PF_GPU_Framework;
typedef int16_t PF_RenderOutputFlags;
typedef void (*PF_DeletePreRenderDataFunc)(void* pre_render_data);

typedef struct PF_RenderRequest {
  PF_LRect rect;
  PF_Field field;
  PF_ChannelMask channel_mask;
  PF_Boolean preserve_rgb_of_zero_alpha;
  char unused[3];
  A_long reserved[4];
} PF_RenderRequest;

typedef struct PF_CheckoutResult {
  PF_LRect result_rect;
  PF_LRect max_result_rect;
  PF_RationalScale par;
  PF_Boolean solid;
  PF_Boolean reservedB[3];
  A_long ref_width;
  A_long ref_height;
  A_long reserved[6];
} PF_CheckoutResult;

typedef struct PF_PreRenderInput {
  PF_RenderRequest output_request;
  int16_t bitdepth;
  const void* gpu_data;
  PF_GPU_Framework what_gpu;
  A_u_long device_index;
} PF_PreRenderInput;

typedef struct PF_PreRenderOutput {
  PF_LRect result_rect;
  PF_LRect max_result_rect;
  PF_Boolean solid;
  PF_Boolean reserved;
  PF_RenderOutputFlags flags;
  void* pre_render_data;
  PF_DeletePreRenderDataFunc delete_pre_render_data_func;
} PF_PreRenderOutput;

typedef struct PF_PreRenderCallbacks {
  PF_Err (*checkout_layer)(PF_ProgPtr effect, PF_ParamIndex param_index, A_long checkout_id,
                           const PF_RenderRequest* request, A_long time, A_long time_step, A_u_long time_scale,
                           PF_CheckoutResult* checkout_result);
  PF_Err (*GuidMixInPtr)(PF_ProgPtr effect, A_u_long buf_size, const void* buf);
} PF_PreRenderCallbacks;

typedef struct PF_PreRenderExtra {
  PF_PreRenderInput* input;
  PF_PreRenderOutput* output;
  PF_PreRenderCallbacks* cb;
} PF_PreRenderExtra;

typedef struct PF_SmartRenderInput {
  PF_RenderRequest output_request;
  int16_t bitdepth;
  void* pre_render_data;
  const void* gpu_data;
  PF_GPU_Framework what_gpu;
  A_u_long device_index;
} PF_SmartRenderInput;

typedef struct PF_SmartRenderCallbacks {
  PF_Err (*checkout_layer_pixels)(PF_ProgPtr effect, A_long checkout_id, PF_EffectWorld** pixels);
  PF_Err (*checkin_layer_pixels)(PF_ProgPtr effect, A_long checkout_id);
  PF_Err (*checkout_output)(PF_ProgPtr effect, PF_EffectWorld** output);
} PF_SmartRenderCallbacks;

typedef struct PF_SmartRenderExtra {
  PF_SmartRenderInput* input;
  PF_SmartRenderCallbacks* cb;
} PF_SmartRenderExtra;

#ifdef __cplusplus
}
#endif

#endif
