#pragma once

#include "host/host_error.h"
#include "host/scoped_suite.h"
#include "host/suite_handler.h"
#include "hostapi/effect.h"
#include "render/render_block.h"
#include "render/world_access.h"

namespace quiltor {

// The mask that limits a frame. Read before the render waits for its turn, like the layer's transform and for the same
// reason; drawn at the end of the render. The mask's path stays checked out for the life of this.
class MaskMatte {
 public:
  // number is the mask's identifier on the effect's layer; below 1 there is none. Throws nothing: a suite that is
  // missing is reported by apply().
  MaskMatte(SuiteHandler& suites, const PF_InData& in, AEGP_PluginID pluginId, int32_t number);
  ~MaskMatte();
  MaskMatte(const MaskMatte&) = delete;
  MaskMatte& operator=(const MaskMatte&) = delete;

  // Takes the drawn output back to the input where the mask leaves the layer out. Without a mask of that number, and
  // when the host failed while it was read, the output stays as it is. input and output must be of one format.
  HostErr apply(const ScopedSuite<PF_WorldSuite2>& worlds, const WorldAccess& access, PF_OutData& out,
                const RenderBlock& block, const PF_EffectWorld& input, const PF_EffectWorld& output);

 private:
  void read(AEGP_PluginID pluginId);

  SuiteHandler& suites_;
  const PF_InData& in_;
  const int32_t number_;
  HostErr missingSuite_ = PF_Err_NONE;
  const PF_FillMatteSuite2* fill_ = nullptr;
  const PF_PathQuerySuite1* paths_ = nullptr;  // while the path is checked out
  PF_PathOutlinePtr path_ = nullptr;
  bool whole_ = false;  // everything that drawing needs was read
  bool inverted_ = false;
  AEGP_TwoDVal feather_{};  // full-resolution pixels
};

}  // namespace quiltor
