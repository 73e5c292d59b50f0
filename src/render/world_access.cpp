#include "render/world_access.h"

#include <cstdlib>

#include "host/application.h"
#include "render/kernels/streaming.h"

namespace quiltor {
namespace {

// What the row callbacks need, for all rows of one world.
struct RowContext {
  const PF_InData& in;
  WorldFormat format;
  uint8_t* world;
  ptrdiff_t worldRowBytes;  // negative when the last row lies first in memory
  uint8_t* copy;
  ptrdiff_t copyRowBytes;
  size_t count;  // pixels in a row
  float k;       // factor on the result's channels
  bool streams;  // what is written, past the caches

  void* worldRow(A_long row) const { return world + row * worldRowBytes; }
  void* copyRow(A_long row) const { return copy + row * copyRowBytes; }
};

// Deliberate: a row is converted even when the host asks to abort; the host stops the iteration by itself.
template <class Convert>
PF_Err convertRow(void* context, A_long thread, const Convert& convert) {
  return hostBoundary([&] {
    const RowContext& rows = *static_cast<const RowContext*>(context);
    const HostErr abort = thread == 0 ? askAbort(rows.in) : PF_Err_NONE;
    convert(rows);
    return abort;
  });
}

PF_Err readRow(void* context, A_long thread, A_long row, A_long) {
  return convertRow(context, thread, [row](const RowContext& rows) {
    readWorldRow(rows.format, rows.worldRow(row), rows.count, rows.copyRow(row), rows.streams);
    if (rows.streams) finishStreaming();
  });
}

PF_Err writeRow(void* context, A_long thread, A_long row, A_long) {
  return convertRow(context, thread, [row](const RowContext& rows) {
    const auto* result = static_cast<const float*>(rows.copyRow(row));
    writeWorldRow(rows.format, result, rows.k, rows.count, rows.worldRow(row), rows.streams);
    if (rows.streams) finishStreaming();
  });
}

RowContext rowsOf(const PF_InData& in, const PF_EffectWorld& world, WorldFormat format, void* copy, int32_t rowBytes) {
  const int64_t width = world.width;
  if (std::llabs(int64_t{world.rowbytes}) < width * static_cast<int64_t>(bytesPerPixel(format))) {
    throwHostError(PF_Err_BAD_CALLBACK_PARAM);
  }
  return {.in = in,
          .format = format,
          .world = reinterpret_cast<uint8_t*>(world.data),
          .worldRowBytes = world.rowbytes,
          .copy = static_cast<uint8_t*>(copy),
          .copyRowBytes = rowBytes,
          .count = static_cast<size_t>(width),
          .k = 1,
          .streams = false};
}

}  // namespace

WorldFormat WorldAccess::formatOf(const PF_EffectWorld& world) const {
  if (isVideoEditor(in_) && formats_) {
    PrPixelFormat format = 0;
    PF_EffectWorld asked = world;
    if (formats_->GetPixelFormat(&asked, &format) == PF_Err_NONE) {
      if (format == PrPixelFormat_BGRA_4444_8u) return WorldFormat::Bgra8;
      if (format == PrPixelFormat_BGRA_4444_32f || format == PrPixelFormat_BGRA_4444_32f_Linear) {
        return WorldFormat::BgraFloat;
      }
    }
    // Other layers come alpha first there too.
  }
  PF_PixelFormat format = PF_PixelFormat_INVALID;
  if (const HostErr code = worlds_->PF_GetPixelFormat(&world, &format)) throwHostError(code);
  switch (format) {
    case PF_PixelFormat_ARGB32:
      return WorldFormat::Argb8;
    case PF_PixelFormat_ARGB64:
      return WorldFormat::Argb16;
    case PF_PixelFormat_ARGB128:
      return WorldFormat::ArgbFloat;
  }
  throwHostError(PF_Err_BAD_CALLBACK_PARAM);
}

HostErr WorldAccess::read(const PF_EffectWorld& world, WorldFormat format, const WorldRecord& copy) const {
  RowContext context = rowsOf(in_, world, format, copy.pixels, copy.rowBytes);
  context.streams = int64_t{copy.rowBytes} * copy.height > kStreamedBytes;
  return overRows(copy.height, &context, readRow);
}

HostErr WorldAccess::write(const ResultRecord& result, WorldFormat format, const PF_EffectWorld& world) const {
  RowContext context = rowsOf(in_, world, format, result.pixels, result.rowBytes);
  context.streams = std::llabs(int64_t{world.rowbytes}) * result.height > kStreamedBytes;
  return overRows(result.height, &context, writeRow);
}

HostErr WorldAccess::overRows(A_long rows, void* context, RowWorker worker) const {
  if (iterate_.iterate_generic) return iterate_.iterate_generic(rows, context, worker);
  for (A_long row = 0; row < rows; ++row) {
    if (const HostErr code = worker(context, 0, row, rows)) return code;
  }
  return PF_Err_NONE;
}

}  // namespace quiltor
