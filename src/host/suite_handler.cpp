#include "host/suite_handler.h"

#include "host/host_error.h"

namespace quiltor {

const std::array<SuiteHandler::SuiteId, SuiteHandler::kSlots> SuiteHandler::kSuites = {{
    {kPFHandleSuite, kPFHandleSuiteVersion2},
    {kPFANSISuite, kPFANSISuiteVersion1},
    {kPFIterate8Suite, kPFIterate8SuiteVersion1},
    {kPFAdvAppSuite, kPFAdvAppSuiteVersion1},
    {kAEGPUtilitySuite, kAEGPUtilitySuiteVersion7},
    {kAEGPUtilitySuite, kAEGPUtilitySuiteVersion11},
    {kAEGPMemorySuite, kAEGPMemorySuiteVersion1},
    {kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1},
    {kAEGPStreamSuite, kAEGPStreamSuiteVersion7},
    {kAEGPStreamSuite, kAEGPStreamSuiteVersion9},
    {kAEGPLayerMaskSuite, kAEGPLayerMaskSuiteVersion6},
    {kPFPathQuerySuite, kPFPathQuerySuiteVersion1},
    {kPFPathDataSuite, kPFPathDataSuiteVersion1},
    {kPFFillMatteSuite, kPFFillMatteSuiteVersion2},
}};

SuiteHandler::~SuiteHandler() {
  for (size_t slot = 0; slot < kSlots; ++slot) {
    if (tables_[slot]) basic_->ReleaseSuite(kSuites[slot].name, kSuites[slot].version);
  }
}

const void* SuiteHandler::acquire(Slot slot) {
  const size_t index = static_cast<size_t>(slot);
  if (tables_[index]) return tables_[index];
  const SuiteId& suite = kSuites[index];
  const void* table = nullptr;
  if (!basic_ || basic_->AcquireSuite(suite.name, suite.version, &table) != kSPNoError || !table) {
    throwHostError(PF_Err_BAD_CALLBACK_PARAM);
  }
  return tables_[index] = table;
}

}  // namespace quiltor
