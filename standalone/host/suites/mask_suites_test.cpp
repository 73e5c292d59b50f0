#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

const Mask kSquare{.id = 7, .vertices = {{4, 2}, {12, 2}, {12, 10}, {4, 10}}, .featherX = 6, .featherY = 3};
const Mask kInverted{.id = 3, .vertices = {{0, 0}, {8, 0}, {0, 8}}, .inverted = true};
constexpr PF_Pixel kWhite{255, 255, 255, 255};

struct MaskSuites : testing::Test {
  HostState host{{.masks = {kSquare, kInverted}}};
  CallScope call{"PF_Cmd_RENDER", nullptr};
  EnterCall enter{&call};
  PF_ProgPtr effect = call.reference();
  const A_Time now{0, 25};

  void SetUp() override { host.begin(call); }
  void TearDown() override {
    host.end(call);
    EXPECT_EQ(host.findings.text(), "");
  }

  // What was done wrong, once; nothing else is.
  void expectFinding(FindingKind kind) {
    ASSERT_EQ(host.findings.all().size(), 1u) << host.findings.text();
    EXPECT_EQ(host.findings.all().front().kind, kind) << host.findings.text();
    host.findings.clear();
  }

  AEGP_LayerH layer() {
    AEGP_LayerH handle = nullptr;
    EXPECT_EQ(pfInterfaceSuite().AEGP_GetEffectLayer(effect, &handle), 0);
    return handle;
  }
  AEGP_MaskRefH openMask(AEGP_MaskIndex index) {
    AEGP_MaskRefH mask = nullptr;
    EXPECT_EQ(layerMaskSuite().AEGP_GetLayerMaskByIndex(layer(), index, &mask), 0);
    return mask;
  }
  AEGP_TwoDVal valueOf(AEGP_MaskIndex index, AEGP_MaskStream code, const A_Time& time) {
    const AEGP_MaskRefH mask = openMask(index);
    AEGP_StreamRefH stream = nullptr;
    AEGP_StreamValue2 value{};
    EXPECT_EQ(streamSuite9().AEGP_GetNewMaskStream(0, mask, code, &stream), 0);
    EXPECT_EQ(streamSuite9().AEGP_GetNewStreamValue(0, stream, 0, &time, 0, &value), 0);
    const AEGP_TwoDVal result = value.val.two_d;
    EXPECT_EQ(streamSuite9().AEGP_DisposeStreamValue(&value), 0);
    EXPECT_EQ(streamSuite9().AEGP_DisposeStream(stream), 0);
    EXPECT_EQ(layerMaskSuite().AEGP_DisposeMask(mask), 0);
    return result;
  }

  PF_PathOutlinePtr checkOut(PF_PathID id, A_long time = 0) {
    PF_PathOutlinePtr path = nullptr;
    EXPECT_EQ(pathQuerySuite().PF_CheckoutPath(effect, id, time, 1, 25, &path), 0);
    return path;
  }
  PF_Err checkIn(PF_PathID id, PF_PathOutlinePtr path) { return pathQuerySuite().PF_CheckinPath(effect, id, 0, path); }

  struct Drawing {
    PF_PathID id = 7;
    double featherX = 0, featherY = 0;
    PF_Boolean invert = 0;
    double opacity = 1;
    PF_Quality quality = PF_Quality_HI;
    PF_Rect* bounds = nullptr;
    A_long time = 0;
  };
  PF_Err draw(World& world, const Drawing& drawing) {
    PF_PathOutlinePtr path = checkOut(drawing.id, drawing.time);
    const PF_Err code =
        maskSuite().PF_MaskWorldWithPath(effect, &path, drawing.featherX, drawing.featherY, drawing.invert,
                                         drawing.opacity, drawing.quality, &world.record(), drawing.bounds);
    EXPECT_EQ(checkIn(drawing.id, path), 0);
    EXPECT_EQ(world.damage(), std::nullopt);
    return code;
  }
};

World white(int width, int height, WorldFormat format = WorldFormat::Argb8) {
  World world(format, width, height, {.paddingBytes = 12});
  world.fill({1, 1, 1, 1});
  return world;
}

double alphaSum(const World& world) {
  double sum = 0;
  for (int y = 0; y < world.height(); ++y) {
    for (int x = 0; x < world.width(); ++x) sum += world.at(x, y).a;
  }
  return sum;
}

TEST_F(MaskSuites, ListTheMasksOfTheLayerWithTheirIdentifiers) {
  A_long masks = 0, paths = 0;
  EXPECT_EQ(layerMaskSuite().AEGP_GetLayerNumMasks(layer(), &masks), 0);
  EXPECT_EQ(pathQuerySuite().PF_NumPaths(effect, &paths), 0);
  EXPECT_EQ(masks, 2);
  EXPECT_EQ(paths, 2);
  for (A_long index = 0; index < 2; ++index) {
    const AEGP_MaskRefH mask = openMask(index);
    AEGP_MaskIDVal maskId = 0;
    PF_PathID pathId = 0;
    EXPECT_EQ(layerMaskSuite().AEGP_GetMaskID(mask, &maskId), 0);
    EXPECT_EQ(pathQuerySuite().PF_PathInfo(effect, index, &pathId), 0);
    EXPECT_EQ(maskId, index == 0 ? 7 : 3);
    EXPECT_EQ(pathId, static_cast<PF_PathID>(maskId));
    EXPECT_EQ(layerMaskSuite().AEGP_DisposeMask(mask), 0);
  }
}

TEST_F(MaskSuites, AnswerAnIndexBeyondTheMasksWithAnError) {
  for (const A_long index : {-1, 2}) {
    AEGP_MaskRefH mask = nullptr;
    PF_PathID id = 0;
    EXPECT_NE(layerMaskSuite().AEGP_GetLayerMaskByIndex(layer(), index, &mask), 0);
    expectFinding(FindingKind::BadArgument);
    EXPECT_NE(pathQuerySuite().PF_PathInfo(effect, index, &id), 0);
    expectFinding(FindingKind::BadArgument);
  }
}

TEST_F(MaskSuites, ReportTheFeatherInPixelsOfTheFullResolution) {
  host.options.downsampleX = {1, 2};
  const AEGP_TwoDVal feather = valueOf(0, AEGP_MaskStream_FEATHER, now);
  EXPECT_EQ(feather.x, 6);
  EXPECT_EQ(feather.y, 3);
}

TEST_F(MaskSuites, ReportMasksAsOpaqueAndNotExpanded) {
  EXPECT_EQ(valueOf(0, AEGP_MaskStream_OPACITY, now).x, 100);
  EXPECT_EQ(valueOf(0, AEGP_MaskStream_EXPANSION, now).x, 0);
}

TEST_F(MaskSuites, OfferNoOutlineAsAStream) {
  const AEGP_MaskRefH mask = openMask(0);
  AEGP_StreamRefH stream = nullptr;
  EXPECT_NE(streamSuite9().AEGP_GetNewMaskStream(0, mask, AEGP_MaskStream_OUTLINE, &stream), 0);
  expectFinding(FindingKind::BadArgument);
  layerMaskSuite().AEGP_DisposeMask(mask);
}

TEST_F(MaskSuites, ReportAMaskAsItIsAtTheAskedTime) {
  host.options.maskAt = [](Mask mask, double seconds) {
    mask.featherX = 10 * seconds;
    for (PathVertex& vertex : mask.vertices) vertex.x += 100 * seconds;
    return mask;
  };
  EXPECT_EQ(valueOf(0, AEGP_MaskStream_FEATHER, {50, 25}).x, 20);
  World world = white(120, 12);
  EXPECT_EQ(draw(world, {.time = 25}), 0);
  EXPECT_EQ(world.at(103, 5).a, 0);
  EXPECT_EQ(world.at(104, 5).a, 1);
}

TEST_F(MaskSuites, TellWhichPathsAreInverted) {
  PF_Boolean inverted = 1;
  EXPECT_EQ(pathDataSuite().PF_PathIsInverted(effect, 7, &inverted), 0);
  EXPECT_EQ(inverted, 0);
  EXPECT_EQ(pathDataSuite().PF_PathIsInverted(effect, 3, &inverted), 0);
  EXPECT_EQ(inverted, 1);
  EXPECT_NE(pathDataSuite().PF_PathIsInverted(effect, 99, &inverted), 0);
  expectFinding(FindingKind::BadArgument);
}

TEST_F(MaskSuites, GiveANullPathWithoutAnErrorWhereThereIsNone) {
  host.options.masks[1].vertices.clear();
  for (const PF_PathID id : {99u, 3u, 0u}) {
    const PF_PathOutlinePtr path = checkOut(id);
    EXPECT_EQ(path, nullptr);
    EXPECT_EQ(checkIn(id, path), 0);
  }
}

TEST_F(MaskSuites, CountCheckOutsOfNullPathsToo) {
  checkOut(99);
  host.end(call);
  expectFinding(FindingKind::PathNotCheckedIn);
}

TEST_F(MaskSuites, DrawThePathIntoTheAlphaAlone) {
  World world = white(20, 12);
  EXPECT_EQ(draw(world, {}), 0);
  for (int y = 0; y < 12; ++y) {
    for (int x = 0; x < 20; ++x) {
      const Rgba pixel = world.at(x, y);
      EXPECT_EQ(pixel.a, x >= 4 && x < 12 && y >= 2 && y < 10 ? 1 : 0) << x << ", " << y;
      EXPECT_EQ(pixel.r + pixel.g + pixel.b, 3);
    }
  }
}

TEST_F(MaskSuites, MultiplyCoverageIntoTheAlphaOfEveryDepth) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    World world(format, 20, 12);
    world.fill({0.2, 0.4, 0.6, 0.8});
    EXPECT_EQ(draw(world, {.opacity = 0.5}), 0);
    EXPECT_NEAR(world.at(5, 5).a, 0.4, 0.002);
    EXPECT_EQ(world.at(1, 5).a, 0);
  }
}

TEST_F(MaskSuites, InvertWhatIsInside) {
  World inside = white(20, 12), outside = white(20, 12);
  draw(inside, {.featherX = 5, .featherY = 5});
  draw(outside, {.featherX = 5, .featherY = 5, .invert = 1});
  for (int y = 0; y < 12; ++y) {
    for (int x = 0; x < 20; ++x) EXPECT_NEAR(inside.at(x, y).a + outside.at(x, y).a, 1, 1.01 / 255);
  }
  EXPECT_EQ(outside.at(8, 6).a, 0);
  EXPECT_EQ(outside.at(19, 0).a, 1);
}

TEST_F(MaskSuites, DrawTheGivenFeatherAndNotTheMasksOwn) {
  World world = white(20, 12);
  draw(world, {.featherX = 4});
  EXPECT_NEAR(world.at(3, 5).a + world.at(4, 5).a, 1, 2.0 / 255);
  EXPECT_GT(world.at(3, 5).a, 0.2);
  EXPECT_EQ(world.at(1, 5).a, 0);
  EXPECT_EQ(world.at(6, 5).a, 1);
  EXPECT_EQ(world.at(8, 1).a, 0);
  EXPECT_EQ(world.at(8, 2).a, 1);
}

TEST_F(MaskSuites, HandOutThePathAtTheResolutionOfTheRender) {
  host.options.downsampleX = {1, 2};
  host.options.downsampleY = {1, 4};
  World world = white(10, 3);
  draw(world, {});
  EXPECT_EQ(world.at(1, 1).a, 0);
  EXPECT_EQ(world.at(2, 1).a, 1);
  EXPECT_EQ(world.at(5, 1).a, 1);
  EXPECT_EQ(world.at(6, 1).a, 0);
  EXPECT_NEAR(world.at(3, 0).a, 0.5, 1.01 / 255);
}

TEST_F(MaskSuites, DrawWithoutAntiAliasingInDraftQuality) {
  host.options.masks[0].vertices = {{1, 1}, {17, 4}, {6, 11}};
  World draft = white(20, 12), best = white(20, 12);
  draw(draft, {.quality = PF_Quality_LO});
  draw(best, {.quality = PF_Quality_HI});
  int partsOfDraft = 0, partsOfBest = 0;
  for (int y = 0; y < 12; ++y) {
    for (int x = 0; x < 20; ++x) {
      partsOfDraft += draft.at(x, y).a > 0 && draft.at(x, y).a < 1 ? 1 : 0;
      partsOfBest += best.at(x, y).a > 0 && best.at(x, y).a < 1 ? 1 : 0;
    }
  }
  EXPECT_EQ(partsOfDraft, 0);
  EXPECT_GT(partsOfBest, 20);
}

TEST_F(MaskSuites, DrawInsideTheBoundsOnly) {
  World world = white(20, 12);
  PF_Rect bounds{6, -5, 99, 6};
  draw(world, {.invert = 1, .bounds = &bounds});
  EXPECT_EQ(world.at(6, 5).a, 0);
  EXPECT_EQ(world.at(5, 5).a, 1);
  EXPECT_EQ(world.at(6, 6).a, 1);
}

TEST_F(MaskSuites, DrawAtTheWorldsPlaceInTheLayer) {
  World world = white(20, 12);
  world.setOrigin(2, 1);
  draw(world, {});
  EXPECT_EQ(world.at(1, 1).a, 0);
  EXPECT_EQ(world.at(2, 1).a, 1);
  EXPECT_EQ(world.at(9, 8).a, 1);
  EXPECT_EQ(world.at(10, 8).a, 0);
}

TEST_F(MaskSuites, CutAPathAtTheEdgesOfTheWorld) {
  for (PathVertex& vertex : host.options.masks[0].vertices) vertex.x = (vertex.x - 8) * 1000;
  World world = white(9, 12);
  draw(world, {.featherX = 3, .featherY = 0});
  EXPECT_EQ(alphaSum(world), 9 * 8);
}

TEST_F(MaskSuites, HideEverythingByAPathOutsideTheWorld) {
  for (PathVertex& vertex : host.options.masks[0].vertices) vertex.x += 500;
  World hidden = white(9, 12), shown = white(9, 12);
  draw(hidden, {.featherX = 10});
  draw(shown, {.featherX = 10, .invert = 1});
  EXPECT_EQ(alphaSum(hidden), 0);
  EXPECT_EQ(alphaSum(shown), 9 * 12);
}

TEST_F(MaskSuites, DrawIntoRowsThatLieBottomUp) {
  World world(WorldFormat::Argb8, 20, 12, {.paddingBytes = 5, .bottomUp = true});
  world.fill({1, 1, 1, 1});
  draw(world, {});
  EXPECT_EQ(world.at(4, 2).a, 1);
  EXPECT_EQ(world.at(4, 1).a, 0);
  EXPECT_EQ(world.at(4, 10).a, 0);
}

TEST_F(MaskSuites, DrawNothingIntoAWorldWithoutPixels) {
  World world(WorldFormat::Argb8, 0, 12);
  EXPECT_EQ(draw(world, {}), 0);
}

TEST_F(MaskSuites, RefuseWhatCannotBeDrawn) {
  World world = white(4, 4);
  const double nan = std::nan("");
  for (const Drawing& wrong : {Drawing{.featherX = -1}, Drawing{.featherY = nan}, Drawing{.featherX = 1e9},
                               Drawing{.opacity = 100}, Drawing{.opacity = nan}, Drawing{.quality = 2}}) {
    EXPECT_NE(draw(world, wrong), 0);
    expectFinding(FindingKind::BadArgument);
  }
  EXPECT_EQ(alphaSum(world), 16);
  PF_PathOutlinePtr path = checkOut(7);
  PF_EffectWorld stranger{};
  EXPECT_NE(maskSuite().PF_MaskWorldWithPath(effect, &path, 0, 0, 0, 1, PF_Quality_HI, &stranger, nullptr), 0);
  expectFinding(FindingKind::BadArgument);
  EXPECT_NE(maskSuite().PF_MaskWorldWithPath(effect, nullptr, 0, 0, 0, 1, PF_Quality_HI, &world.record(), nullptr), 0);
  expectFinding(FindingKind::BadArgument);
  checkIn(7, path);
  EXPECT_NE(maskSuite().PF_MaskWorldWithPath(effect, &path, 0, 0, 0, 1, PF_Quality_HI, &world.record(), nullptr), 0);
  expectFinding(FindingKind::ObjectUnknown);
  path = nullptr;
  EXPECT_NE(maskSuite().PF_MaskWorldWithPath(effect, &path, 0, 0, 0, 1, PF_Quality_HI, &world.record(), nullptr), 0);
  expectFinding(FindingKind::ObjectUnknown);
}

TEST_F(MaskSuites, RefuseToCheckInAnotherPathOrAChangedOne) {
  const PF_PathOutlinePtr path = checkOut(7);
  EXPECT_NE(checkIn(3, path), 0);
  expectFinding(FindingKind::PathCheckedInTwice);
  EXPECT_NE(pathQuerySuite().PF_CheckinPath(effect, 7, 1, path), 0);
  expectFinding(FindingKind::BadArgument);
}

TEST_F(MaskSuites, FillAWorldOrAPartOfIt) {
  World world(WorldFormat::Argb8, 5, 4, {.paddingBytes = 3});
  world.clear();
  const PF_Rect part{3, -2, 40, 2};
  EXPECT_EQ(fillMatteSuite().fill(effect, &kWhite, &part, &world.record()), 0);
  EXPECT_EQ(alphaSum(world), 4);
  EXPECT_EQ(world.at(3, 1).g, 1);
  EXPECT_EQ(fillMatteSuite().fill(effect, &kWhite, nullptr, &world.record()), 0);
  EXPECT_EQ(world.packed(), std::vector<unsigned char>(80, 255));
  EXPECT_EQ(world.damage(), std::nullopt);
  World deep(WorldFormat::Argb16, 5, 4);
  EXPECT_NE(fillMatteSuite().fill(effect, &kWhite, nullptr, &deep.record()), 0);
  expectFinding(FindingKind::BadArgument);
}

TEST_F(MaskSuites, GiveBackWhatTheyAreToldToEvenWhenThatFails) {
  const AEGP_MaskRefH mask = openMask(0);
  AEGP_StreamRefH stream = nullptr;
  AEGP_StreamValue2 value{};
  streamSuite9().AEGP_GetNewMaskStream(0, mask, AEGP_MaskStream_FEATHER, &stream);
  streamSuite9().AEGP_GetNewStreamValue(0, stream, 0, &now, 0, &value);
  const PF_PathOutlinePtr path = checkOut(7);
  host.faults.failAlways(HostCall::DisposeStreamValue);
  EXPECT_NE(streamSuite9().AEGP_DisposeStreamValue(&value), 0);
  host.faults.failAlways(HostCall::DisposeStream);
  EXPECT_NE(streamSuite9().AEGP_DisposeStream(stream), 0);
  host.faults.failAlways(HostCall::DisposeMask);
  EXPECT_NE(layerMaskSuite().AEGP_DisposeMask(mask), 0);
  host.faults.failAlways(HostCall::CheckinPath);
  EXPECT_NE(checkIn(7, path), 0);
}

TEST_F(MaskSuites, FailOnTheFaultPlansWord) {
  AEGP_MaskRefH mask = openMask(0), another = nullptr;
  A_long count = 0;
  AEGP_MaskIDVal maskId = 0;
  host.faults.failAlways(HostCall::Mask);
  EXPECT_NE(layerMaskSuite().AEGP_GetLayerNumMasks(layer(), &count), 0);
  EXPECT_NE(layerMaskSuite().AEGP_GetLayerMaskByIndex(layer(), 0, &another), 0);
  EXPECT_NE(layerMaskSuite().AEGP_GetMaskID(mask, &maskId), 0);
  AEGP_StreamRefH stream = nullptr;
  host.faults.failAlways(HostCall::Stream);
  EXPECT_NE(streamSuite9().AEGP_GetNewMaskStream(0, mask, AEGP_MaskStream_FEATHER, &stream), 0);
  layerMaskSuite().AEGP_DisposeMask(mask);

  PF_PathOutlinePtr path = nullptr;
  PF_PathID pathId = 0;
  PF_Boolean inverted = 0;
  host.faults.failAlways(HostCall::Path);
  EXPECT_NE(pathQuerySuite().PF_NumPaths(effect, &count), 0);
  EXPECT_NE(pathQuerySuite().PF_PathInfo(effect, 0, &pathId), 0);
  EXPECT_NE(pathQuerySuite().PF_CheckoutPath(effect, 7, 0, 1, 25, &path), 0);
  EXPECT_NE(pathDataSuite().PF_PathIsInverted(effect, 7, &inverted), 0);

  World world = white(20, 12);
  host.faults.failAlways(HostCall::DrawPath);
  EXPECT_NE(draw(world, {}), 0);
  EXPECT_EQ(alphaSum(world), 20 * 12);
  host.faults.failAlways(HostCall::Fill);
  const PF_Pixel black{};
  EXPECT_NE(fillMatteSuite().fill(effect, &black, nullptr, &world.record()), 0);
  EXPECT_EQ(alphaSum(world), 20 * 12);
}

}  // namespace
}  // namespace quiltor::standalone
