// How many pixels a second the kernels do on one core, a row of a high-definition frame at a time.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "render/kernels/blend_modes.h"
#include "render/kernels/blur.h"
#include "render/kernels/composite.h"
#include "render/kernels/convert.h"
#include "render/kernels/sample.h"

namespace quiltor {
namespace {

constexpr int32_t kWidth = 1920;

std::vector<float> randomFloats(size_t count) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> channel(0, 1);
  std::vector<float> values(count);
  for (float& value : values) value = channel(random);
  return values;
}

std::vector<uint8_t> randomBytes(size_t count) {
  std::mt19937 random(7);
  std::vector<uint8_t> values(count);
  for (uint8_t& value : values) value = static_cast<uint8_t>(random());
  return values;
}

void countPixels(benchmark::State& state, size_t pixels) {
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pixels));
}

PixelRun randomRun() {
  const std::vector<float> channels = randomFloats(4 * PixelRun::kLength);
  PixelRun run;
  unpackRun(channels.data(), PixelRun::kLength, run);
  return run;
}

void composite(benchmark::State& state, BlendMode mode) {
  const std::vector<uint8_t> input = randomBytes(4 * PixelRun::kLength);
  const PixelRun pattern = randomRun();
  std::vector<float> row(4 * PixelRun::kLength);
  for (auto _ : state) {
    compositeRun(pattern, input.data(), ChannelType::Byte, {static_cast<int32_t>(mode), 0.7}, PixelRun::kLength,
                 row.data());
    benchmark::DoNotOptimize(row.data());
  }
  countPixels(state, PixelRun::kLength);
}

void sample(benchmark::State& state, TileMode mode, ChannelType type) {
  const std::vector<uint8_t> bytes = randomBytes(256 * 256 * 4);
  const std::vector<float> floats = randomFloats(256 * 256 * 4);
  const bool isByte = type == ChannelType::Byte;
  const PatternPixels pattern{isByte ? static_cast<const void*>(bytes.data()) : floats.data(),
                              isByte ? bytes.size() : floats.size() * sizeof(float),
                              256,
                              256,
                              4,
                              type};
  SampleTransform transform{.offsetX = 960, .offsetY = 540, .cosine = 0.8, .sine = 0.6, .scaleFactor = 0.7};
  transform.tileMode = mode;
  PixelRun run;
  int32_t y = 0;
  for (auto _ : state) {
    sampleRun(pattern, transform, 512, y, PixelRun::kLength, run);
    benchmark::DoNotOptimize(run.r);
    y = (y + 1) % 1080;
  }
  countPixels(state, PixelRun::kLength);
}

void blurAcross(benchmark::State& state) {
  const int32_t radius = static_cast<int32_t>(state.range(0));
  const TentScale scale(radius, kWidth);
  const PixelRun run = randomRun();
  std::vector<char> memory(BlurScratch::bytes(kWidth, 1));
  BlurScratch scratch(kWidth, 1, memory.data());
  BlurLine line(kWidth, radius);
  for (auto _ : state) {
    for (int32_t x = 0; x < kWidth; x += PixelRun::kLength) {
      benchmark::DoNotOptimize(line.take(run, x, std::min<size_t>(PixelRun::kLength, kWidth - static_cast<size_t>(x))));
    }
    line.blurAcross(scale, 0, scratch);
    benchmark::DoNotOptimize(scratch.plane(0, 0));
  }
  countPixels(state, kWidth);
}

void blurDown(benchmark::State& state) {
  constexpr int32_t kHeight = 1080, kRows = 34;  // a worker's
  const int32_t radius = static_cast<int32_t>(state.range(0));
  const TentScale scale(radius, kHeight);
  std::vector<char> memory(BlurScratch::bytes(PixelRun::kLength, kHeight));
  BlurScratch scratch(PixelRun::kLength, kHeight, memory.data());
  std::fill_n(scratch.plane(0, 0), size_t{3} * kHeight * PixelRun::kLength, 1 << 20);
  PixelRun run;
  for (auto _ : state) {
    BlurColumns columns(scratch, scale, 0, PixelRun::kLength, 500);
    for (int32_t row = 0; row < kRows; ++row) {
      columns.next(run);
      benchmark::DoNotOptimize(run.r);
    }
  }
  countPixels(state, PixelRun::kLength * kRows);
}

void read(benchmark::State& state, WorldFormat format) {
  const std::vector<uint8_t> world = randomBytes(size_t{16} * kWidth);
  std::vector<float> copy(size_t{4} * kWidth);
  for (auto _ : state) {
    readWorldRow(format, world.data(), kWidth, copy.data());
    benchmark::DoNotOptimize(copy.data());
  }
  countPixels(state, kWidth);
}

void write(benchmark::State& state, WorldFormat format) {
  const std::vector<float> result = randomFloats(size_t{4} * kWidth);
  std::vector<uint8_t> world(size_t{16} * kWidth);
  for (auto _ : state) {
    writeWorldRow(format, result.data(), 1, kWidth, world.data());
    benchmark::DoNotOptimize(world.data());
  }
  countPixels(state, kWidth);
}

const bool registered = [] {
#define QUILTOR_REGISTER(mode, formula) benchmark::RegisterBenchmark("composite/" #mode, composite, BlendMode::mode);
  QUILTOR_BLEND_MODES(QUILTOR_REGISTER, QUILTOR_REGISTER)
#undef QUILTOR_REGISTER
  benchmark::RegisterBenchmark("sample/single", sample, TileMode::Single, ChannelType::Byte);
  benchmark::RegisterBenchmark("sample/tiled", sample, TileMode::Tiled, ChannelType::Byte);
  benchmark::RegisterBenchmark("sample/mirrored", sample, TileMode::Mirrored, ChannelType::Byte);
  benchmark::RegisterBenchmark("sample/tiled float", sample, TileMode::Tiled, ChannelType::Float);
  benchmark::RegisterBenchmark("blur across/radius", blurAcross)->Arg(2)->Arg(10)->Arg(100);
  benchmark::RegisterBenchmark("blur down/radius", blurDown)->Arg(2)->Arg(10)->Arg(100);
  for (const auto& [name, format] :
       {std::pair{"8 bits", WorldFormat::Argb8}, {"16 bits", WorldFormat::Argb16}, {"float", WorldFormat::ArgbFloat}}) {
    benchmark::RegisterBenchmark((std::string("read/") + name).c_str(), read, format);
    benchmark::RegisterBenchmark((std::string("write/") + name).c_str(), write, format);
  }
  return true;
}();

}  // namespace
}  // namespace quiltor
