// The interface is a C interface: every header must be one that a C compiler accepts.
#include "hostapi/basic_types.h"
#include "hostapi/custom_ui.h"
#include "hostapi/effect.h"
#include "hostapi/params.h"
#include "hostapi/pixels.h"
#include "hostapi/smart_render.h"
#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"
