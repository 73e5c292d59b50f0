// Every format of every layer, however its rows lie, at every size: the pixels are right and nothing beyond them is
// touched. The buffers hold not one byte more than their rows, so that the address sanitizer sees what leaves them.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::Instance;
using standalone::RenderResult;
using standalone::RowLayout;

// A world's pixels in rows of our own: behind the last of them, padding included, ends the memory.
class TightRows {
 public:
  TightRows(const World& source, RowLayout rows) : record_(source.record()) {
    const int width = source.width(), height = source.height();
    record_.data = nullptr;
    if (width == 0 || height == 0) return;
    const size_t bytes = static_cast<size_t>(width) * static_cast<size_t>(standalone::bytesPerPixel(source.format()));
    const size_t stride = bytes + static_cast<size_t>(rows.paddingBytes);
    const size_t lines = static_cast<size_t>(height);
    memory_ = std::make_unique<unsigned char[]>(stride * (lines - 1) + bytes);
    std::memset(memory_.get(), kPadding, stride * (lines - 1) + bytes);
    record_.rowbytes = static_cast<A_long>(stride) * (rows.bottomUp ? -1 : 1);
    record_.data = reinterpret_cast<PF_PixelPtr>(memory_.get() + (rows.bottomUp ? stride * (lines - 1) : 0));
    for (int y = 0; y < height; ++y) std::memcpy(row(y), source.row(y), bytes);
    pixelBytes_ = bytes;
    paddingBytes_ = stride - bytes;
    allBytes_ = stride * (lines - 1) + bytes;
  }

  PF_EffectWorld& record() { return record_; }
  // The pixels row by row, top first.
  std::vector<unsigned char> packed() const {
    std::vector<unsigned char> all;
    for (int y = 0; memory_ && y < record_.height; ++y) all.insert(all.end(), row(y), row(y) + pixelBytes_);
    return all;
  }
  bool paddingIsWhole() const {
    for (size_t i = 0; i < allBytes_; ++i) {
      if (i % (pixelBytes_ + paddingBytes_) >= pixelBytes_ && memory_[i] != kPadding) return false;
    }
    return true;
  }

 private:
  static constexpr unsigned char kPadding = 0xA7;

  unsigned char* row(int y) const {
    return reinterpret_cast<unsigned char*>(record_.data) + static_cast<ptrdiff_t>(y) * record_.rowbytes;
  }

  PF_EffectWorld record_;
  std::unique_ptr<unsigned char[]> memory_;
  size_t pixelBytes_ = 0, paddingBytes_ = 0, allBytes_ = 0;
};

struct Size {
  int width, height;
};

struct Shape {
  Size input, pattern, output;
};

World counted(WorldFormat format, Size size, double first) {
  World world(format, size.width, size.height);
  double value = first;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      world.set(x, y, {value, 1 - value, value / 2, 1});
      value = value > 0.9 ? first : value + 1.0 / 64;
    }
  }
  return world;
}

class Conversions : public RenderTest, public testing::WithParamInterface<WorldFormat> {
 protected:
  void SetUp() override {
    if (standalone::isVideoEditorFormat(GetParam())) host.options().appId = kAppId_PremierePro;
    RenderTest::SetUp();
  }

  // Draws with buffers of our own in place of the host's; an output that was not drawn holds what it held.
  std::vector<unsigned char> draw(const Shape& shape, RowLayout rows, RowLayout outputRows, PF_PathID mask = 0) {
    const World input = counted(GetParam(), shape.input, 0.125), pattern = counted(GetParam(), shape.pattern, 0.25);
    World blank(GetParam(), shape.output.width, shape.output.height);
    TightRows tightInput(input, rows), tightPattern(pattern, rows), tightOutput(blank, outputRows);
    Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    instance.setChoice(kSource, 1);
    instance.setPointPercent(9, 50, 50);
    instance.setPath(kMask, mask);
    instance.adjust(kPatternLayer, [&](PF_ParamDef& layer, A_long, A_u_long) { layer.u.ld = tightPattern.record(); });
    Instance::ParamArray params = instance.params(&input);
    params[0].u.ld = tightInput.record();
    const auto result =
        instance.call({.selector = PF_Cmd_RENDER, .params = params.pointers(), .output = &tightOutput.record()});
    EXPECT_EQ(result.code, PF_Err_NONE) << result.message();
    EXPECT_EQ(tightInput.packed(), input.packed());
    EXPECT_EQ(tightPattern.packed(), pattern.packed());
    EXPECT_TRUE(tightInput.paddingIsWhole() && tightPattern.paddingIsWhole() && tightOutput.paddingIsWhole());
    return tightOutput.packed();
  }

  // The common part as the whole picture has it, and nothing around it.
  std::vector<unsigned char> expected(const Shape& shape) {
    const Size common{std::min(shape.input.width, shape.output.width),
                      std::min(shape.input.height, shape.output.height)};
    World picture(GetParam(), shape.output.width, shape.output.height);
    picture.clear();
    const bool ownLayer = shape.pattern.width == 0 || shape.pattern.height == 0;
    const Size tile = ownLayer ? shape.input : shape.pattern;
    const World pattern = counted(GetParam(), tile, ownLayer ? 0.125 : 0.25);
    // The offset is the middle of the input, in whole pixels; the middle of the pattern lies there.
    const auto place = [](int at, int input, int size) { return ((at - input / 2 + size / 2) % size + size) % size; };
    for (int y = 0; y < common.height; ++y) {
      for (int x = 0; x < common.width; ++x) {
        picture.set(x, y,
                    pattern.at(place(x, shape.input.width, tile.width), place(y, shape.input.height, tile.height)));
      }
    }
    return picture.packed();
  }

  // The common part in the input's colours, nothing around it, and no alpha at all.
  static std::vector<unsigned char> leftOut(const Shape& shape) {
    const World input = counted(GetParam(), shape.input, 0.125);
    World picture(GetParam(), shape.output.width, shape.output.height);
    picture.clear();
    for (int y = 0; y < std::min(shape.input.height, shape.output.height); ++y) {
      for (int x = 0; x < std::min(shape.input.width, shape.output.width); ++x) {
        const standalone::Rgba color = input.at(x, y);
        picture.set(x, y, {color.r, color.g, color.b, 0});
      }
    }
    return picture.packed();
  }
};

std::vector<Shape> shapes() {
  const std::vector<Size> sizes{{0, 3}, {3, 0}, {1, 1}, {7, 1}, {17, 3}, {5, 33}};
  std::vector<Shape> all;
  for (const Size& input : sizes) {
    for (const Size& output : sizes) all.push_back({input, {3, 2}, output});
    for (const Size& pattern : sizes) all.push_back({input, pattern, input});
  }
  return all;
}

TEST_P(Conversions, StayInsideWorldsOfEverySizeAndGiveTheSamePictureHoweverRowsLie) {
  const std::vector<RowLayout> layouts{{0, true}, {4, false}, {4, true}, {52, false}, {52, true}};
  size_t turn = 0;
  for (const Shape& shape : shapes()) {
    const std::string what = std::to_string(shape.input.width) + "x" + std::to_string(shape.input.height) + ", " +
                             std::to_string(shape.pattern.width) + "x" + std::to_string(shape.pattern.height) + " to " +
                             std::to_string(shape.output.width) + "x" + std::to_string(shape.output.height);
    const auto wanted = expected(shape);
    EXPECT_EQ(draw(shape, {}, {}), wanted) << what;
    const RowLayout& rows = layouts[turn++ % layouts.size()];
    const RowLayout& outputRows = layouts[turn % layouts.size()];
    EXPECT_EQ(draw(shape, rows, outputRows), wanted) << what << ", padded by " << rows.paddingBytes;
  }
}

TEST_P(Conversions, StayInsideWorldsOfEverySizeWhenAMaskLimitsThem) {
  host.options().suitesAlsoOffered = suitesOfMasks();
  constexpr PF_PathID kAroundAll = 1, kAside = 2;
  host.options().masks = {{.id = kAroundAll, .vertices = {{-90, -90}, {90, -90}, {90, 90}, {-90, 90}}},
                          {.id = kAside, .vertices = {{90, 90}, {99, 90}, {99, 99}, {90, 99}}}};
  for (const Shape& shape : shapes()) {
    EXPECT_EQ(draw(shape, {8, true}, {4, false}, kAroundAll), expected(shape));
    EXPECT_EQ(draw(shape, {8, true}, {4, false}, kAside), leftOut(shape));
  }
}

TEST_P(Conversions, RefuseRowsThatAreShorterThanTheirPixels) {
  const World world = counted(GetParam(), {6, 4}, 0.125);
  TightRows input(world, {}), output(world, {});
  for (PF_EffectWorld* record : {&input.record(), &output.record()}) {
    const A_long whole = record->rowbytes;
    for (const A_long shorter : {whole - 1, 1 - whole, A_long{0}}) {
      record->rowbytes = shorter;
      Instance instance(effect);
      ASSERT_TRUE(instance.setUp().succeeded());
      Instance::ParamArray params = instance.params(&world);
      params[0].u.ld = input.record();
      EXPECT_EQ(
          instance.call({.selector = PF_Cmd_RENDER, .params = params.pointers(), .output = &output.record()}).code,
          PF_Err_BAD_CALLBACK_PARAM)
          << shorter;
    }
    record->rowbytes = whole;
  }
}

std::string nameOf(const testing::TestParamInfo<WorldFormat>& format) {
  constexpr const char* kNames[] = {"Argb8", "Argb16", "ArgbFloat", "Bgra8", "BgraFloat"};
  return kNames[static_cast<int>(format.param)];
}

INSTANTIATE_TEST_SUITE_P(Formats, Conversions,
                         testing::Values(WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat,
                                         WorldFormat::Bgra8, WorldFormat::BgraFloat),
                         nameOf);

}  // namespace
}  // namespace quiltor::render_tests
