// How the render commands get their values and layers from the host.
#include <filesystem>
#include <string>
#include <vector>

#include "standalone/host/services/host_options.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::Instance;
using standalone::NoLayerPixels;
using standalone::RenderResult;

class HandlersRender : public RenderTest {};

TEST_F(HandlersRender, TakeTheInputForAPatternLayerThatIsNotChosen) {
  for (const bool smart : {false, true}) {
    for (const NoLayerPixels kind : {NoLayerPixels::Error, NoLayerPixels::NullWorld, NoLayerPixels::EmptyWorld}) {
      host.options().noLayerPixels = kind;
      RenderCase frame = overlaid(rowOf({grey(0.5), grey(0.25), grey(1)}), filled(3, 1, {}));
      frame.source = PatternSource::NoLayer;
      frame.smart = smart;
      frame.blendMode = kMultiply;
      const World picture = drawn(frame);
      expectPixel(picture, 0, 0, grey(0.25));
      expectPixel(picture, 1, 0, grey(0.0625));
      expectPixel(picture, 2, 0, grey(1));
    }
  }
}

TEST_F(HandlersRender, AskForEverythingAtTheTimeOfTheFrame) {
  host.options().currentTime = 17;
  host.options().timeStep = 5;
  host.options().timeScale = 30;
  for (const bool smart : {false, true}) {
    RenderCase frame = overlaid(filled(2, 1, grey(0.5)), filled(2, 1, grey(0.25)));
    frame.smart = smart;
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    setParameters(instance, frame);
    std::vector<std::pair<A_long, A_u_long>> times;
    instance.setLayer(kPatternLayer, [&](A_long time, A_u_long scale) {
      times.emplace_back(time, scale);
      return &frame.patternLayer;
    });
    instance.adjust(kOpacity, [&](PF_ParamDef&, A_long time, A_u_long scale) { times.emplace_back(time, scale); });
    const RenderResult result = renderOf(instance, frame);
    ASSERT_TRUE(result.output.has_value());
    expectAll(*result.output, grey(0.25));
    EXPECT_GE(times.size(), 2u);
    for (const auto& [time, scale] : times) {
      EXPECT_EQ(time, 17);
      EXPECT_EQ(scale, 30u);
    }
  }
}

TEST_F(HandlersRender, DrawTheRequestedPartAsItIsInTheWholePicture) {
  World input(WorldFormat::ArgbFloat, 12, 9);
  World pattern(WorldFormat::ArgbFloat, 7, 5);
  for (int y = 0; y < 9; ++y)
    for (int x = 0; x < 12; ++x) input.set(x, y, {x / 12.0, y / 9.0, 0.5, 1});
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 7; ++x) pattern.set(x, y, {x / 7.0, y / 5.0, 0.25, 1});
  RenderCase frame = overlaid(input, pattern);
  frame.blendMode = kDifference;
  frame.scale = 130;
  frame.rotation = fixed(25);
  const World whole = drawn(frame);

  Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  setParameters(instance, frame);
  for (const PF_LRect request :
       {PF_LRect{3, 2, 9, 7}, PF_LRect{0, 0, 1, 1}, PF_LRect{11, 8, 12, 9}, PF_LRect{5, 4, 12, 9}}) {
    const RenderResult result = instance.renderSmart({.input = &input, .request = request});
    ASSERT_EQ(result.code, PF_Err_NONE);
    ASSERT_TRUE(result.output.has_value());
    EXPECT_EQ(result.output->packed(), whole.cropped(request).packed());
  }
}

TEST_F(HandlersRender, AnswerTheMaximumRectangleToAnEmptyRequest) {
  World input = filled(12, 9, grey(0.5));
  input.setOrigin(-2, 3);
  Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  const RenderResult result = instance.renderSmart({.input = &input, .request = PF_LRect{}});
  EXPECT_EQ(result.code, PF_Err_NONE);
  EXPECT_FALSE(result.output.has_value());
  const PF_LRect& maximum = result.maxResultRect;
  EXPECT_EQ((std::vector<A_long>{maximum.left, maximum.top, maximum.right, maximum.bottom}),
            (std::vector<A_long>{-2, 3, 10, 12}));
}

TEST_F(HandlersRender, DrawTheSameClassicAndSmart) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    RenderCase frame =
        overlaid(filled(9, 8, {0.1, 0.5, 0.9, 0.75}, format), filled(3, 2, {0.7, 0.2, 0.4, 0.5}, format));
    frame.blendMode = kSoftLight;
    frame.opacity = 60;
    const World smart = drawn(frame);
    frame.smart = false;
    EXPECT_EQ(drawn(frame).packed(), smart.packed());
  }
}

// A pattern that cannot be had is transparent, whatever is left of it.
TEST_F(HandlersRender, DrawNothingOfAPatternImageWithoutPixels) {
  for (const bool smart : {false, true}) {
    RenderCase frame = overlaidFile(filled(4, 3, {0.25, 0.5, 0.75, 1}), PatternSource::MissingFile, {0, 0, 0, {}});
    frame.smart = smart;
    const World none = drawn(frame);
    EXPECT_EQ(compare(none, reference::render(referenceFrame(frame))).firstBeyond, "");

    // A file that ends behind its header leaves a size without pixels; flattened data have no picture at all.
    RenderCase broken = overlaidFile(frame.input, PatternSource::PngRgb, {2, 2, 3, std::vector<uint8_t>(12, 255)});
    const std::string path = writePattern(broken);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 20);
    broken.smart = smart;
    Instance instance(effect);
    pick(instance, path);
    setParameters(instance, broken);
    for (const bool flat : {false, true}) {
      if (flat) {
        ASSERT_TRUE(instance.flatten().succeeded());
      }
      const RenderResult result = renderOf(instance, broken);
      EXPECT_EQ(result.code, PF_Err_NONE);
      ASSERT_TRUE(result.output.has_value());
      EXPECT_EQ(result.output->packed(), none.packed()) << flat;
    }
    ASSERT_TRUE(instance.resetup().succeeded());
  }
}

}  // namespace
}  // namespace quiltor::render_tests
