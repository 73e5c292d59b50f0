#include "host/suite_handler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/host_error.h"
#include "host/scoped_suite.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A basic suite that notes every call; its tables are addresses that nobody looks behind.
struct Host {
  Host() {
    calls.clear();
    acquireError = releaseError = kSPNoError;
    givesNullTable = false;
  }

  static SPErr acquire(const char* name, int32_t version, const void** table) {
    calls.push_back("+" + std::string(name) + " " + std::to_string(version));
    if (acquireError == kSPNoError) *table = givesNullTable ? nullptr : &calls;
    return acquireError;
  }
  static SPErr release(const char* name, int32_t version) {
    calls.push_back("-" + std::string(name) + " " + std::to_string(version));
    return releaseError;
  }

  static inline std::vector<std::string> calls;
  static inline SPErr acquireError = kSPNoError;
  static inline SPErr releaseError = kSPNoError;
  static inline bool givesNullTable = false;
  SPBasicSuite basic{acquire, release, nullptr, nullptr, nullptr, nullptr, nullptr};
};

HostErr codeThrownBy(SuiteHandler& suites) {
  return hostBoundary([&] {
    suites.handles();
    return HostErr{PF_Err_NONE};
  });
}

TEST(SuiteHandler, ThatIsNotAskedTouchesNoSuite) {
  Host host;
  { SuiteHandler suites(&host.basic); }
  EXPECT_THAT(Host::calls, IsEmpty());
}

TEST(SuiteHandler, AcquiresAndReleasesASuiteOnceHoweverOftenItIsUsed) {
  Host host;
  {
    SuiteHandler suites(&host.basic);
    EXPECT_EQ(&suites.handles(), &suites.handles());
  }
  EXPECT_THAT(Host::calls, ElementsAre("+PF Handle Suite 2", "-PF Handle Suite 2"));
}

TEST(SuiteHandler, ReleasesAllSuitesWhenAnExceptionPasses) {
  Host host;
  EXPECT_THROW(
      {
        SuiteHandler suites(&host.basic);
        suites.utility();
        suites.handles();
        suites.ansi();
        throwHostError(PF_Err_INTERNAL_STRUCT_DAMAGED);
      },
      HostErr);
  EXPECT_THAT(Host::calls, ElementsAre("+AEGP Utility Suite 7", "+PF Handle Suite 2", "+PF ANSI Suite 1",
                                       "-PF Handle Suite 2", "-PF ANSI Suite 1", "-AEGP Utility Suite 7"));
}

TEST(SuiteHandler, Throws516WhenTheHostLacksASuiteAndReleasesNothing) {
  Host host;
  Host::acquireError = kSPSuiteNotFoundError;
  {
    SuiteHandler suites(&host.basic);
    EXPECT_EQ(codeThrownBy(suites), 516);
  }
  EXPECT_THAT(Host::calls, ElementsAre("+PF Handle Suite 2"));
}

TEST(SuiteHandler, Throws516ForANullTable) {
  Host host;
  Host::givesNullTable = true;
  SuiteHandler suites(&host.basic);
  EXPECT_EQ(codeThrownBy(suites), 516);
}

TEST(SuiteHandler, Throws516WithoutABasicSuite) {
  SuiteHandler suites(nullptr);
  EXPECT_EQ(codeThrownBy(suites), 516);
}

TEST(SuiteHandler, IgnoresAFailedRelease) {
  Host host;
  Host::releaseError = kSPSuiteAlreadyReleasedError;
  {
    SuiteHandler suites(&host.basic);
    suites.handles();
    suites.ansi();
  }
  EXPECT_THAT(Host::calls,
              ElementsAre("+PF Handle Suite 2", "+PF ANSI Suite 1", "-PF Handle Suite 2", "-PF ANSI Suite 1"));
}

using ScopedHandles = ScopedSuite<PF_HandleSuite1>;

TEST(ScopedSuite, AcquiresOnceAndReleasesAtTheEndOfTheScope) {
  Host host;
  {
    const ScopedHandles suite(&host.basic, kPFHandleSuite, 2);
    EXPECT_TRUE(suite);
  }
  EXPECT_THAT(Host::calls, ElementsAre("+PF Handle Suite 2", "-PF Handle Suite 2"));
}

TEST(ScopedSuite, ThatIsMissingIsNullAndSaysSo) {
  Host host;
  Host::acquireError = kSPSuiteNotFoundError;
  PF_OutData out{};
  {
    const ScopedHandles suite(&host.basic, kPFHandleSuite, 2, &out);
    EXPECT_FALSE(suite);
  }
  EXPECT_STREQ(out.return_msg, "Not able to acquire AEFX Suite.");
  EXPECT_EQ(out.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
  EXPECT_THAT(Host::calls, ElementsAre("+PF Handle Suite 2"));
}

TEST(ScopedSuite, ThatCannotBeReleasedSaysSo) {
  Host host;
  Host::releaseError = kSPSuiteAlreadyReleasedError;
  PF_OutData out{};
  out.out_flags = PF_OutFlag_CUSTOM_UI;
  { const ScopedHandles suite(&host.basic, kPFHandleSuite, 2, &out); }
  EXPECT_STREQ(out.return_msg, "Not able to release AEFX Suite.");
  EXPECT_EQ(out.out_flags, PF_OutFlag_CUSTOM_UI | PF_OutFlag_DISPLAY_ERROR_MESSAGE);
}

TEST(ScopedSuite, WithoutAMessageRecordIsSilent) {
  Host host;
  Host::acquireError = kSPSuiteNotFoundError;
  const ScopedHandles suite(&host.basic, kPFHandleSuite, 2);
  EXPECT_FALSE(suite);
}

}  // namespace
}  // namespace quiltor
