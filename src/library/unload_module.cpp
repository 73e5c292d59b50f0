// A module as a host would load it, with nothing in it but the conversion.
#include "library/library_conversion.h"

extern "C" __attribute__((visibility("default"))) void startConversionOfTheModule() {
  quiltor::startLibraryConversion();
}
