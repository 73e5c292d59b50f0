#include "standalone/host/suites/suite_catalogue.h"

#include <string_view>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

enum class OfferedBy { Both, Compositing, VideoEditor };

struct Entry {
  std::string_view name;
  int version;
  OfferedBy offeredBy;
  const void* (*table)();
};

template <auto& Suite>
const void* tableOf() {
  return &Suite();
}

constexpr Entry kCatalogue[] = {
    {kPFHandleSuite, kPFHandleSuiteVersion2, OfferedBy::Both, &tableOf<handleSuite>},
    {kPFANSISuite, kPFANSISuiteVersion1, OfferedBy::Both, &tableOf<ansiSuite>},
    {kPFIterate8Suite, kPFIterate8SuiteVersion1, OfferedBy::Both, &tableOf<iterate8Suite>},
    {kPFWorldSuite, kPFWorldSuiteVersion2, OfferedBy::Both, &tableOf<worldSuite>},
    {kPFPixelFormatSuite, kPFPixelFormatSuiteVersion1, OfferedBy::VideoEditor, &tableOf<pixelFormatSuite>},
    {kPFEffectUISuite, kPFEffectUISuiteVersion1, OfferedBy::Both, &tableOf<effectUiSuite>},
    {kPFParamUtilsSuite, kPFParamUtilsSuiteVersion3, OfferedBy::Both, &tableOf<paramUtilsSuite>},
    {kPFAdvAppSuite, kPFAdvAppSuiteVersion1, OfferedBy::Both, &tableOf<advAppSuite>},
    {kPFEffectCustomUISuite, kPFEffectCustomUISuiteVersion1, OfferedBy::Both, &tableOf<effectCustomUiSuite>},
    {kDRAWBOTDrawSuite, kDRAWBOTDrawSuiteVersion1, OfferedBy::Both, &tableOf<drawbotDrawSuite>},
    {kDRAWBOTSupplierSuite, kDRAWBOTSupplierSuiteVersion1, OfferedBy::Both, &tableOf<drawbotSupplierSuite>},
    {kDRAWBOTSurfaceSuite, kDRAWBOTSurfaceSuiteVersion1, OfferedBy::Both, &tableOf<drawbotSurfaceSuite>},
    {kDRAWBOTPathSuite, kDRAWBOTPathSuiteVersion1, OfferedBy::Both, &tableOf<drawbotPathSuite>},
    {kAEGPUtilitySuite, kAEGPUtilitySuiteVersion7, OfferedBy::Compositing, &tableOf<utilitySuite7>},
    {kAEGPUtilitySuite, kAEGPUtilitySuiteVersion11, OfferedBy::Compositing, &tableOf<utilitySuite11>},
    {kAEGPMemorySuite, kAEGPMemorySuiteVersion1, OfferedBy::Compositing, &tableOf<memorySuite>},
    {kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1, OfferedBy::Compositing, &tableOf<pfInterfaceSuite>},
    {kAEGPEffectSuite, kAEGPEffectSuiteVersion2, OfferedBy::Compositing, &tableOf<effectSuite>},
    {kAEGPDynamicStreamSuite, kAEGPDynamicStreamSuiteVersion2, OfferedBy::Compositing, &tableOf<dynamicStreamSuite>},
    {kAEGPStreamSuite, kAEGPStreamSuiteVersion7, OfferedBy::Compositing, &tableOf<streamSuite7>},
    {kAEGPStreamSuite, kAEGPStreamSuiteVersion9, OfferedBy::Compositing, &tableOf<streamSuite9>},
    {kAEGPLayerMaskSuite, kAEGPLayerMaskSuiteVersion6, OfferedBy::Compositing, &tableOf<layerMaskSuite>},
    {kPFPathQuerySuite, kPFPathQuerySuiteVersion1, OfferedBy::Compositing, &tableOf<pathQuerySuite>},
    {kPFPathDataSuite, kPFPathDataSuiteVersion1, OfferedBy::Compositing, &tableOf<pathDataSuite>},
    {kAEGPMaskSuite, kAEGPMaskSuiteVersion1, OfferedBy::Compositing, &tableOf<maskSuite>},
    {kPFFillMatteSuite, kPFFillMatteSuiteVersion2, OfferedBy::Compositing, &tableOf<fillMatteSuite>},
};

}  // namespace

const void* findSuite(const SuiteId& suite) {
  const HostState& host = hostState();
  if (host.options.suitesNotOffered.contains(suite)) return nullptr;
  const OfferedBy absent = host.isVideoEditor() ? OfferedBy::Compositing : OfferedBy::VideoEditor;
  for (const Entry& entry : kCatalogue) {
    if (entry.name == suite.first && entry.version == suite.second) {
      const bool offered = entry.offeredBy != absent || host.options.suitesAlsoOffered.contains(suite);
      return offered ? entry.table() : nullptr;
    }
  }
  return nullptr;
}

}  // namespace quiltor::standalone
