#pragma once

#include <cstddef>
#include <cstdint>

#include "render/kernels/composite.h"

namespace quiltor {

// The pixel formats of host worlds: the order of the channels in memory, then what a channel is. 16-bit channels reach
// from 0 to 32768.
enum class WorldFormat : int32_t { Argb8, Argb16, ArgbFloat, Bgra8, BgraFloat };

size_t bytesPerPixel(WorldFormat format);

// How the private copy of such a world keeps its channels: bytes stay bytes, everything else becomes float.
ChannelType channelType(WorldFormat format);

// One row of a world into its private copy, four channels R, G, B, A. Rows need not be aligned. With `streams` the copy
// is written past the caches; finishStreaming() has to follow on the same thread then.
void readWorldRow(WorldFormat format, const void* world, size_t count, void* copy, bool streams = false);

// One row of the result, four floats R, G, B, A, into a world, every channel multiplied by k. 8- and 16-bit channels
// are clamped to 0 .. 1 and rounded; a not-a-number becomes 0 in them. Float channels are written as they are.
// `streams` is as above.
void writeWorldRow(WorldFormat format, const float* result, float k, size_t count, void* world, bool streams = false);

}  // namespace quiltor
