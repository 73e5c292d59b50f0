// A shared library that is no effect.
#include "hostapi/export.h"

QUILTOR_EXPORT int someFunction() { return 0; }
