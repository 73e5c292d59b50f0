#pragma once

#include "host/host_error.h"
#include "host/scoped_suite.h"
#include "host/suite_handler.h"
#include "hostapi/effect.h"
#include "render/kernels/convert.h"
#include "render/render_block.h"

namespace quiltor {

// Reads and writes the host's worlds for one render: asks for their formats and converts their rows on the host's
// threads.
class WorldAccess {
 public:
  // iterate, worlds and formats must outlive this; formats may hold no suite outside the video editor.
  WorldAccess(const PF_InData& in, const PF_Iterate8Suite1& iterate, const ScopedSuite<PF_WorldSuite2>& worlds,
              const ScopedSuite<PF_PixelFormatSuite>& formats)
      : in_(in), iterate_(iterate), worlds_(worlds), formats_(formats) {}

  // Throws the host's code when it cannot tell, and 516 when it names a format that the effect never declared.
  WorldFormat formatOf(const PF_EffectWorld& world) const;

  // Every row of the world into the record's copy. Return the host's code, such as a request to abort.
  HostErr read(const PF_EffectWorld& world, WorldFormat format, const WorldRecord& copy) const;
  // Every row of the result into the world, which has the same size.
  HostErr write(const ResultRecord& result, WorldFormat format, const PF_EffectWorld& world) const;

 private:
  using RowWorker = PF_Err (*)(void* context, A_long thread, A_long row, A_long rows);
  HostErr overRows(A_long rows, void* context, RowWorker worker) const;

  const PF_InData& in_;
  const PF_Iterate8Suite1& iterate_;
  const ScopedSuite<PF_WorldSuite2>& worlds_;
  const ScopedSuite<PF_PixelFormatSuite>& formats_;
};

// Whether the user wants the frame no more. Only on the render's own thread and on the host's thread 0.
inline HostErr askAbort(const PF_InData& in) { return in.inter.abort ? in.inter.abort(in.effect_ref) : PF_Err_NONE; }

// A world without pixels: no layer was chosen, or nothing of it is in the frame.
inline bool hasPixels(const PF_EffectWorld& world) { return world.data && world.width > 0 && world.height > 0; }

}  // namespace quiltor
