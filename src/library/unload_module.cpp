// A module as a host would load it, with nothing in it but the conversion.
#include "hostapi/export.h"
#include "library/library_conversion.h"

QUILTOR_EXPORT void startConversionOfTheModule() { quiltor::startLibraryConversion(); }
