// Renders wait for one another, in this process and in others.
#include <chrono>
#include <future>
#include <thread>

#include "platform/named_mutex.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

using standalone::World;
using standalone::WorldFormat;

class TurnRender : public RenderTest {
 protected:
  // Renders while somebody else's turn lasts, until the host hears of a suite; then the turn ends.
  bool hearsOfDuringAnothersTurn(const std::string& suite, std::chrono::seconds patience) {
    standalone::Instance instance(effect);
    EXPECT_TRUE(instance.setUp().succeeded());
    for (const standalone::Mask& mask : host.options().masks) instance.setPath(kMask, static_cast<PF_PathID>(mask.id));
    World input(WorldFormat::Argb8, 4, 4);
    std::promise<void> heard;
    bool told = false;
    host.options().trace = [&](std::string_view line) {
      if (told || line.find(suite) == line.npos) return;
      told = true;
      heard.set_value();
    };
    NamedMutex turn("MYMU");
    turn.lock();
    std::thread render([&] { EXPECT_EQ(instance.render({.input = &input}).code, PF_Err_NONE); });
    const bool inTime = heard.get_future().wait_for(patience) == std::future_status::ready;
    turn.unlock();
    render.join();
    host.options().trace = nullptr;
    EXPECT_TRUE(told) << "the render never asked for " << suite;
    return inTime;
  }
};

TEST_F(TurnRender, ReadsTheLayerWhileItStillWaits) {
  EXPECT_TRUE(hearsOfDuringAnothersTurn("AEGP Stream Suite", std::chrono::seconds(30)));
}

TEST_F(TurnRender, ReadsTheMaskWhileItStillWaits) {
  host.options().masks = {{.id = 1, .vertices = {{0, 0}, {4, 0}, {0, 4}}}};
  EXPECT_TRUE(hearsOfDuringAnothersTurn("AEGP Layer Mask Suite", std::chrono::seconds(30)));
}

TEST_F(TurnRender, TouchesNoPictureWhileItStillWaits) {
  EXPECT_FALSE(hearsOfDuringAnothersTurn("PF World Suite", std::chrono::seconds(1)));
}

}  // namespace
}  // namespace quiltor::render_tests
