#include "standalone/host/instance.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <set>
#include <thread>

#include "standalone/host/testing/sample_effect.h"

namespace quiltor::standalone {
namespace {

constexpr int kLayer = 1, kAmount = 2, kMode = 3, kCenter = 4, kColor = 5, kAngle = 6, kOn = 7, kPath = 8;

struct InstanceTest : testing::Test {
  Host host;
  Effect effect{host, sampleModule()};

  void SetUp() override { ASSERT_TRUE(effect.setUp().succeeded()); }
  void TearDown() override {
    effect.shutDown();
    EXPECT_EQ(host.findings().text(), "");
    EXPECT_EQ(host.liveHandleCount(), 0u);
    EXPECT_EQ(host.suiteBalance(), 0);
  }
};

TEST_F(InstanceTest, TheEffectsParametersAreKeptWithTheirTexts) {
  ASSERT_EQ(effect.parameters().size(), 9u);
  EXPECT_EQ(effect.parameters()[kMode].name, "Mode");
  EXPECT_EQ(effect.parameters()[kMode].items(), (std::vector<std::string>{"One", "Two", "Three"}));
  EXPECT_STREQ(effect.parameters()[kMode].definition.u.pd.u.namesptr, "One|Two|Three");
  EXPECT_EQ(effect.parameters()[kOn].text, "label");
  EXPECT_TRUE(effect.customUiRegistered());
}

TEST_F(InstanceTest, ValuesAreTheRegisteredDefaultsUntilSet) {
  const World layer = samplePicture(WorldFormat::Argb8, 20, 10);
  const Instance instance(effect);
  auto params = instance.params(&layer);
  EXPECT_EQ(params[0].u.ld.width, 20);
  EXPECT_EQ(params[kLayer].u.ld.data, nullptr);
  EXPECT_EQ(params[kAmount].u.fs_d.value, 50);
  EXPECT_EQ(params[kMode].u.pd.value, 2);
  EXPECT_EQ(params[kCenter].u.td.x_value, 10 * 65536);
  EXPECT_EQ(params[kCenter].u.td.y_value, 5 * 65536);
  EXPECT_EQ(params[kColor].u.cd.value.blue, 30);
  EXPECT_EQ(params[kAngle].u.ad.value, -30 * 65536);
  EXPECT_EQ(params[kOn].u.bd.value, 1);
}

TEST_F(InstanceTest, ValuesThatAreSetAreDelivered) {
  const World layer = samplePicture(WorldFormat::Argb8, 20, 10);
  Instance instance(effect);
  instance.setNumber(kAmount, 12.5);
  instance.setNumber(kAngle, 400.5);
  instance.setChoice(kMode, 3);
  instance.setChecked(kOn, false);
  instance.setColor(kColor, {255, 1, 2, 3});
  instance.setPointPercent(kCenter, 25, 200);
  instance.setPath(kPath, 77);
  auto params = instance.params(&layer);
  EXPECT_EQ(params[kAmount].u.fs_d.value, 12.5);
  EXPECT_EQ(params[kAngle].u.ad.value, 400 * 65536 + 32768);
  EXPECT_EQ(params[kMode].u.pd.value, 3);
  EXPECT_EQ(params[kOn].u.bd.value, 0);
  EXPECT_EQ(params[kColor].u.cd.value.red, 1);
  EXPECT_EQ(params[kCenter].u.td.x_value, 5 * 65536);
  EXPECT_EQ(params[kCenter].u.td.y_value, 20 * 65536);
  EXPECT_EQ(params[kPath].u.path_d.path_id, 77u);
}

TEST_F(InstanceTest, PointsInPixelsAreScaledDownWithTheFrame) {
  host.options().downsampleX = {1, 2};
  host.options().downsampleY = {1, 4};
  Instance instance(effect);
  instance.setPointPixels(kCenter, 100, 100);
  auto params = instance.params();
  EXPECT_EQ(params[kCenter].u.td.x_value, 50 * 65536);
  EXPECT_EQ(params[kCenter].u.td.y_value, 25 * 65536);
}

TEST_F(InstanceTest, AWrongIndexOrKindIsAnInvalidArgument) {
  Instance instance(effect);
  EXPECT_THROW(instance.setNumber(kMode, 1), std::invalid_argument);
  EXPECT_THROW(instance.setNumber(0, 1), std::invalid_argument);
  EXPECT_THROW(instance.setChoice(99, 1), std::invalid_argument);
  EXPECT_THROW(instance.setLayer(kAmount, nullptr), std::invalid_argument);
}

TEST_F(InstanceTest, FlatDataAreACopyAndTheLiveDataStay) {
  Instance instance(effect);
  instance.setUp();
  const PF_Handle live = instance.sequenceData();
  std::vector<unsigned char> flat;
  EXPECT_TRUE(instance.getFlattened(flat).succeeded());
  EXPECT_EQ(flat, std::vector<unsigned char>(8, 2));
  EXPECT_EQ(instance.sequenceData(), live);
  EXPECT_EQ(host.liveHandleCount(), 2u);  // with the global data
}

TEST_F(InstanceTest, ResetupFromBytesReplacesLiveData) {
  Instance instance(effect);
  instance.setUp();
  EXPECT_TRUE(instance.resetupFrom(std::vector<unsigned char>(8, 2)).succeeded());
  EXPECT_EQ(instance.sequenceBytes(), std::vector<unsigned char>(8, 1));
  EXPECT_EQ(host.liveHandleCount(), 2u);
}

TEST_F(InstanceTest, ResetupFromNullSetsUpAfresh) {
  Instance instance(effect);
  EXPECT_TRUE(instance.resetupFromNull().succeeded());
  EXPECT_EQ(instance.sequenceBytes().size(), 8u);
}

TEST_F(InstanceTest, FlattenedDataAreDisposedAtTheSetdown) {
  Instance instance(effect);
  instance.setUp();
  instance.flatten();
  EXPECT_EQ(instance.sequenceBytes(), std::vector<unsigned char>(8, 2));
  instance.shutDown();
  EXPECT_EQ(host.liveHandleCount(), 1u);
}

class EveryDepth : public InstanceTest, public testing::WithParamInterface<WorldFormat> {};

TEST_P(EveryDepth, BothWaysToRenderDeliverThePicture) {
  const World layer = samplePicture(GetParam(), 7, 5);
  Instance instance(effect);
  instance.setUp();
  const RenderResult classic = instance.render({.input = &layer});
  const RenderResult smart = instance.renderSmart({.input = &layer});
  ASSERT_TRUE(classic.output && smart.output);
  EXPECT_EQ(classic.output->packed(), layer.packed());
  EXPECT_EQ(smart.output->packed(), layer.packed());
}

TEST_P(EveryDepth, RowsMayLieBottomUpAndPadded) {
  host.options().inputRows = {.paddingBytes = 3, .bottomUp = true};
  host.options().outputRows = {.paddingBytes = 0, .bottomUp = true};
  const World layer = samplePicture(GetParam(), 7, 5);
  Instance instance(effect);
  EXPECT_EQ(instance.render({.input = &layer}).output->packed(), layer.packed());
}

INSTANTIATE_TEST_SUITE_P(Depths, EveryDepth,
                         testing::Values(WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat));

TEST_F(InstanceTest, ASpareWorldOfTheSameKindIsRenderedOverOnlyByAHostThatIsNotStrict) {
  const World layer = samplePicture(WorldFormat::Argb8, 7, 5);
  Instance instance(effect);
  for (const bool strict : {true, false}) {
    host.options().strict = strict;
    for (const World& kind :
         {layer, samplePicture(WorldFormat::Argb8, 7, 6), samplePicture(WorldFormat::Argb16, 7, 5)}) {
      World spare = kind;
      const void* const pixels = spare.record().data;
      const RenderResult frame = instance.renderSmart({.input = &layer, .spare = &spare});
      ASSERT_TRUE(frame.output);
      EXPECT_EQ(frame.output->packed(), layer.packed());
      const bool fits = kind.format() == layer.format() && kind.height() == layer.height();
      EXPECT_EQ(frame.output->record().data == pixels, !strict && fits) << strict;
    }
  }
}

TEST_F(InstanceTest, ARequestForAPartGivesThatPartAtItsPlace) {
  const World layer = samplePicture(WorldFormat::Argb8, 7, 5);
  Instance instance(effect);
  const RenderResult part = instance.renderSmart({.input = &layer, .request = PF_LRect{2, 1, 5, 9}});
  ASSERT_TRUE(part.output);
  EXPECT_EQ(part.output->record().origin_x, 2);
  EXPECT_EQ(part.output->record().origin_y, 1);
  EXPECT_EQ(part.output->packed(), layer.cropped({2, 1, 5, 5}).packed());
  EXPECT_EQ(part.maxResultRect.right, 7);
}

TEST_F(InstanceTest, AnEmptyRequestAsksForTheMaximumAlone) {
  const World layer = samplePicture(WorldFormat::Argb8, 7, 5);
  Instance instance(effect);
  const RenderResult nothing = instance.renderSmart({.input = &layer, .request = PF_LRect{}});
  EXPECT_EQ(nothing.code, PF_Err_NONE);
  EXPECT_FALSE(nothing.output);
  EXPECT_EQ(nothing.maxResultRect.bottom, 5);
}

TEST_F(InstanceTest, ALayerIsAskedForAtTheTimeOfTheCheckOut) {
  host.options().currentTime = 40;
  host.options().timeScale = 30;
  const World layer = samplePicture(WorldFormat::Argb8, 3, 3);
  std::vector<std::pair<A_long, A_u_long>> times;
  Instance instance(effect);
  instance.setLayer(kLayer, [&](A_long time, A_u_long timeScale) {
    times.emplace_back(time, timeScale);
    return &layer;
  });
  instance.render({.input = &layer});
  EXPECT_EQ(times, (std::vector<std::pair<A_long, A_u_long>>{{43, 30}}));
}

TEST_F(InstanceTest, AnAdjustedRecordReachesTheEffectWithItsTime) {
  host.options().currentTime = 40;
  const World layer = samplePicture(WorldFormat::Argb8, 3, 3);
  A_long width = 0;
  Instance instance(effect);
  instance.setLayer(kLayer, &layer);
  instance.adjust(kLayer, [&](PF_ParamDef& definition, A_long time, A_u_long) {
    if (time == 43) width = definition.u.ld.width;
  });
  instance.render({.input = &layer});
  EXPECT_EQ(width, 3);
}

TEST_F(InstanceTest, AbortIsAskedOnTheCallingThreadAndItsAnswerEndsTheFrame) {
  std::set<std::thread::id> threads;
  host.options().onAbort = [&](int count) {
    threads.insert(std::this_thread::get_id());
    return count == 0 ? PF_Interrupt_CANCEL : PF_Err_NONE;
  };
  const World layer = samplePicture(WorldFormat::Argb8, 7, 50);
  Instance instance(effect);
  const RenderResult result = instance.render({.input = &layer});
  EXPECT_EQ(result.code, PF_Interrupt_CANCEL);
  EXPECT_FALSE(result.output);
  EXPECT_EQ(threads, std::set{std::this_thread::get_id()});
}

TEST_F(InstanceTest, ManyThreadsMayRenderOneInstance) {
  const World layer = samplePicture(WorldFormat::Argb8, 33, 17);
  Instance instance(effect);
  instance.setUp();
  std::atomic<int> equal = 0;
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&] {
        for (int k = 0; k < 5; ++k) {
          const RenderResult result =
              k % 2 ? instance.render({.input = &layer}) : instance.renderSmart({.input = &layer});
          equal += result.output && result.output->packed() == layer.packed() ? 1 : 0;
        }
      });
    }
  }
  EXPECT_EQ(equal, 20);
}

TEST_F(InstanceTest, TheHostSizeIsThatOfTheFullResolution) {
  host.options().downsampleX = {1, 2};
  host.options().downsampleY = {1, 3};
  const World layer = samplePicture(WorldFormat::Argb8, 8, 6);
  Instance instance(effect);
  auto params = instance.params(&layer);
  const CallResult result = instance.call({.selector = PF_Cmd_FRAME_SETUP, .params = params.pointers()});
  EXPECT_EQ(result.in.width, 16);
  EXPECT_EQ(result.in.height, 18);
}

TEST(Host, OnlyOneLivesAtATime) {
  const Host host;
  EXPECT_THROW(Host second, std::logic_error);
}

TEST(Host, TracesCallsAndSuites) {
  Host host;
  std::vector<std::string> lines;
  host.options().trace = [&](std::string_view line) { lines.emplace_back(line); };
  Effect effect(host, sampleModule());
  effect.globalSetup();
  EXPECT_EQ(lines, (std::vector<std::string>{"call PF_Cmd_GLOBAL_SETUP", "suite \"PF Handle Suite\" 2",
                                             "done PF_Cmd_GLOBAL_SETUP with 0"}));
}

TEST(Host, AnHonestEffectHasNoFindingsWhicheverHostCallFails) {
  const World layer = samplePicture(WorldFormat::Argb8, 7, 5);
  Host host({.masks = {{.id = 4, .vertices = {{1, 1}, {6, 2}, {3, 5}}, .featherX = 2}}});
  std::size_t k = 0;
  for (bool struck = true; struck; ++k) {
    host.faults().failAt(k);
    {
      Effect effect(host, sampleModule());
      bool failed = !effect.setUp().succeeded();
      effect.about();
      if (!failed) {
        Instance instance(effect);
        instance.setUp();
        failed = instance.render({.input = &layer}).code != PF_Err_NONE;
        failed = instance.renderSmart({.input = &layer}).code != PF_Err_NONE || failed;
      }
    }
    struck = host.faults().struck();
    EXPECT_EQ(host.findings().text(), "") << "with failing host call " << k;
    host.findings().clear();
    if (k > 1000) break;
  }
  EXPECT_GT(k, 20u);
  EXPECT_LT(k, 1000u);
}

TEST(SelectorName, IsTheHostsOwnOrANumber) {
  EXPECT_EQ(selectorName(PF_Cmd_GET_FLATTENED_SEQUENCE_DATA), "PF_Cmd_GET_FLATTENED_SEQUENCE_DATA");
  EXPECT_EQ(selectorName(PF_Cmd_EVENT), "PF_Cmd_EVENT");
  EXPECT_EQ(selectorName(29), "selector 29");
  EXPECT_EQ(selectorName(-1), "selector -1");
}

TEST_F(InstanceTest, DrawsItsControlIntoAPane) {
  Instance instance(effect);
  instance.setUp();
  const EventResult result = instance.drawControl(kAmount);
  ASSERT_TRUE(result.succeeded());
  ASSERT_EQ(result.drawing->images().size(), 1u);
  EXPECT_EQ(result.drawing->images()[0].width, 1);
  EXPECT_EQ(result.drawing->images()[0].origin.y, 2);
  const Rgba dot = result.drawing->pane().at(1, 2);
  EXPECT_NEAR(dot.b, (1 + 0.125) / 2, 0.005) << "half blue over the panel's grey";
  EXPECT_NEAR(dot.r, 0.125 / 2, 0.005);
  EXPECT_NEAR(result.drawing->pane().at(2, 2).b, 0.125, 0.005);
  EXPECT_FALSE(result.handled());
}

TEST_F(InstanceTest, DrawsNothingWhereTheHostOffersNoDrawing) {
  host.options().offerDrawing = false;
  Instance instance(effect);
  instance.setUp();
  EXPECT_TRUE(instance.drawControl(kAmount).drawing->images().empty());
}

TEST_F(InstanceTest, TellsTheEffectOfItsPaneFirstAndOfItsEndLast) {
  std::vector<std::string> calls;
  host.options().trace = [&](std::string_view line) {
    if (line.starts_with("call ")) calls.emplace_back(line.substr(5));
  };
  Instance instance(effect);
  instance.setUp();
  instance.drawControl(kAmount);
  instance.shutDown();
  host.options().trace = nullptr;
  EXPECT_EQ(calls, (std::vector<std::string>{"PF_Cmd_SEQUENCE_SETUP", "PF_Cmd_EVENT", "PF_Cmd_EVENT", "PF_Cmd_EVENT",
                                             "PF_Cmd_SEQUENCE_SETDOWN"}));
}

}  // namespace
}  // namespace quiltor::standalone
