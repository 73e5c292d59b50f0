#include "host/host_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace quiltor {
namespace {

TEST(HostBoundary, ReturnsWhatTheHandlerReturns) {
  EXPECT_EQ(hostBoundary([] { return HostErr{PF_Err_NONE}; }), 0);
  EXPECT_EQ(hostBoundary([] { return HostErr{517}; }), 517);
}

TEST(HostBoundary, TurnsAThrownIntegerIntoTheResult) {
  EXPECT_EQ(hostBoundary([]() -> HostErr { throwHostError(PF_Err_BAD_CALLBACK_PARAM); }), 516);
  EXPECT_EQ(hostBoundary([]() -> HostErr { throw 513; }), 513);
}

TEST(HostBoundary, TurnsAnyOtherExceptionInto512) {
  EXPECT_EQ(hostBoundary([]() -> HostErr { throw std::bad_alloc(); }), 512);
  EXPECT_EQ(hostBoundary([]() -> HostErr { throw std::runtime_error("broken"); }), 512);
  EXPECT_EQ(hostBoundary([]() -> HostErr { throw std::string("broken"); }), 512);
}

}  // namespace
}  // namespace quiltor
