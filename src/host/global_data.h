#pragma once

#include <cstddef>
#include <cstdint>

#include "hostapi/basic_types.h"

namespace quiltor {

// Anything that the effect creates after global setup and wants destroyed at global setdown. Its destructor may throw.
struct OwnedObject {
  virtual ~OwnedObject() noexcept(false) {}
};

// The effect's data for as long as the host has it loaded, inside a host handle.
struct GlobalData {
  uint32_t pluginId;  // 0 in the video editor
  uint8_t initialised;
  PF_Handle auxiliary;
  OwnedObject* owned;
  void* reserved;
};

static_assert(offsetof(GlobalData, pluginId) == 0);
static_assert(offsetof(GlobalData, initialised) == 4);
static_assert(offsetof(GlobalData, auxiliary) == 8);
static_assert(offsetof(GlobalData, owned) == 16);
static_assert(offsetof(GlobalData, reserved) == 24);
static_assert(sizeof(GlobalData) == 32);

}  // namespace quiltor
