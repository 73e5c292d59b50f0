// When layers are asked for, and how special codes move that.
#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "description/language/built_in_description.h"
#include "hostapi/smart_render.h"
#include "tests/described/described_test.h"

namespace quiltor::described_tests {
namespace {

using standalone::Instance;
using standalone::RenderResult;
using standalone::Rgba;
using standalone::World;
using standalone::WorldFormat;
using testing::ElementsAre;

constexpr int kSource = 1, kPatternLayer = 2, kOffset = 9, kFirstOwn = 16;

enum class Way { Classic, Smart };

// The built-in parameters, so that the frame can be drawn, and more behind them.
std::string withMore(const std::string& sections) {
  // The real text, which the module under test does not contain.
  return std::string(builtInDescription()) + sections;
}

// The same with keys of a built-in parameter's own.
std::string withKeys(const std::string& param, const std::string& keys, std::string text) {
  const std::string line = " param=" + param + "\n";
  text.insert(text.find(line) + line.size(), keys);
  return text;
}

std::string layer(const std::string& name, const std::string& time) {
  return "[par]\n type=layer\n param=" + name + "\n default=" + time + "\n";
}

std::string slider(const std::string& name, int special) {
  return "[par]\n type=float\n param=" + name + "\n min=-100\n max=100\n special=" + std::to_string(special) + "\n";
}

std::string menu(const std::string& name, const std::string& items, int special) {
  return "[par]\n type=select\n param=" + name + "\n text=" + items + "\n special=" + std::to_string(special) + "\n";
}

class LayerTime : public DescribedTest {
 protected:
  LayerTime() {
    host.options().currentTime = 1000;
    host.options().timeStep = 100;
    input.fill({0, 0, 0, 1});
    anyLayer.fill({1, 1, 1, 1});
  }

  RenderResult render(Instance& instance, Way way) {
    return way == Way::Smart ? instance.renderSmart({.input = &input}) : instance.render({.input = &input});
  }

  // The times at which the frame asked for the layers of these parameters, the same ones by both ways.
  using Set = void (*)(Instance&);
  std::map<int, std::set<A_long>> timesOf(const std::vector<int>& layers, Way way, Set set = nullptr) {
    std::map<int, std::set<A_long>> times;
    Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    for (const int index : layers) {
      instance.setLayer(index, [&times, index, this](A_long time, A_u_long scale) {
        EXPECT_EQ(scale, host.options().timeScale);
        times[index].insert(time);
        return &anyLayer;
      });
    }
    if (set) set(instance);
    EXPECT_EQ(render(instance, way).code, PF_Err_NONE);
    return times;
  }

  World input{WorldFormat::ArgbFloat, 3, 2};
  World anyLayer{WorldFormat::ArgbFloat, 3, 2};
};

struct Moment {
  const char* value;  // the layer's default: N|M
  A_long time, step, expected;
};

TEST_F(LayerTime, IsWhatTheLayersDefaultSays) {
  const std::vector<Moment> moments{
      {"0|0", 1000, 100, 1000},
      {"0", 1000, 100, 1000},
      // Frames from now.
      {"-2|0", 1000, 100, 800},
      {"3|0", 1000, 100, 1300},
      {"-20|0", 1000, 100, 0},
      {"2.9|0", 1000, 100, 1200},
      {"-0.9|0", 1000, 100, 1000},
      {"2|0.9", 1000, 100, 1200},
      {"4|0", 1000, 0, 1000},
      // A frame by its number.
      {"4|1", 1000, 100, 400},
      {"0|1", 1000, 100, 0},
      {"-2|1", 1000, 100, 0},
      {"7.8|1", 1000, 100, 700},
      // Every Nth frame, held.
      {"3|2", 1000, 100, 900},
      {"3|2", 899, 100, 600},
      {"3|2", 900, 100, 900},
      {"1|2", 1050, 100, 1050},
      {"0|2", 1000, 100, 0},
      {"-5|2", 1000, 100, 0},
      {"4|7", 1000, 100, 800},
      {"3|-1", 1000, 100, 900},
      {"2|2", 1000, 0, 0},
      // Before the layer's start.
      {"0|0", -300, 100, 0},
      {"5|0", -300, 100, 200},
      {"1|2", -300, 100, 0},
      {"3|2", -1000, 100, 0},
  };
  std::string sections;
  std::vector<int> layers;
  for (const Moment& moment : moments) {
    layers.push_back(kFirstOwn + static_cast<int>(layers.size()));
    sections += layer("layer" + std::to_string(layers.back()), moment.value);
  }
  describe(withMore(sections));
  for (const Way way : {Way::Classic, Way::Smart}) {
    for (size_t i = 0; i < moments.size(); ++i) {
      host.options().currentTime = moments[i].time;
      host.options().timeStep = moments[i].step;
      EXPECT_THAT(timesOf(layers, way)[layers[i]], ElementsAre(moments[i].expected))
          << moments[i].value << " at " << moments[i].time;
    }
  }
}

TEST_F(LayerTime, InRelativeModeCountsFramesOfTheStepThatAParameterSets) {
  struct Step {
    std::string parameter;
    Set set;
    A_long expected;  // two of its frames from now
  };
  const std::vector<Step> steps{
      {slider("step", 994), [](Instance& i) { i.setNumber(16, 4); }, 1200},  // a slider shows no number to read
      {slider("step", -994), [](Instance& i) { i.setNumber(16, 4.9); }, 2000},
      {slider("step", -994), [](Instance& i) { i.setNumber(16, -2.5); }, 600},
      {menu("step", "0|3|11 frames|some", 994), [](Instance& i) { i.setChoice(16, 2); }, 1800},
      {menu("step", "0|3|11 frames|some", 994), [](Instance& i) { i.setChoice(16, 3); }, 3400},
      {menu("step", "0|3|11 frames|some", 994), [](Instance& i) { i.setChoice(16, 4); }, 1200},
      {menu("step", "0|3|11 frames|some", -994), [](Instance& i) { i.setChoice(16, 3); }, 1600},
      {menu("step", "5|3", 994),
       [](Instance& i) { i.adjust(16, [](PF_ParamDef& value, A_long, A_u_long) { value.u.pd.value = 9; }); }, 1200},
      {menu("step", "5|3", -994),
       [](Instance& i) { i.adjust(16, [](PF_ParamDef& value, A_long, A_u_long) { value.u.pd.value = 9; }); }, 2800},
  };
  for (const Step& step : steps) {
    describe(withMore(step.parameter + layer("after", "2|0") + layer("absolute", "2|1")));
    for (const Way way : {Way::Classic, Way::Smart}) {
      auto times = timesOf({17, 18}, way, step.set);
      EXPECT_THAT(times[17], ElementsAre(step.expected)) << step.parameter;
      EXPECT_THAT(times[18], ElementsAre(200)) << step.parameter;
    }
  }
}

TEST_F(LayerTime, KnowsOnlyTheStepThatWasReadBeforeIt) {
  describe(withMore(layer("before", "2|0") + slider("step", -994) + layer("after", "2|0")));
  for (const Way way : {Way::Classic, Way::Smart}) {
    auto times = timesOf({16, 18}, way, [](Instance& i) { i.setNumber(17, 4); });
    EXPECT_THAT(times[16], ElementsAre(1200));
    EXPECT_THAT(times[18], ElementsAre(2000));
  }
}

// Deliberate: the classic path does not know the shift.
TEST_F(LayerTime, IsShiftedByTheWordOfItsPlaceInTheSmartPathOnly) {
  // The pattern layer is the first behind the input, so the next ones are of places 2 to 9 and beyond.
  std::string sections;
  for (int word = 2; word <= 9; ++word) sections += slider("word" + std::to_string(word), -(900 + word));
  std::vector<int> layers;
  for (int place = 2; place <= 11; ++place) {
    layers.push_back(kFirstOwn + 8 + place - 2);
    sections += layer("layer" + std::to_string(place), "1|1");
  }
  describe(withMore(sections));
  const auto set = [](Instance& i) {
    for (int word = 2; word <= 9; ++word) i.setNumber(kFirstOwn + word - 2, 10.0 * word);
  };
  auto classic = timesOf(layers, Way::Classic, set);
  auto smart = timesOf(layers, Way::Smart, set);
  for (int place = 2; place <= 11; ++place) {
    const int index = layers[static_cast<size_t>(place) - 2];
    EXPECT_THAT(classic[index], ElementsAre(100)) << place;
    EXPECT_THAT(smart[index], ElementsAre(place <= 9 ? 100 + 1000 * place : 100)) << place;
  }
}

TEST_F(LayerTime, IsShiftedByTheNumberOrThePlaceOfAMenusItem) {
  struct Shift {
    int special;
    int item;
    A_long expected;
  };
  for (const Shift& shift : {Shift{902, 1, 700}, Shift{902, 2, 0}, Shift{902, 3, 100}, Shift{902, 9, 100},
                             Shift{-902, 1, 100}, Shift{-902, 3, 300}, Shift{-902, 9, 900}, Shift{903, 1, 100}}) {
    describe(withMore(menu("shift", "6 later|-4|none", shift.special) + layer("layer", "1|1")));
    Instance instance(effect);
    ASSERT_TRUE(instance.setUp().succeeded());
    instance.adjust(16, [&](PF_ParamDef& value, A_long, A_u_long) { value.u.pd.value = shift.item; });
    std::set<A_long> times;
    instance.setLayer(17, [&](A_long time, A_u_long) {
      times.insert(time);
      return &anyLayer;
    });
    EXPECT_EQ(render(instance, Way::Smart).code, PF_Err_NONE);
    EXPECT_THAT(times, ElementsAre(shift.expected)) << shift.special << ", item " << shift.item;
  }
}

TEST_F(LayerTime, IsNotShiftedByTheWordsOfOtherPlacesOrByOtherCodes) {
  for (const int special : {-901, -903, -910, -899, -993, -995}) {
    describe(withMore(slider("word", special) + layer("layer", "1|1")));
    auto times = timesOf({17}, Way::Smart, [](Instance& i) { i.setNumber(16, 50); });
    EXPECT_THAT(times[17], ElementsAre(100)) << special;
  }
}

std::vector<A_long> inputTimes;

PF_Err noteInput(PF_ProgPtr, PF_ParamIndex index, A_long, const PF_RenderRequest*, A_long time, A_long, A_u_long,
                 PF_CheckoutResult* result) {
  *result = {};
  if (index == 0) inputTimes.push_back(time);
  return PF_Err_NONE;
}

TEST_F(LayerTime, OfTheInputIsNowWhateverItsWordSays) {
  // It is the first of all, so its word is read too late.
  describe(withMore(slider("word", -900)));
  Instance instance(effect);
  ASSERT_TRUE(instance.setUp().succeeded());
  instance.setNumber(16, 50);
  inputTimes.clear();
  PF_PreRenderInput preInput{};
  PF_PreRenderOutput preOutput{};
  PF_PreRenderCallbacks callbacks{};
  callbacks.checkout_layer = &noteInput;
  PF_PreRenderExtra extra{&preInput, &preOutput, &callbacks};
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SMART_PRE_RENDER, .extra = &extra}).code, PF_Err_NONE);
  preOutput.delete_pre_render_data_func(preOutput.pre_render_data);
  EXPECT_THAT(inputTimes, ElementsAre(1000));
}

TEST_F(LayerTime, ShowsInThePicture) {
  // Every frame of the pattern layer has a grey of its own.
  std::vector<World> frames(20, World(WorldFormat::ArgbFloat, 3, 2));
  for (size_t i = 0; i < frames.size(); ++i) frames[i].fill({static_cast<double>(i), 0, 0, 1});
  const auto shown = [&](Way way, int item) {
    Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    instance.setChoice(kSource, item);
    instance.setPointPercent(kOffset, 50, 50);
    instance.setLayer(kPatternLayer,
                      [&](A_long time, A_u_long) { return &frames.at(static_cast<size_t>(time) / 100); });
    const RenderResult result = render(instance, way);
    EXPECT_TRUE(result.output.has_value());
    return result.output ? result.output->at(1, 1).r : -1;
  };
  describe(withKeys("patsrc", " default=-1|0\n", withMore("")));
  EXPECT_EQ(shown(Way::Classic, 1), 9);
  EXPECT_EQ(shown(Way::Smart, 1), 9);
  describe(withKeys("patsrc", " default=4|2\n", withMore("")));
  EXPECT_EQ(shown(Way::Classic, 1), 8);
  EXPECT_EQ(shown(Way::Smart, 1), 8);
  // The switch of the pattern's kind, whose first item means the layer, is at the same time its shift.
  std::string shifted = withKeys("patsrc", " default=2|1\n", withMore(""));
  shifted.replace(shifted.find("Layer|File"), 10, "7 later|File");
  describe(withKeys("source", " special=901\n", shifted));
  EXPECT_EQ(shown(Way::Classic, 1), 2);
  EXPECT_EQ(shown(Way::Smart, 1), 9);
}

}  // namespace
}  // namespace quiltor::described_tests
