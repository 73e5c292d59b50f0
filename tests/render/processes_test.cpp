// Renders of several processes wait for one another.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "platform/environment_override.h"
#include "platform/process.h"
#include "platform/scratch_folder.h"
#include "platform/testing/shared_record.h"
#include "platform/testing/test_process.h"
#include "platform/testing/wait_for.h"
#include "standalone/host/instance.h"

namespace quiltor::render_tests {
namespace {

using namespace standalone;
using namespace std::chrono_literals;

// What several processes tell one another about their renders.
struct Turns {
  std::atomic<int> arrivals;   // processes that came to where they wait for a turn
  std::atomic<int> inside;     // processes inside a render at this moment
  std::atomic<int> meetings;   // how often one entered while another was inside
  std::atomic<int> finished;   // renders that came to their end
  std::atomic<int> handovers;  // how often a render was another process's than the one before it
  std::atomic<int64_t> lastProcess;

  void enter() {
    if (inside.fetch_add(1) != 0) ++meetings;
    if (lastProcess.exchange(processNumber()) != processNumber()) ++handovers;
  }
  void leave() {
    inside.fetch_sub(1);
    ++finished;
  }
};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<int64_t>::is_always_lock_free);

constexpr int kRows = 4;
// A frame asks whether to abort once before its turn; then twice, and once for each row of the input, the stand-in for
// the pattern layer and the output.
constexpr int kFirstAskedInside = 1, kLastAskedInside = 2 + 3 * kRows;

// Renders frames of one instance, one after the other, and tells when it is inside a render. The words are the turns'
// file and the number of frames, or "hang" to stop for ever inside the first one.
const ProcessWork kRenderMany("render many frames", [](const std::vector<std::string>& words) {
  const SharedRecord<Turns> turns(words[0]);
  const bool hangs = words[1] == "hang";
  Host host({.iterateThreads = 1, .onAbort = [&](int asked) -> PF_Err {
               if (asked == kFirstAskedInside) {
                 turns->enter();
                 while (hangs) std::this_thread::sleep_for(1h);
               }
               if (asked == kLastAskedInside) turns->leave();
               return PF_Err_NONE;
             }});
  const EffectModule module(QUILTOR_MODULE_PATH);
  Effect effect(host, module);
  if (!effect.setUp().succeeded()) return 2;
  Instance instance(effect);
  ++turns->arrivals;  // the setup of an instance waits for renders too
  if (!instance.setUp().succeeded()) return 2;
  // Frames are drawn faster than a process starts.
  if (!hangs && !waitFor([&] { return turns->arrivals == 2; })) return 4;
  World input(WorldFormat::Argb8, 3, kRows);
  const int frames = hangs ? 1 : std::stoi(words[1]);
  for (int frame = 0; frame < frames; ++frame) {
    if (instance.render({.input = &input}).code != PF_Err_NONE) return 3;
  }
  return 0;
});

class RenderingProcesses : public testing::Test {
 protected:
  ScratchFolder folder;
  EnvironmentOverride userData{"XDG_CONFIG_HOME", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
  const std::string turnsFile = folder.path("turns");
  const SharedRecord<Turns> turns{turnsFile};
};

TEST_F(RenderingProcesses, NeverOverlap) {
  TestProcess first(kRenderMany, {turnsFile, "200"}), second(kRenderMany, {turnsFile, "200"});
  EXPECT_EQ(first->end(), 0);
  EXPECT_EQ(second->end(), 0);
  EXPECT_EQ(turns->finished, 400);
  EXPECT_EQ(turns->meetings, 0);
  // Otherwise one was done before the other began, and nothing was tried.
  EXPECT_GT(turns->handovers, 2);
}

TEST_F(RenderingProcesses, GoOnWithinASecondWhenOneIsKilledInTheMiddle) {
  TestProcess hanging(kRenderMany, {turnsFile, "hang"});
  ASSERT_TRUE(waitFor([&] { return turns->inside == 1; })) << "the first process never rendered";
  TestProcess waiting(kRenderMany, {turnsFile, "200"});
  ASSERT_TRUE(waitFor([&] { return turns->arrivals == 2; })) << "the other process never started";
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(turns->finished, 0) << "a process rendered in the middle of another's render";

  const auto killed = std::chrono::steady_clock::now();
  hanging->kill();
  ASSERT_TRUE(waitFor([&] { return turns->finished >= 1; })) << "the other process waits for ever";
  EXPECT_LT(std::chrono::steady_clock::now() - killed, 1s);
  EXPECT_EQ(hanging->end(), ChildProgram::kKilled);
  EXPECT_EQ(waiting->end(), 0);
  EXPECT_EQ(turns->finished, 200);
}

}  // namespace
}  // namespace quiltor::render_tests
