#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/basic_suite.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

const AEGP_UtilitySuite5& utility() { return utilitySuite11(); }
const AEGP_MemorySuite1& memory() { return memorySuite(); }

HostOptions running(ScriptRunner runner) {
  HostOptions options;
  options.runScript = std::move(runner);
  return options;
}

// The text in a handle, which is freed.
std::string taken(AEGP_MemHandle handle) {
  void* text = nullptr;
  EXPECT_EQ(memory().AEGP_LockMemHandle(handle, &text), 0);
  AEGP_MemSize size = 0;
  EXPECT_EQ(memory().AEGP_GetMemHandleSize(handle, &size), 0);
  const std::string bytes(static_cast<const char*>(text), size);
  EXPECT_EQ(memory().AEGP_UnlockMemHandle(handle), 0);
  EXPECT_EQ(memory().AEGP_FreeMemHandle(handle), 0);
  return bytes;
}

TEST(ScriptSuites, RunTheScriptAndGiveItsResultWithAZeroAtTheEnd) {
  std::vector<std::string> scripts;
  HostState host{running([&](const std::string& script) {
    scripts.push_back(script);
    return ScriptOutcome{.error = 0, .result = "r\xC3\xA9sult", .errorText = ""};
  })};
  AEGP_MemHandle result = nullptr;
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1 + 1;", 0, &result, nullptr), 0);
  EXPECT_EQ(scripts, std::vector<std::string>{"1 + 1;"});
  EXPECT_EQ(taken(result), std::string("r\xC3\xA9sult\0", 8));
  EXPECT_EQ(host.memory.liveCount(), 0u);
  EXPECT_EQ(host.findings.text(), "");
}

TEST(ScriptSuites, TellWhetherThereIsScripting) {
  A_Boolean available = 9;
  {
    HostState host{{}};
    EXPECT_EQ(utility().AEGP_IsScriptingAvailable(&available), 0);
    EXPECT_EQ(available, 0);
    EXPECT_NE(utility().AEGP_ExecuteScript(0, "1", 0, nullptr, nullptr), 0);
  }
  HostState host{running([](const std::string&) { return ScriptOutcome{}; })};
  EXPECT_EQ(utility().AEGP_IsScriptingAvailable(&available), 0);
  EXPECT_EQ(available, 1);
}

TEST(ScriptSuites, NeedNeitherOfTheTwoDestinations) {
  HostState host{
      running([](const std::string&) { return ScriptOutcome{.error = 0, .result = "a", .errorText = "b"}; })};
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, nullptr, nullptr), 0);
  EXPECT_EQ(host.memory.liveCount(), 0u);
  EXPECT_EQ(host.findings.text(), "");
}

TEST(ScriptSuites, GiveTheErrorsTextAndNoResultWhenAScriptFails) {
  HostState host{
      running([](const std::string&) { return ScriptOutcome{.error = 4, .result = "lost", .errorText = "line 1"}; })};
  AEGP_MemHandle result = reinterpret_cast<AEGP_MemHandle>(&host);
  AEGP_MemHandle error = nullptr;
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, &result, &error), 4);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(taken(error), std::string("line 1\0", 7));
}

TEST(ScriptSuites, GiveANullHandleForAnEmptyResultWhenToldTo) {
  HostState host{running([](const std::string&) { return ScriptOutcome{}; })};
  AEGP_MemHandle result = nullptr;
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, &result, nullptr), 0);
  EXPECT_EQ(taken(result), std::string("\0", 1));
  host.options.noScriptResult = NoScriptResult::NullHandle;
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, &result, nullptr), 0);
  EXPECT_EQ(result, nullptr);
}

TEST(ScriptSuites, RecordWhatNoHostTakes) {
  HostState host{running([](const std::string&) { return ScriptOutcome{}; })};
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, nullptr, 0, nullptr, nullptr), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 1, nullptr, nullptr), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(host.findings.all().size(), 2u);
}

TEST(ScriptSuites, KeepWhatTheRunnerThrewAwayFromTheEffect) {
  HostState host{running([](const std::string&) -> ScriptOutcome { throw std::runtime_error("no such button"); })};
  EXPECT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, nullptr, nullptr), PF_Err_INTERNAL_STRUCT_DAMAGED);
  EXPECT_THROW(std::rethrow_exception(host.scriptFailure), std::runtime_error);
}

TEST(ScriptMemory, CountsLocksAndKnowsItsOwnHandlesOnly) {
  HostState host{running([](const std::string&) { return ScriptOutcome{.error = 0, .result = "a", .errorText = ""}; })};
  AEGP_MemHandle result = nullptr;
  ASSERT_EQ(utility().AEGP_ExecuteScript(0, "1", 0, &result, nullptr), 0);
  void* text = nullptr;
  EXPECT_EQ(memory().AEGP_LockMemHandle(result, &text), 0);
  EXPECT_EQ(memory().AEGP_LockMemHandle(result, &text), 0);
  EXPECT_EQ(memory().AEGP_UnlockMemHandle(result), 0);
  EXPECT_EQ(host.findings.text(), "");
  EXPECT_EQ(memory().AEGP_FreeMemHandle(result), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::HandleDisposedWhileLocked));
  EXPECT_NE(memory().AEGP_FreeMemHandle(result), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::HandleDisposedTwice));

  const PF_Handle other = host.handles.make(4);
  EXPECT_NE(memory().AEGP_LockMemHandle(reinterpret_cast<AEGP_MemHandle>(other), &text), 0);
  EXPECT_TRUE(host.findings.has(FindingKind::HandleUnknown));
  host.handles.drop(other);
}

}  // namespace
}  // namespace quiltor::standalone
