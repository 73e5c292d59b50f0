#include <cmath>
#include <string>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

SPErr refusal(HostCall call, const char* function) {
  return hostState().faults.refusal(call, function, kSPBadParameterError);
}

// The drawing of the event that is going on; null, and recorded, where nothing is drawn.
Drawing* currentDrawing(const char* function) {
  const CallScope* call = currentCall();
  if (call && call->drawing) return call->drawing;
  hostState().findings.record(FindingKind::WrongSelector, std::string(function) + " is for draw events only");
  return nullptr;
}

SPErr unknownReference(const char* text) {
  hostState().findings.record(FindingKind::ObjectUnknown, text);
  return kSPBadParameterError;
}

PF_Err getDrawingReference(PF_ContextH context, DRAWBOT_DrawRef* reference) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::DrawingReference, "PF_GetDrawingReference")) return refused;
  Drawing* const drawing = currentDrawing("PF_GetDrawingReference");
  if (!drawing) return PF_Err_BAD_CALLBACK_PARAM;
  if (!reference || context != currentCall()->context) {
    return badArgument("PF_GetDrawingReference needs the event's context and a destination");
  }
  *reference = host.options.offerDrawing ? drawing->reference() : nullptr;
  return PF_Err_NONE;
}

SPErr getSupplier(DRAWBOT_DrawRef reference, DRAWBOT_SupplierRef* supplier) {
  if (const SPErr refused = refusal(HostCall::Drawbot, "GetSupplier")) return refused;
  Drawing* const drawing = currentDrawing("GetSupplier");
  if (!drawing || !supplier) return badArgument("GetSupplier needs a destination");
  if (reference != drawing->reference()) return unknownReference("what was passed as a drawing reference is none");
  *supplier = drawing->supplier();
  return kSPNoError;
}

SPErr getSurface(DRAWBOT_DrawRef reference, DRAWBOT_SurfaceRef* surface) {
  if (const SPErr refused = refusal(HostCall::Drawbot, "GetSurface")) return refused;
  Drawing* const drawing = currentDrawing("GetSurface");
  if (!drawing || !surface) return badArgument("GetSurface needs a destination");
  if (reference != drawing->reference()) return unknownReference("what was passed as a drawing reference is none");
  *surface = drawing->surface();
  return kSPNoError;
}

SPErr newImageFromBuffer(DRAWBOT_SupplierRef supplier, int width, int height, int rowBytes, DRAWBOT_PixelLayout layout,
                         const void* pixels, DRAWBOT_ImageRef* image) {
  if (const SPErr refused = refusal(HostCall::NewImage, "NewImageFromBuffer")) return refused;
  Drawing* const drawing = currentDrawing("NewImageFromBuffer");
  if (!drawing) return kSPBadParameterError;
  if (supplier != drawing->supplier()) return unknownReference("what was passed as a supplier is none");
  if (width < 1 || height < 1 || rowBytes / 4 < width || !pixels || !image) {
    return badArgument("NewImageFromBuffer needs pixels in rows of at least four bytes for each, and a destination");
  }
  // Not every layout is known on every system.
  if (layout != kDRAWBOT_PixelLayout_32BGRA_Straight && layout != kDRAWBOT_PixelLayout_32BGRA_Premul) {
    return kSPBadParameterError;
  }
  *image = drawing->newImage({width, height, rowBytes, layout, static_cast<const unsigned char*>(pixels)});
  return kSPNoError;
}

SPErr releaseObject(DRAWBOT_ObjectRef object) {
  const SPErr refused = refusal(HostCall::ReleaseObject, "ReleaseObject");
  Drawing* const drawing = currentDrawing("ReleaseObject");
  return drawing && drawing->release(object) ? refused : kSPBadParameterError;
}

SPErr drawImage(DRAWBOT_SurfaceRef surface, DRAWBOT_ImageRef image, const DRAWBOT_PointF32* origin, float opacity) {
  if (const SPErr refused = refusal(HostCall::DrawImage, "DrawImage")) return refused;
  Drawing* const drawing = currentDrawing("DrawImage");
  if (!drawing) return kSPBadParameterError;
  if (surface != drawing->surface()) return unknownReference("what was passed as a surface is none");
  constexpr float kFarthest = 1e6F;
  const auto isPlace = [](float value) { return std::abs(value) <= kFarthest; };
  if (!origin || !isPlace(origin->x) || !isPlace(origin->y) || !(opacity >= 0 && opacity <= 1)) {
    return badArgument("DrawImage needs a place, and an opacity from 0 to 1");
  }
  return drawing->draw(image, *origin, opacity) ? kSPNoError : kSPBadParameterError;
}

PF_EffectCustomUISuite1 makeCustomUiSuite() {
  auto suite = tableOfUnimplementedSlots<PF_EffectCustomUISuite1>();
  suite.PF_GetDrawingReference = &getDrawingReference;
  return suite;
}

DRAWBOT_DrawbotSuite1 makeDrawSuite() {
  auto suite = tableOfUnimplementedSlots<DRAWBOT_DrawbotSuite1>();
  suite.GetSupplier = &getSupplier;
  suite.GetSurface = &getSurface;
  return suite;
}

DRAWBOT_SupplierSuite1 makeSupplierSuite() {
  auto suite = tableOfUnimplementedSlots<DRAWBOT_SupplierSuite1>();
  suite.NewImageFromBuffer = &newImageFromBuffer;
  suite.ReleaseObject = &releaseObject;
  return suite;
}

DRAWBOT_SurfaceSuite1 makeSurfaceSuite() {
  auto suite = tableOfUnimplementedSlots<DRAWBOT_SurfaceSuite1>();
  suite.DrawImage = &drawImage;
  return suite;
}

}  // namespace

const PF_EffectCustomUISuite1& effectCustomUiSuite() {
  static const PF_EffectCustomUISuite1 suite = makeCustomUiSuite();
  return suite;
}

const DRAWBOT_DrawbotSuite1& drawbotDrawSuite() {
  static const DRAWBOT_DrawbotSuite1 suite = makeDrawSuite();
  return suite;
}

const DRAWBOT_SupplierSuite1& drawbotSupplierSuite() {
  static const DRAWBOT_SupplierSuite1 suite = makeSupplierSuite();
  return suite;
}

const DRAWBOT_SurfaceSuite1& drawbotSurfaceSuite() {
  static const DRAWBOT_SurfaceSuite1 suite = makeSurfaceSuite();
  return suite;
}

const DRAWBOT_PathSuite1& drawbotPathSuite() {
  static const auto suite = tableOfUnimplementedSlots<DRAWBOT_PathSuite1>();
  return suite;
}

}  // namespace quiltor::standalone
