#include <cstdio>
#include <cstring>

#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

PF_ANSICallbacksSuite1 makeSuite() {
  auto suite = tableOfUnimplementedSlots<PF_ANSICallbacksSuite1>();
  suite.sprintf = &std::sprintf;
  suite.strcpy = &std::strcpy;
  return suite;
}

}  // namespace

const PF_ANSICallbacksSuite1& ansiSuite() {
  static const PF_ANSICallbacksSuite1 suite = makeSuite();
  return suite;
}

}  // namespace quiltor::standalone
