// What a render answers in a host that lacks a suite.
#include <string>
#include <utility>
#include <vector>

#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"
#include "tests/render/hand_case.h"
#include "tests/render/render_test.h"

namespace quiltor::render_tests {
namespace {

class MissingSuitesRender : public RenderTest {
 protected:
  void expectCode(const std::string& suite, int version, PF_Err code) {
    for (const bool smart : {false, true}) {
      RenderCase frame = overlaid(filled(3, 3, grey(0.5)), filled(3, 3, grey(0.25)));
      frame.smart = smart;
      standalone::Instance instance(effect);
      ASSERT_TRUE(instance.setUp().succeeded());
      setParameters(instance, frame);
      host.options().suitesNotOffered = {{suite, version}};
      const standalone::RenderResult result = renderOf(instance, frame);
      host.options().suitesNotOffered = {};
      EXPECT_EQ(result.code, code) << suite << (smart ? ", smart" : ", classic");
      const standalone::RenderResult again = renderOf(instance, frame);
      ASSERT_TRUE(again.output.has_value());
      expectAll(*again.output, grey(0.25));
    }
  }
};

TEST_F(MissingSuitesRender, AnswersTheHostsOwnCodeWithoutTheWorldSuite) {
  expectCode(kPFWorldSuite, kPFWorldSuiteVersion2, kSPSuiteNotFoundError);
}

TEST_F(MissingSuitesRender, Answers516WithoutTheIterateSuite) {
  expectCode(kPFIterate8Suite, kPFIterate8SuiteVersion1, PF_Err_BAD_CALLBACK_PARAM);
}

TEST_F(MissingSuitesRender, Answers516WithoutTheInterfaceSuite) {
  expectCode(kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1, PF_Err_BAD_CALLBACK_PARAM);
}

TEST_F(MissingSuitesRender, Answers516WithoutTheStreamSuite) {
  expectCode(kAEGPStreamSuite, kAEGPStreamSuiteVersion7, PF_Err_BAD_CALLBACK_PARAM);
}

TEST_F(MissingSuitesRender, Answers516WithoutTheHandleSuite) {
  expectCode(kPFHandleSuite, kPFHandleSuiteVersion2, PF_Err_BAD_CALLBACK_PARAM);
}

TEST_F(MissingSuitesRender, DrawsWithoutThePixelFormatSuite) {
  expectCode(kPFPixelFormatSuite, kPFPixelFormatSuiteVersion1, PF_Err_NONE);
}

}  // namespace
}  // namespace quiltor::render_tests
