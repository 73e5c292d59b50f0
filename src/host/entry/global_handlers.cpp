#include "host/entry/global_handlers.h"

#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "description/effect_description.h"
#include "host/application.h"
#include "host/entry/about_text.h"
#include "host/entry/effect_identity.h"
#include "host/global_data.h"
#include "host/handle_guards.h"
#include "host/log.h"
#include "host/scoped_suite.h"
#include "host/suite_handler.h"

namespace quiltor {
namespace {

constexpr char kOptionsButtonName[] = "Settings";

// Returns the host's code; id is written only when the host took the effect.
HostErr registerEffect(SuiteHandler& suites, uint32_t& id) {
  AEGP_PluginID given = 0;
  const HostErr code = suites.utility().AEGP_RegisterWithAEGP(nullptr, kEffectMatchName, &given);
  if (code == PF_Err_NONE) id = static_cast<uint32_t>(given);
  return code;
}

// The button shows the host's own word when the renaming fails, so its reply is of no use.
void nameOptionsButton(const PF_InData& in, PF_OutData& out) {
  const ScopedSuite<PF_EffectUISuite1> ui(in.pica_basicP, kPFEffectUISuite, kPFEffectUISuiteVersion1, &out);
  if (ui) ui->PF_SetOptionsButtonName(in.effect_ref, kOptionsButtonName);
}

// In the order of preference.
void declarePixelFormats(const PF_InData& in) {
  const ScopedSuite<PF_PixelFormatSuite> formats(in.pica_basicP, kPFPixelFormatSuite, kPFPixelFormatSuiteVersion1);
  if (!formats) return;
  for (const PrPixelFormat format :
       {PrPixelFormat_BGRA_4444_32f, PrPixelFormat_BGRA_4444_32f_Linear, PrPixelFormat_BGRA_4444_8u}) {
    formats->AddSupportedPixelFormat(in.effect_ref, format);
  }
}

void destroy(OwnedObject* object) noexcept {
  try {
    delete object;
  } catch (...) {
    // The host is unloading the effect: nobody is left to tell.
  }
}

}  // namespace

HostErr globalSetup(PF_InData& in, PF_OutData& out) {
  clearLog();
  out.my_version = kEffectVersion;
  out.out_flags = kOutFlags;
  out.out_flags2 = kOutFlags2;

  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  OwnedHandle handle(handles, sizeof(GlobalData));
  if (!handle) return PF_Err_INTERNAL_STRUCT_DAMAGED;
  const HandleLock lock(handles, handle.get());

  GlobalData data{};
  data.initialised = 1;
  if (!isVideoEditor(in)) {
    const HostErr code = registerEffect(suites, data.pluginId);
    if (code != PF_Err_NONE) return code;
  }
  parseBuiltInDescription();
  // Deliberate: an effect whose global data could not be locked runs on without any.
  if (lock) {
    std::memcpy(lock.get(), &data, sizeof data);
    out.global_data = handle.release();
  }

  if (isVideoEditor(in)) {
    declarePixelFormats(in);
  } else {
    nameOptionsButton(in, out);
  }
  return PF_Err_NONE;
}

HostErr globalSetdown(PF_InData& in) {
  if (!in.global_data) return PF_Err_NONE;
  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  {
    const HandleLock lock(handles, in.global_data);
    if (GlobalData* data = lock.as<GlobalData>()) {
      destroy(std::exchange(data->owned, nullptr));
      if (data->auxiliary) handles.host_dispose_handle(std::exchange(data->auxiliary, nullptr));
    }
  }
  handles.host_dispose_handle(std::exchange(in.global_data, nullptr));
  return PF_Err_NONE;
}

HostErr about(PF_InData& in, PF_OutData& out) {
  if (isVideoEditor(in)) return PF_Err_NONE;
  const std::string text = aboutText(effectDescription().settings);
  SuiteHandler suites(in.pica_basicP);
  suites.ansi().strcpy(out.return_msg, text.c_str());
  return PF_Err_NONE;
}

}  // namespace quiltor
