#include "ui/script_runner.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "host/host_error.h"
#include "hostapi/suites_aegp.h"

namespace quiltor {
namespace {

// A host that offers the two suites and hands out one result.
struct FakeHost {
  static inline bool offersMemory;
  static inline A_Err answer;
  static inline std::string script;
  static inline A_Boolean platformEncoding;
  static inline AEGP_PluginID pluginId;
  static inline AEGP_MemHandle* errorAsked;
  static inline std::string result;  // with whatever stands behind its zero
  static inline bool hasResult;
  static inline int locks;
  static inline int frees;

  static AEGP_MemHandle handle() { return reinterpret_cast<AEGP_MemHandle>(&result); }

  static A_Err execute(AEGP_PluginID id, const A_char* text, A_Boolean encoding, AEGP_MemHandle* resultOut,
                       AEGP_MemHandle* errorOut) {
    pluginId = id;
    script = text;
    platformEncoding = encoding;
    errorAsked = errorOut;
    *resultOut = hasResult ? handle() : nullptr;
    return answer;
  }
  static A_Err lock(AEGP_MemHandle, void** pointer) {
    ++locks;
    *pointer = result.data();
    return PF_Err_NONE;
  }
  static A_Err unlock(AEGP_MemHandle) {
    --locks;
    return PF_Err_NONE;
  }
  static A_Err free(AEGP_MemHandle) {
    ++frees;
    return PF_Err_NONE;
  }
  static A_Err size(AEGP_MemHandle, AEGP_MemSize* bytes) {
    *bytes = static_cast<AEGP_MemSize>(result.size());
    return PF_Err_NONE;
  }

  static SPErr acquire(const char* name, int32_t version, const void** table) {
    static const AEGP_UtilitySuite5 scripting = [] {
      AEGP_UtilitySuite5 suite{};
      suite.AEGP_ExecuteScript = execute;
      return suite;
    }();
    static const AEGP_MemorySuite1 memory = {nullptr, free, lock, unlock, size, {}};
    if (std::strcmp(name, "AEGP Utility Suite") == 0 && version == 11) *table = &scripting;
    if (std::strcmp(name, "AEGP Memory Suite") == 0 && version == 1 && offersMemory) *table = &memory;
    return kSPNoError;
  }
  static SPErr release(const char*, int32_t) { return kSPNoError; }
};

class RunScript : public testing::Test {
 protected:
  RunScript() {
    FakeHost::offersMemory = FakeHost::hasResult = true;
    FakeHost::answer = PF_Err_NONE;
    FakeHost::script = "nothing ran";
    FakeHost::result = std::string("picked\0", 7);
    FakeHost::locks = FakeHost::frees = 0;
    basic_.AcquireSuite = FakeHost::acquire;
    basic_.ReleaseSuite = FakeHost::release;
    in_.pica_basicP = &basic_;
  }

  SPBasicSuite basic_{};
  PF_InData in_{};
};

TEST_F(RunScript, GivesTheResultAndFreesIt) {
  EXPECT_EQ(runScript(in_, "1;"), "picked");
  EXPECT_EQ(FakeHost::script, "1;");
  EXPECT_EQ(FakeHost::pluginId, 0);
  EXPECT_EQ(FakeHost::platformEncoding, 0);
  EXPECT_EQ(FakeHost::errorAsked, nullptr);
  EXPECT_EQ(FakeHost::locks, 0);
  EXPECT_EQ(FakeHost::frees, 1);
}

TEST_F(RunScript, CutsALongScriptToItsFirst64999Characters) {
  std::string script;
  for (int i = 0; i < 65001; ++i) script += static_cast<char>('a' + i % 26);
  runScript(in_, script.substr(0, 64999));
  EXPECT_EQ(FakeHost::script, script.substr(0, 64999)) << "that is not too long";
  for (const size_t length : {65000u, 65001u}) {
    runScript(in_, script.substr(0, length));
    EXPECT_EQ(FakeHost::script, script.substr(0, 64999));
  }
}

TEST_F(RunScript, ReadsNothingBehindTheResult) {
  FakeHost::result = std::string("pick\0ed", 7);
  EXPECT_EQ(runScript(in_, "1;"), "pick");
  FakeHost::result = "no zero";
  EXPECT_EQ(runScript(in_, "1;"), "no zero");
}

TEST_F(RunScript, TakesANullHandleAsAnEmptyResult) {
  FakeHost::hasResult = false;
  EXPECT_EQ(runScript(in_, "1;"), "");
  EXPECT_EQ(FakeHost::frees, 0);
}

TEST_F(RunScript, GivesNothingWhenTheHostRefusesAndFreesWhatItGot) {
  FakeHost::answer = 3;
  EXPECT_EQ(runScript(in_, "1;"), std::nullopt);
  EXPECT_EQ(FakeHost::frees, 1);
}

TEST_F(RunScript, RunsNothingInTheVideoEditor) {
  in_.appl_id = kAppId_PremierePro;
  EXPECT_EQ(runScript(in_, "1;"), std::nullopt);
  EXPECT_EQ(FakeHost::script, "nothing ran");
}

// A result would be left that nobody can free.
TEST_F(RunScript, RunsNothingWithoutTheMemorySuite) {
  FakeHost::offersMemory = false;
  EXPECT_THROW(runScript(in_, "1;"), HostErr);
  EXPECT_EQ(FakeHost::script, "nothing ran");
}

}  // namespace
}  // namespace quiltor
