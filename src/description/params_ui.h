#pragma once

#include "description/language/description.h"
#include "host/host_error.h"
#include "host/sequence_data.h"
#include "host/suite_handler.h"
#include "hostapi/effect.h"

namespace quiltor {

// What the host lets a call do to its panel.
enum class PanelRights {
  Streams,      // in an event
  Definitions,  // in a user's change of a parameter and in the refresh of the panel, too
};

// Shows, hides, enables and disables parameters as the switches among them have it, and writes the names of text
// parameters, in the host and in the instance's data (null: in the host alone). All switches are applied, whichever one
// changed. What the host lacks or refuses is left out. Main thread only.
void updateParamsUi(const Description& description, SuiteHandler& suites, const PF_InData& in, PF_ParamDef** params,
                    SequenceData* live, PanelRights rights);

// The handler of the two selectors for the panel.
HostErr paramsUiChanged(const Description& description, const PF_InData& in, PF_ParamDef** params);

}  // namespace quiltor
