#pragma once

#include <string>

#include "host/sequence_data.h"
#include "hostapi/effect.h"

namespace quiltor {

// Whether the host is asked to redraw its windows after a load: only a call that a click caused may do so.
enum class Redraw { No, Yes };

// Resolves a pattern reference (image path, "*", library label, "*", library name, "*"), loads the picture into the
// instance and derives its 50 by 50 preview. On return reference holds the resolved path alone. A picture that cannot
// be loaded leaves what its loader leaves; a path that is neither PNG nor JPEG gives the placeholder. The pictures are
// decoded first and exchanged under the render mutex. Throws 516 when the host lacks its advanced application suite.
void loadPatternReference(SequenceData& instance, std::string& reference, const PF_InData& in, Redraw redraw);

}  // namespace quiltor
