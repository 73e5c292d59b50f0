#include "host/entry/selector_names.h"

#include <gtest/gtest.h>

#include <limits>

#include "hostapi/effect.h"

namespace quiltor {
namespace {

TEST(SelectorName, IsTheHostsOwn) {
  EXPECT_STREQ(selectorName(PF_Cmd_ABOUT), "PF_Cmd_ABOUT");
  EXPECT_STREQ(selectorName(PF_Cmd_UNUSED_0), "PF_Cmd_UNUSED_0");
  EXPECT_STREQ(selectorName(PF_Cmd_SEQUENCE_FLATTEN), "PF_Cmd_SEQUENCE_FLATTEN");
  EXPECT_STREQ(selectorName(PF_Cmd_RENDER), "PF_Cmd_RENDER");
  EXPECT_STREQ(selectorName(PF_Cmd_EVENT), "PF_Cmd_EVENT");
  EXPECT_STREQ(selectorName(PF_Cmd_ARBITRARY_CALLBACK), "PF_Cmd_ARBITRARY_CALLBACK");
  EXPECT_STREQ(selectorName(PF_Cmd_SMART_RENDER), "PF_Cmd_SMART_RENDER");
  EXPECT_STREQ(selectorName(PF_Cmd_RESERVED2), "PF_Cmd_RESERVED2");
}

TEST(SelectorName, IsUnknownOutsideTheTable) {
  for (const A_long selector : {-1, 27, 28, 29, 1000, std::numeric_limits<A_long>::min()}) {
    EXPECT_STREQ(selectorName(selector), "unknown") << selector;
  }
}

}  // namespace
}  // namespace quiltor
