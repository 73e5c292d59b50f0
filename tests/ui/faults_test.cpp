// Every call of these commands to the host is made to fail once, one after the other: nothing is left behind, and the
// same command works when it comes again.
#include <gtest/gtest.h>

#include <functional>

#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"
#include "tests/ui/control_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using testing_support::ControlTest;
using testing_support::liveRecordOf;

class PanelFaults : public ControlTest {
 protected:
  // Gives how many calls to the host the command makes when nothing fails.
  size_t sweep(const std::function<CallResult()>& command) {
    for (size_t k = 0;; ++k) {
      host.faults().failAt(k);
      const CallResult result = command();
      const bool struck = host.faults().struck();
      const bool known =
          result.code == 0 || result.code == 512 || result.code == 516 || result.code == kSPBadParameterError;
      EXPECT_TRUE(known) << result.code << " at host call " << k;
      host.faults().failNever();
      EXPECT_EQ(host.suiteBalance(), 0) << "host call " << k;
      EXPECT_EQ(host.findings().text(), "") << "host call " << k;
      host.findings().clear();
      EXPECT_EQ(command().code, 0) << "again after host call " << k;
      if (!struck) return k;
    }
  }
};

TEST_F(PanelFaults, OverTheRefreshOfThePanel) {
  instance.setChoice(Param::source, 1);
  EXPECT_GT(sweep([&] { return instance.updateUi(); }), 15u);
}

TEST_F(PanelFaults, OverADrawing) {
  EXPECT_GT(sweep([&] { return instance.drawControl(Param::txtsrc).call; }), 15u);
}

TEST_F(PanelFaults, OverAPick) {
  writeList(userList());
  const std::string picture = folder.path("a.png");
  testing_support::writePng(picture, 3, 3, 4, testing_support::variedPixels(3, 3, 4));
  outcome.result = picture + "*Label*Name*x*";
  EXPECT_GT(sweep([&] { return instance.clickedByUser(Param::txtsrc).call; }), 20u);
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 3);
}

TEST_F(PanelFaults, OverTheSettings) {
  EXPECT_GT(sweep([&] { return instance.doDialog(); }), 5u);
}

}  // namespace
}  // namespace quiltor
