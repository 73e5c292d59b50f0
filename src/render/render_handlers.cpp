#include "render/render_handlers.h"

#include <vector>

#include "description/effect_description.h"
#include "render/param_values.h"
#include "render/render_driver.h"
#include "render/world_access.h"

namespace quiltor {
namespace {

// A frame's parameter values, checked out one by one and all checked in again at the end.
class Checkouts {
 public:
  Checkouts(const PF_InData& in, size_t count) : in_(in) { values_.reserve(count); }
  ~Checkouts() {
    for (PF_ParamDef& value : values_) in_.inter.checkin_param(in_.effect_ref, &value);
  }
  Checkouts(const Checkouts&) = delete;
  Checkouts& operator=(const Checkouts&) = delete;

  // The value lives as long as this, at one address: a host may know a checkout by that of its record. Throws the
  // host's code when the host refuses.
  const PF_ParamDef& checkOut(PF_ParamIndex index, A_long time) {
    PF_ParamDef& value = values_.emplace_back();
    const PF_Err code = in_.inter.checkout_param(in_.effect_ref, index, time, in_.time_step, in_.time_scale, &value);
    if (code != PF_Err_NONE) {
      values_.pop_back();
      throwHostError(code);
    }
    return value;
  }

 private:
  const PF_InData& in_;
  std::vector<PF_ParamDef> values_;
};

}  // namespace

HostErr render(PF_InData& in, PF_OutData& out, PF_ParamDef** params, PF_EffectWorld* output) {
  if (!params || !params[0] || !output) return PF_Err_BAD_CALLBACK_PARAM;
  const Description& description = effectDescription();
  RenderBlock block(description.settings);
  Checkouts checkouts(in, static_cast<size_t>(description.paramCount));
  const PF_EffectWorld& input = params[0]->u.ld;
  std::vector<const PF_EffectWorld*> worlds{&input};

  for (int32_t i = 1; i < description.paramCount; ++i) {
    const ParamRecord& record = description.params[static_cast<size_t>(i)];
    if (record.kind == ParamKind::Layer) {
      const A_long time = layerCheckoutTime(record, 0, in, block.special.frameStep);
      const PF_EffectWorld& layer = checkouts.checkOut(i, time).u.ld;
      worlds.push_back(hasPixels(layer) ? &layer : &input);
    } else {
      const PF_ParamDef& value = checkouts.checkOut(i, in.current_time);
      block.slots[static_cast<size_t>(i)] = slotOf(record, value);
      routeSpecialValue(record, value, block.special);
    }
  }

  if (const HostErr code = askAbort(in)) return code;
  return renderEffect(in, out, block, worlds, *output);
}

}  // namespace quiltor
