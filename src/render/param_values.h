#pragma once

#include "description/language/description.h"
#include "hostapi/effect.h"
#include "render/render_block.h"

namespace quiltor {

// A checked-out parameter's value as a slot: menus and mask choosers counted from 0 (no mask is -1), fixed-point values
// by their whole part, colours as fractions. Layers, custom controls, buttons and groups have none.
ParamSlot slotOf(const ParamRecord& record, const PF_ParamDef& value);

// Routes the value of a parameter with a special code: 994 is the frame step, 900 + k word k. A positive code on a menu
// means the number that the chosen item's text shows, a negative one the item's place.
void routeSpecialValue(const ParamRecord& record, const PF_ParamDef& value, SpecialWords& words);

// The layer time at which a layer parameter is checked out. Its default says when: (N, 0) is N frame steps from now,
// (N, 1) frame N, and (N, anything else) every Nth frame, held. Never negative. shift is added to N.
A_long layerCheckoutTime(const ParamRecord& record, int32_t shift, const PF_InData& in, int32_t frameStep);

}  // namespace quiltor
