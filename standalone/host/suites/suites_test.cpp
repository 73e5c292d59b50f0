#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/basic_suite.h"
#include "standalone/host/suites/suite_tables.h"
#include "standalone/host/suites/util_callbacks.h"

namespace quiltor::standalone {
namespace {

const int kUntouched = 0;

// What AcquireSuite leaves in the destination, which starts with the address of kUntouched.
const void* acquired(const char* name, int version, SPErr expected) {
  const void* table = &kUntouched;
  EXPECT_EQ(basicSuite().AcquireSuite(name, version, &table), expected);
  return table;
}

TEST(BasicSuite, AnswersAnUnknownNameOrVersionWithNotFoundAndLeavesTheTable) {
  HostState host{{}};
  EXPECT_EQ(acquired("PF No Such Suite", 1, kSPSuiteNotFoundError), &kUntouched);
  EXPECT_EQ(acquired(kPFHandleSuite, 99, kSPSuiteNotFoundError), &kUntouched);
  EXPECT_EQ(host.suites.balance(), 0);
}

TEST(BasicSuite, CountsAcquiresAndReleasesPerVersion) {
  HostState host{{}};
  acquired(kAEGPUtilitySuite, 7, kSPNoError);
  acquired(kAEGPUtilitySuite, 11, kSPNoError);
  EXPECT_EQ(basicSuite().ReleaseSuite(kAEGPUtilitySuite, 7), kSPNoError);
  EXPECT_EQ(basicSuite().ReleaseSuite(kAEGPUtilitySuite, 7), kSPSuiteAlreadyReleasedError);
  EXPECT_TRUE(host.findings.has(FindingKind::SuiteReleasedTooOften));
  EXPECT_EQ(host.suites.balance(), 1);
}

TEST(BasicSuite, WithholdsWhatTheOptionsWithhold) {
  HostState host{{.suitesNotOffered = {{kPFHandleSuite, 2}}}};
  acquired(kPFHandleSuite, 2, kSPSuiteNotFoundError);
}

TEST(BasicSuite, OffersPixelFormatsToTheVideoEditorOnlyAndProjectSuitesToTheCompositingHostOnly) {
  {
    HostState host{{}};
    acquired(kPFPixelFormatSuite, 1, kSPSuiteNotFoundError);
    acquired(kAEGPStreamSuite, 7, kSPNoError);
  }
  HostState host{{.appId = kAppId_PremierePro}};
  acquired(kPFPixelFormatSuite, 1, kSPNoError);
  acquired(kAEGPStreamSuite, 7, kSPSuiteNotFoundError);
}

TEST(BasicSuite, FailsOnTheFaultPlansWordAndCountsTheReleaseAllTheSame) {
  HostState host{{}};
  host.faults.failAlways(HostCall::AcquireSuite);
  EXPECT_EQ(acquired(kPFHandleSuite, 2, kSPSuiteNotFoundError), &kUntouched);
  host.faults.failAlways(HostCall::ReleaseSuite);
  acquired(kPFHandleSuite, 2, kSPNoError);
  EXPECT_NE(basicSuite().ReleaseSuite(kPFHandleSuite, 2), kSPNoError);
  EXPECT_EQ(host.suites.balance(), 0);
}

TEST(UtilCallbacks, OfferTheHandleFunctions) {
  HostState host{{}};
  const PF_UtilCallbacks& utils = utilCallbacks();
  const PF_Handle handle = utils.host_new_handle(5);
  EXPECT_EQ(utils.host_lock_handle(handle), *handle);
  EXPECT_EQ(utils.host_get_handle_size(handle), 5u);
  utils.host_unlock_handle(handle);
  utils.host_dispose_handle(handle);
  EXPECT_EQ(host.handles.liveCount(), 0u);
  EXPECT_TRUE(host.findings.empty()) << host.findings.text();
}

TEST(HostFunctions, RegisterInSlotSevenOfVersionSevenAndInSlotEightOfVersionEleven) {
  HostState host{{}};
  AEGP_PluginID id = 0;
  EXPECT_EQ(utilitySuite7().AEGP_RegisterWithAEGP(nullptr, "seven", &id), 0);
  void* slot8 = nullptr;
  std::memcpy(&slot8, reinterpret_cast<const char*>(&utilitySuite11()) + 8 * sizeof(void*), sizeof slot8);
  EXPECT_EQ(reinterpret_cast<decltype(AEGP_UtilitySuite3::AEGP_RegisterWithAEGP)>(slot8)(nullptr, "eleven", &id), 0);
  EXPECT_EQ(host.registeredEffectNames, (std::vector<std::string>{"seven", "eleven"}));
}

struct Turns {
  std::mutex mutex;
  std::vector<int> countOfIteration;
  std::map<A_long, std::set<std::thread::id>> threadsOfIndex;
  std::map<std::thread::id, std::set<A_long>> indicesOfThread;
  std::atomic<int> waiting = 0;
  int threads = 1;
};

// Waits until every thread has its first turn, so that all of them have one.
PF_Err noteTurn(void* refcon, A_long threadIndex, A_long iteration, A_long) {
  Turns& turns = *static_cast<Turns*>(refcon);
  {
    std::lock_guard lock(turns.mutex);
    ++turns.countOfIteration[static_cast<std::size_t>(iteration)];
    turns.threadsOfIndex[threadIndex].insert(std::this_thread::get_id());
    turns.indicesOfThread[std::this_thread::get_id()].insert(threadIndex);
  }
  ++turns.waiting;
  while (turns.waiting < turns.threads) std::this_thread::yield();
  return PF_Err_NONE;
}

TEST(IterateGeneric, RunsEveryIterationOnceWithOneThreadIndexPerThread) {
  HostState host{{.iterateThreads = 3}};
  Turns turns;
  turns.threads = 3;
  turns.countOfIteration.resize(50);
  EXPECT_EQ(iterate8Suite().iterate_generic(50, &turns, &noteTurn), PF_Err_NONE);
  EXPECT_EQ(turns.countOfIteration, std::vector<int>(50, 1));
  ASSERT_EQ(turns.threadsOfIndex.size(), 3u);
  EXPECT_EQ(turns.indicesOfThread.size(), 3u);
  EXPECT_EQ(turns.threadsOfIndex[0], std::set{std::this_thread::get_id()});
  for (const auto& [index, threads] : turns.threadsOfIndex) EXPECT_EQ(threads.size(), 1u) << index;
}

TEST(IterateGeneric, RunsOncePerProcessorForMinusOne) {
  HostState host{{.iterateThreads = 3}};
  Turns turns;
  turns.countOfIteration.resize(3);
  iterate8Suite().iterate_generic(PF_Iterations_ONCE_PER_PROCESSOR, &turns, &noteTurn);
  EXPECT_EQ(turns.countOfIteration, std::vector<int>(3, 1));
}

PF_Err failAtThree(void* refcon, A_long, A_long iteration, A_long) {
  ++*static_cast<int*>(refcon);
  return iteration == 3 ? 517 : PF_Err_NONE;
}

TEST(IterateGeneric, StopsAtTheFirstErrorAndReturnsIt) {
  HostState host{{.iterateThreads = 1}};
  int turns = 0;
  EXPECT_EQ(iterate8Suite().iterate_generic(100, &turns, &failAtThree), 517);
  EXPECT_EQ(turns, 4);
}

TEST(IterateGeneric, RunsNothingForNoIterations) {
  HostState host{{}};
  int turns = 0;
  EXPECT_EQ(iterate8Suite().iterate_generic(0, &turns, &failAtThree), PF_Err_NONE);
  EXPECT_EQ(turns, 0);
}

TEST(IterateGeneric, IsANullSlotWhenItIsNotOffered) {
  HostState host{{.offerIterateGeneric = false}};
  EXPECT_EQ(iterate8Suite().iterate_generic, nullptr);
}

struct LayerSuites : testing::Test {
  AEGP_ThreeDVal valueOf(AEGP_LayerStream code, const A_Time& time) {
    AEGP_LayerH layer = nullptr;
    AEGP_StreamRefH stream = nullptr;
    AEGP_StreamValue value{};
    EXPECT_EQ(pfInterfaceSuite().AEGP_GetEffectLayer(call.reference(), &layer), 0);
    EXPECT_EQ(streamSuite7().AEGP_GetNewLayerStream(0, layer, code, &stream), 0);
    EXPECT_EQ(streamSuite7().AEGP_GetNewStreamValue(0, stream, 0, &time, 0, &value), 0);
    const AEGP_ThreeDVal result = value.val.three_d;
    EXPECT_EQ(streamSuite7().AEGP_DisposeStreamValue(&value), 0);
    EXPECT_EQ(streamSuite7().AEGP_DisposeStream(stream), 0);
    return result;
  }

  HostState host{{}};
  CallScope call{"PF_Cmd_RENDER", nullptr};
  EnterCall enter{&call};

  void SetUp() override { host.begin(call); }
  void TearDown() override {
    host.end(call);
    EXPECT_EQ(host.findings.text(), "");
  }
};

TEST_F(LayerSuites, ReportTheTransformOfTheOptions) {
  host.options.transform = {
      .positionX = 1, .positionY = 2, .anchorX = 3, .anchorY = 4, .scaleX = 50, .scaleY = 60, .rotation = 70};
  EXPECT_EQ(valueOf(AEGP_LayerStream_POSITION, {0, 25}).y, 2);
  EXPECT_EQ(valueOf(AEGP_LayerStream_ANCHORPOINT, {0, 25}).x, 3);
  EXPECT_EQ(valueOf(AEGP_LayerStream_SCALE, {0, 25}).y, 60);
  EXPECT_EQ(valueOf(AEGP_LayerStream_ROTATION, {0, 25}).x, 70);
}

TEST_F(LayerSuites, ReportTheTransformOfTheAskedTime) {
  host.options.transformAt = [](double seconds) { return LayerTransform{.rotation = 10 * seconds}; };
  EXPECT_EQ(valueOf(AEGP_LayerStream_ROTATION, {50, 25}).x, 20);
}

TEST_F(LayerSuites, TellAWorldsFormatAndDisposeIt) {
  PF_EffectWorld world{};
  PF_PixelFormat format = 0;
  EXPECT_EQ(worldSuite().PF_NewWorld(call.reference(), 3, 2, 1, PF_PixelFormat_ARGB64, &world), 0);
  EXPECT_EQ(worldSuite().PF_GetPixelFormat(&world, &format), 0);
  EXPECT_EQ(format, PF_PixelFormat_ARGB64);
  EXPECT_EQ(*reinterpret_cast<A_u_short*>(world.data), 0);
  EXPECT_EQ(worldSuite().PF_DisposeWorld(call.reference(), &world), 0);
  EXPECT_EQ(world.data, nullptr);
  EXPECT_EQ(host.worlds.liveCount(), 0u);
}

}  // namespace
}  // namespace quiltor::standalone
