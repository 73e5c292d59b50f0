#pragma once

#include "hostapi/custom_ui.h"
#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"

namespace quiltor::standalone {

// The host's function tables, one file each. Their addresses hold for the life of the process.
const PF_HandleSuite1& handleSuite();
const PF_ANSICallbacksSuite1& ansiSuite();
// Two tables: whether iterate_generic is offered is the host's option.
const PF_Iterate8Suite1& iterate8Suite();
decltype(PF_Iterate8Suite1::iterate_generic) iterateGenericFunction();
const PF_WorldSuite2& worldSuite();
const PF_PixelFormatSuite& pixelFormatSuite();
const PF_EffectUISuite1& effectUiSuite();
const PF_ParamUtilsSuite3& paramUtilsSuite();
const PF_AdvAppSuite1& advAppSuite();
const PF_EffectCustomUISuite1& effectCustomUiSuite();
const DRAWBOT_DrawbotSuite1& drawbotDrawSuite();
const DRAWBOT_SupplierSuite1& drawbotSupplierSuite();
const DRAWBOT_SurfaceSuite1& drawbotSurfaceSuite();
const DRAWBOT_PathSuite1& drawbotPathSuite();
const AEGP_UtilitySuite3& utilitySuite7();
const AEGP_UtilitySuite5& utilitySuite11();
const AEGP_MemorySuite1& memorySuite();
const AEGP_PFInterfaceSuite1& pfInterfaceSuite();
const AEGP_EffectSuite2& effectSuite();
const AEGP_DynamicStreamSuite2& dynamicStreamSuite();
const AEGP_StreamSuite2& streamSuite7();
const AEGP_StreamSuite4& streamSuite9();
const AEGP_MaskSuite5& layerMaskSuite();
const PF_PathQuerySuite1& pathQuerySuite();
const PF_PathDataSuite1& pathDataSuite();
const PF_MaskSuite1& maskSuite();
const PF_FillMatteSuite2& fillMatteSuite();

}  // namespace quiltor::standalone
