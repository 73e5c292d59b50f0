#include "render/kernels/pixel_run.h"

namespace quiltor {

void packRun(const PixelRun& run, size_t count, float* pixels) {
  for (size_t i = 0; i < count; ++i, pixels += 4) {
    pixels[0] = run.r[i];
    pixels[1] = run.g[i];
    pixels[2] = run.b[i];
    pixels[3] = run.a[i];
  }
}

void unpackRun(const float* pixels, size_t count, PixelRun& run) {
  for (size_t i = 0; i < count; ++i, pixels += 4) {
    run.r[i] = pixels[0];
    run.g[i] = pixels[1];
    run.b[i] = pixels[2];
    run.a[i] = pixels[3];
  }
}

}  // namespace quiltor
