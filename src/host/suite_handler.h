#pragma once

#include <array>
#include <cstddef>

#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"

namespace quiltor {

// One per handler call, on the handler's stack. Acquires each host suite on first use and releases all of them, in slot
// order, when it goes out of scope. Not shared between threads. A suite that the host does not offer throws 516.
class SuiteHandler {
 public:
  explicit SuiteHandler(const SPBasicSuite* basic) : basic_(basic) {}
  ~SuiteHandler();
  SuiteHandler(const SuiteHandler&) = delete;
  SuiteHandler& operator=(const SuiteHandler&) = delete;

  const PF_HandleSuite1& handles() { return table<PF_HandleSuite1>(Slot::Handle); }
  const PF_ANSICallbacksSuite1& ansi() { return table<PF_ANSICallbacksSuite1>(Slot::Ansi); }
  const PF_Iterate8Suite1& iterate8() { return table<PF_Iterate8Suite1>(Slot::Iterate8); }
  const PF_AdvAppSuite1& advApp() { return table<PF_AdvAppSuite1>(Slot::AdvApp); }
  const AEGP_UtilitySuite3& utility() { return table<AEGP_UtilitySuite3>(Slot::Utility); }
  const AEGP_UtilitySuite5& scripting() { return table<AEGP_UtilitySuite5>(Slot::Scripting); }
  const AEGP_MemorySuite1& memory() { return table<AEGP_MemorySuite1>(Slot::Memory); }
  const AEGP_PFInterfaceSuite1& pfInterface() { return table<AEGP_PFInterfaceSuite1>(Slot::PFInterface); }
  const AEGP_StreamSuite2& streams() { return table<AEGP_StreamSuite2>(Slot::Stream); }
  const AEGP_StreamSuite4& maskStreams() { return table<AEGP_StreamSuite4>(Slot::MaskStream); }
  const AEGP_MaskSuite5& layerMasks() { return table<AEGP_MaskSuite5>(Slot::LayerMask); }
  const PF_PathQuerySuite1& pathQuery() { return table<PF_PathQuerySuite1>(Slot::PathQuery); }
  const PF_PathDataSuite1& pathData() { return table<PF_PathDataSuite1>(Slot::PathData); }
  const PF_FillMatteSuite2& fillMatte() { return table<PF_FillMatteSuite2>(Slot::FillMatte); }

 private:
  enum class Slot {
    Handle,
    Ansi,
    Iterate8,
    AdvApp,
    Utility,
    Scripting,
    Memory,
    PFInterface,
    Stream,
    MaskStream,
    LayerMask,
    PathQuery,
    PathData,
    FillMatte,
    Count
  };

  struct SuiteId {
    const char* name;
    int32_t version;
  };
  static constexpr size_t kSlots = static_cast<size_t>(Slot::Count);
  static const std::array<SuiteId, kSlots> kSuites;

  template <class Table>
  const Table& table(Slot slot) {
    return *static_cast<const Table*>(acquire(slot));
  }
  const void* acquire(Slot slot);

  const SPBasicSuite* basic_;
  std::array<const void*, kSlots> tables_{};
};

}  // namespace quiltor
