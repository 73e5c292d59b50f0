#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

// A draw event.
class DrawingSuites : public testing::Test {
 protected:
  DrawingSuites() {
    call.context = context;
    call.drawing = &drawing;
    host.begin(call);
  }
  ~DrawingSuites() override { host.end(call); }

  DRAWBOT_ImageRef newImage(int width, int height, int rowBytes,
                            DRAWBOT_PixelLayout layout = kDRAWBOT_PixelLayout_32BGRA_Straight) {
    DRAWBOT_ImageRef image = nullptr;
    drawbotSupplierSuite().NewImageFromBuffer(drawing.supplier(), width, height, rowBytes, layout, pixels.data(),
                                              &image);
    return image;
  }
  SPErr draw(DRAWBOT_ImageRef image, float x, float y, float opacity = 1) {
    const DRAWBOT_PointF32 origin{x, y};
    return drawbotSurfaceSuite().DrawImage(drawing.surface(), image, &origin, opacity);
  }
  SPErr release(DRAWBOT_ImageRef image) {
    return drawbotSupplierSuite().ReleaseObject(reinterpret_cast<DRAWBOT_ObjectRef>(image));
  }

  HostState host{{}};
  PF_Context record{};
  PF_Context* recordPointer = &record;
  PF_ContextH context = &recordPointer;
  CallScope call{"PF_Cmd_EVENT", nullptr};
  const EnterCall enter{&call};
  Drawing drawing{host.findings, 4, 3};
  std::vector<unsigned char> pixels = std::vector<unsigned char>(64, 255);
};

TEST_F(DrawingSuites, LeadFromTheContextToSupplierAndSurface) {
  DRAWBOT_DrawRef reference = nullptr;
  DRAWBOT_SupplierRef supplier = nullptr;
  DRAWBOT_SurfaceRef surface = nullptr;
  EXPECT_EQ(effectCustomUiSuite().PF_GetDrawingReference(context, &reference), 0);
  EXPECT_EQ(drawbotDrawSuite().GetSupplier(reference, &supplier), 0);
  EXPECT_EQ(drawbotDrawSuite().GetSurface(reference, &surface), 0);
  EXPECT_EQ(supplier, drawing.supplier());
  EXPECT_EQ(surface, drawing.surface());
  EXPECT_EQ(host.findings.text(), "");
}

TEST_F(DrawingSuites, ReadAnImagesPixelsWhenItIsDrawn) {
  const DRAWBOT_ImageRef image = newImage(1, 1, 4);
  pixels[2] = 0;
  EXPECT_EQ(draw(image, 1, 1), 0);
  EXPECT_EQ(drawing.pane().at(1, 1).r, 0);
  EXPECT_EQ(drawing.pane().at(1, 1).g, 1);
  EXPECT_EQ(release(image), 0);
}

TEST_F(DrawingSuites, StepThroughRowsByTheirBytesAndCutAtThePane) {
  pixels.assign(64, 0);
  pixels[8 + 1] = pixels[8 + 3] = 255;  // the first pixel of the second row
  const DRAWBOT_ImageRef image = newImage(1, 2, 8);
  EXPECT_EQ(draw(image, 2, 1), 0);
  EXPECT_EQ(drawing.pane().at(2, 2).g, 1);
  EXPECT_EQ(draw(image, -5, 100), 0);
  EXPECT_EQ(draw(image, 3, 2), 0);
  EXPECT_EQ(drawing.images().size(), 3u);
  EXPECT_EQ(release(image), 0);
  EXPECT_EQ(host.findings.text(), "");
}

TEST_F(DrawingSuites, TakePremultipliedColoursAsTheyAre) {
  pixels = {64, 64, 64, 128};
  const DRAWBOT_ImageRef image = newImage(1, 1, 4, kDRAWBOT_PixelLayout_32BGRA_Premul);
  const double grey = drawing.pane().at(0, 0).r;
  EXPECT_EQ(draw(image, 0, 0), 0);
  EXPECT_NEAR(drawing.pane().at(0, 0).r, 0.25 + grey / 2, 0.01);
  EXPECT_EQ(release(image), 0);
}

TEST_F(DrawingSuites, RefuseLayoutsThatTheyDoNotKnowWithoutAWord) {
  EXPECT_EQ(newImage(1, 1, 4, 0), nullptr);
  EXPECT_EQ(host.findings.text(), "");
}

TEST_F(DrawingSuites, RecordImagesThatCannotBe) {
  for (const auto& [width, height, rowBytes] : {std::tuple(0, 1, 4), {1, 0, 4}, {2, 1, 7}, {1, 1, -4}}) {
    EXPECT_EQ(newImage(width, height, rowBytes), nullptr);
  }
  EXPECT_EQ(host.findings.all().size(), 4u);
}

TEST_F(DrawingSuites, RecordPlacesAndOpacitiesThatCannotBe) {
  const DRAWBOT_ImageRef image = newImage(1, 1, 4);
  EXPECT_NE(draw(image, std::numeric_limits<float>::quiet_NaN(), 0), 0);
  EXPECT_NE(draw(image, 0, 0, 1.5F), 0);
  EXPECT_NE(draw(image, 0, 0, -0.5F), 0);
  EXPECT_EQ(host.findings.all().size(), 3u);
  EXPECT_TRUE(drawing.images().empty());
  EXPECT_EQ(release(image), 0);
}

TEST_F(DrawingSuites, RecordAnImageThatWasReleased) {
  const DRAWBOT_ImageRef image = newImage(1, 1, 4);
  EXPECT_EQ(release(image), 0);
  EXPECT_NE(draw(image, 0, 0), 0);
  EXPECT_NE(release(image), 0);
  EXPECT_EQ(host.findings.all().size(), 2u);
}

TEST_F(DrawingSuites, TakeNoReferenceForAnother) {
  DRAWBOT_SupplierRef supplier = nullptr;
  DRAWBOT_SurfaceRef surface = nullptr;
  const auto wrong = reinterpret_cast<DRAWBOT_DrawRef>(drawing.surface());
  EXPECT_NE(drawbotDrawSuite().GetSupplier(wrong, &supplier), 0);
  EXPECT_NE(drawbotDrawSuite().GetSurface(nullptr, &surface), 0);
  EXPECT_EQ(host.findings.all().size(), 2u);
}

TEST_F(DrawingSuites, AreForDrawEventsAndTheirContext) {
  DRAWBOT_DrawRef reference = nullptr;
  EXPECT_NE(effectCustomUiSuite().PF_GetDrawingReference(nullptr, &reference), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::BadArgument));
  call.drawing = nullptr;
  EXPECT_NE(effectCustomUiSuite().PF_GetDrawingReference(context, &reference), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::WrongSelector));
  call.drawing = &drawing;
}

}  // namespace
}  // namespace quiltor::standalone
