#pragma once

#include "hostapi/effect.h"

// The table behind the input record's `utils`. Slots that nobody here serves keep their place as unused words.
struct PF_UtilCallbacks {
  void* unused0_152[20];
  PF_Handle (*host_new_handle)(A_HandleSize size);
  void* (*host_lock_handle)(PF_Handle handle);
  void (*host_unlock_handle)(PF_Handle handle);
  void (*host_dispose_handle)(PF_Handle handle);
  void* unused192_432[31];
  A_HandleSize (*host_get_handle_size)(PF_Handle handle);
  void* unused448;
  PF_Err (*iterate_generic)(A_long iterations, void* refcon,
                            PF_Err (*worker)(void* refcon, A_long thread_index, A_long iteration, A_long iterations));
  void* unused464_544[11];
};

static_assert(sizeof(PF_UtilCallbacks) == 552);
static_assert(offsetof(PF_UtilCallbacks, host_new_handle) == 160);
static_assert(offsetof(PF_UtilCallbacks, host_dispose_handle) == 184);
static_assert(offsetof(PF_UtilCallbacks, host_get_handle_size) == 440);
static_assert(offsetof(PF_UtilCallbacks, iterate_generic) == 456);
