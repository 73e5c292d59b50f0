#include "ui/pattern_control.h"

#include <optional>
#include <string>

#include "base/scope_guard.h"
#include "description/effect_description.h"
#include "description/language/param_index.h"
#include "description/params_ui.h"
#include "host/live_sequence.h"
#include "host/pattern_selection.h"
#include "host/suite_handler.h"
#include "host/text_slots.h"
#include "host/user_message.h"
#include "library/pattern_reference.h"
#include "ui/drawbot_suites.h"
#include "ui/library_dialogs.h"

namespace quiltor {
namespace {

// --- Drawing ---

constexpr int kPreviewRowBytes = kPreviewSize * 4;

// Deliberate: hosts number the controls in different ways. In some the control has its parameter's own index, together
// with the area; in others it is known as 2.
bool isPatternControl(const PF_EffectWindowInfo& window) {
  return window.index == 2 || (window.index == Param::txtsrc && window.area == PF_EA_CONTROL);
}

HostErr drawPreview(const DrawbotSuites& drawbot, DRAWBOT_DrawRef drawing, const std::vector<uint8_t>& preview,
                    const PF_EffectWindowInfo& window) {
  DRAWBOT_SupplierRef supplier = nullptr;
  DRAWBOT_SurfaceRef surface = nullptr;
  if (const SPErr code = drawbot.draw->GetSupplier(drawing, &supplier)) return code;
  if (const SPErr code = drawbot.draw->GetSurface(drawing, &surface)) return code;
  if (!isPatternControl(window)) return PF_Err_NONE;
  DRAWBOT_ImageRef image = nullptr;
  if (const SPErr code =
          drawbot.supplier->NewImageFromBuffer(supplier, kPreviewSize, kPreviewSize, kPreviewRowBytes,
                                               kDRAWBOT_PixelLayout_32BGRA_Straight, preview.data(), &image)) {
    return code;
  }
  const DRAWBOT_PointF32 origin = {static_cast<float>(window.current_frame.left),
                                   static_cast<float>(window.current_frame.top)};
  const SPErr drawn = drawbot.surface->DrawImage(surface, image, &origin, 1.0F);
  const SPErr released = drawbot.supplier->ReleaseObject(reinterpret_cast<DRAWBOT_ObjectRef>(image));
  return drawn ? drawn : released;
}

HostErr draw(const PF_InData& in, PF_OutData& out, const PF_EventExtra& event) {
  if ((event.evt_in_flags & PF_EI_DONT_DRAW) != 0) return PF_Err_NONE;
  SuiteHandler suites(in.pica_basicP);
  const LiveSequence live(suites.handles(), in.sequence_data);
  if (!live || live->previewImage->size() < kPreviewBytes) return PF_Err_NONE;

  std::optional<DrawbotSuites> drawbot;
  if (const HostErr code = DrawbotSuites::acquire(in.pica_basicP, out, &drawbot)) return code;
  const ScopedSuite<PF_EffectCustomUISuite1> customUi(in.pica_basicP, kPFEffectCustomUISuite,
                                                      kPFEffectCustomUISuiteVersion1, &out);
  if (!customUi) return PF_Err_BAD_CALLBACK_PARAM;
  DRAWBOT_DrawRef drawing = nullptr;
  if (const PF_Err code = customUi->PF_GetDrawingReference(event.contextH, &drawing)) return code;
  if (!drawing) return PF_Err_NONE;
  return drawPreview(*drawbot, drawing, *live->previewImage, event.effect_win);
}

// --- Clicking ---

void takePick(const PatternSelection& pick, SequenceData& live, const PF_InData& in) {
  const std::string text = selectionText(pick);
  storeText(live, kSelectionSlot, text);
  std::string reference = referenceFromSelection(text);
  loadPatternReference(live, reference, in, Redraw::Yes);
}

HostErr click(const PF_InData& in, PF_OutData& out, PF_ParamDef** params, PF_EventExtra& event) {
  if (!in.sequence_data) return PF_Err_NONE;
  SuiteHandler suites(in.pica_basicP);
  PatternSelection selection;
  {
    const LiveSequence live(suites.handles(), in.sequence_data);
    if (!live) return PF_Err_NONE;
    selection = parseSelection(live->text[kSelectionSlot]);
  }
  const LibraryDialog dialog = dialogForPicking();
  const std::optional<std::string> result = openDialog(dialog, selection, in);
  if (!result) return PF_Err_NONE;
  event.evt_out_flags |= PF_EO_HANDLED_EVENT;
  if (dialog != LibraryDialog::Gallery) return PF_Err_NONE;
  const std::optional<PatternSelection> pick = pickIn(*result);
  if (!pick) return PF_Err_NONE;

  const LiveSequence live(suites.handles(), in.sequence_data);
  if (!live) return PF_Err_INTERNAL_STRUCT_DAMAGED;
  takePick(*pick, *live, in);
  if (params) updateParamsUi(effectDescription(), suites, in, params, live.get(), PanelRights::Streams);
  out.out_flags |= PF_OutFlag_FORCE_RERENDER | PF_OutFlag_REFRESH_UI;
  return PF_Err_NONE;
}

}  // namespace

HostErr patternControlEvent(const PF_InData& in, PF_OutData& out, PF_ParamDef** params, PF_EventExtra& event) {
  try {
    switch (event.e_type) {
      case PF_Event_DO_CLICK:
        return click(in, out, params, event);
      case PF_Event_DRAW:
        return draw(in, out, event);
      default:
        return PF_Err_NONE;
    }
  } catch (HostErr code) {
    if (code == PF_Err_BAD_CALLBACK_PARAM) tellUser(out, SuiteMessages{}.acquire);
    throw;
  }
}

}  // namespace quiltor
