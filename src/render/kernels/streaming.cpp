#include "render/kernels/streaming.h"

#include <hwy/cache_control.h>

namespace quiltor {

void finishStreaming() { hwy::FlushStream(); }

}  // namespace quiltor
