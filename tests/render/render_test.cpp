#include "tests/render/render_test.h"

#include <utility>

#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"
#include "tests/render/jpeg_file.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"

namespace quiltor::render_tests {

using standalone::Instance;
using standalone::RenderResult;

const std::set<std::pair<std::string, int>>& suitesOfMasks() {
  static const std::set<std::pair<std::string, int>> suites{{kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1},
                                                            {kAEGPLayerMaskSuite, kAEGPLayerMaskSuiteVersion6},
                                                            {kPFPathQuerySuite, kPFPathQuerySuiteVersion1},
                                                            {kPFPathDataSuite, kPFPathDataSuiteVersion1},
                                                            {kAEGPStreamSuite, kAEGPStreamSuiteVersion9},
                                                            {kPFFillMatteSuite, kPFFillMatteSuiteVersion2},
                                                            {kAEGPMaskSuite, kAEGPMaskSuiteVersion1}};
  return suites;
}

std::string RenderTest::writePattern(RenderCase& frame) {
  const FilePixels& file = frame.file;
  switch (frame.source) {
    case PatternSource::PngRgb:
    case PatternSource::PngRgba: {
      const std::string path = folder.path("pattern.png");
      testing_support::writePng(path, file.width, file.height, file.channels, file.bytes);
      return path;
    }
    case PatternSource::Jpeg: {
      const std::string path = folder.path("pattern.jpg");
      frame.file = writeJpeg(path, file);
      return path;
    }
    case PatternSource::Placeholder:
      return folder.path("pattern.pat");
    case PatternSource::MissingFile:
      return folder.path("nowhere.png");
    default:
      return {};
  }
}

void RenderTest::pick(Instance& instance, const std::string& path) {
  const auto flat = testing_support::flatSequence({{0, testing_support::selectionOf(path)}});
  EXPECT_EQ(instance.resetupFrom(flat).code, PF_Err_NONE);
}

void RenderTest::setSurroundings(const RenderCase& frame) {
  host.options().downsampleX = frame.downsampleX;
  host.options().downsampleY = frame.downsampleY;
  host.options().transform = frame.transform;
}

void RenderTest::setParameters(Instance& instance, const RenderCase& frame) {
  instance.setChoice(kSource, isFile(frame.source) ? 2 : 1);
  instance.setLayer(kPatternLayer, frame.source == PatternSource::Layer ? &frame.patternLayer : nullptr);
  instance.setChecked(kLock, frame.lock);
  instance.setChoice(kTileMode, frame.tileMode);
  instance.setChoice(kBlendMode, frame.blendMode);
  instance.setNumber(kOpacity, frame.opacity);
  instance.setNumber(kScale, frame.scale);
  // As they are delivered, whatever the resolution.
  instance.adjust(kOffset, [x = frame.offsetX, y = frame.offsetY](PF_ParamDef& offset, A_long, A_u_long) {
    offset.u.td.x_value = x;
    offset.u.td.y_value = y;
  });
  instance.adjust(kRotation,
                  [angle = frame.rotation](PF_ParamDef& rotation, A_long, A_u_long) { rotation.u.ad.value = angle; });
  instance.setChecked(kInvert, frame.invert);
  instance.setColor(kTintColor, frame.tint);
  instance.setNumber(kTintOpacity, frame.tintOpacity);
  instance.setNumber(kBlur, frame.blur);
}

RenderResult RenderTest::renderOf(Instance& instance, const RenderCase& frame) {
  const standalone::Frame request{.input = &frame.input, .request = {}};
  return frame.smart ? instance.renderSmart(request) : instance.render(request);
}

RenderResult RenderTest::draw(RenderCase& frame) {
  setSurroundings(frame);
  Instance instance(effect);
  if (isFile(frame.source)) {
    pick(instance, writePattern(frame));
  } else {
    EXPECT_EQ(instance.setUp().code, PF_Err_NONE);
  }
  setParameters(instance, frame);
  return renderOf(instance, frame);
}

Comparison RenderTest::drawAndCompare(RenderCase& frame) {
  const RenderResult result = draw(frame);
  if (result.code != PF_Err_NONE || !result.output) {
    return {.firstBeyond = "code " + std::to_string(result.code) + " " + result.message};
  }
  return compare(*result.output, reference::render(referenceFrame(frame)));
}

standalone::World RenderTest::drawn(RenderCase frame) {
  RenderResult result = draw(frame);
  EXPECT_EQ(result.code, PF_Err_NONE) << result.message;
  EXPECT_TRUE(result.output.has_value());
  if (result.output) return std::move(*result.output);
  return {frame.input.format(), 0, 0};
}

}  // namespace quiltor::render_tests
