#include "render/kernels/pixel_run.h"

namespace quiltor {

bool isOpaque(const PixelRun& run, size_t count) {
  int others = 0;
  for (size_t i = 0; i < count; ++i) others |= run.a[i] == 1 ? 0 : 1;
  return others == 0;
}

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
