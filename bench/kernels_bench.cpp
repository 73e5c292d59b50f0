// How many pixels a second the kernels do on one core, a row of a high-definition frame at a time.
#include <benchmark/benchmark.h>

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

constexpr size_t kWidth = 1920;

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

void composite(benchmark::State& state, BlendMode mode) {
  const std::vector<float> input = randomFloats(4 * kWidth), pattern = randomFloats(4 * kWidth);
  std::vector<float> row = pattern;
  for (auto _ : state) {
    row = pattern;
    compositeRow(input.data(), ChannelType::Float, static_cast<int32_t>(mode), 0.7, kWidth, row.data());
    benchmark::DoNotOptimize(row.data());
  }
  countPixels(state, kWidth);
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
  std::vector<float> row(4 * kWidth);
  int32_t y = 0;
  for (auto _ : state) {
    sampleRow(pattern, transform, y, kWidth, row.data());
    benchmark::DoNotOptimize(row.data());
    y = (y + 1) % 1080;
  }
  countPixels(state, kWidth);
}

void blur(benchmark::State& state) {
  constexpr int32_t kHeight = 64;
  std::vector<float> pixels = randomFloats(4 * kWidth * kHeight);
  const BlurFrame frame{pixels.data(), kWidth, kWidth, kHeight};
  const int32_t radius = static_cast<int32_t>(state.range(0));
  const TentFilter across(radius, frame.width), down(radius, frame.height);
  BlurScratch scratch(frame.width, frame.height);
  for (auto _ : state) {
    blurAcross(frame, across, 0, kHeight, scratch);
    blurDown(scratch, down, 0, kHeight, frame);
    benchmark::DoNotOptimize(pixels.data());
  }
  countPixels(state, kWidth * kHeight);
}

void read(benchmark::State& state, WorldFormat format) {
  const std::vector<uint8_t> world = randomBytes(16 * kWidth);
  std::vector<float> copy(4 * kWidth);
  for (auto _ : state) {
    readWorldRow(format, world.data(), kWidth, copy.data());
    benchmark::DoNotOptimize(copy.data());
  }
  countPixels(state, kWidth);
}

void write(benchmark::State& state, WorldFormat format) {
  const std::vector<float> result = randomFloats(4 * kWidth);
  std::vector<uint8_t> world(16 * kWidth);
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
  benchmark::RegisterBenchmark("blur/radius", blur)->Arg(2)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
  for (const auto& [name, format] :
       {std::pair{"8 bits", WorldFormat::Argb8}, {"16 bits", WorldFormat::Argb16}, {"float", WorldFormat::ArgbFloat}}) {
    benchmark::RegisterBenchmark((std::string("read/") + name).c_str(), read, format);
    benchmark::RegisterBenchmark((std::string("write/") + name).c_str(), write, format);
  }
  return true;
}();

}  // namespace
}  // namespace quiltor
