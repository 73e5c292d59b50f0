// An effect that copies its input, and that does one wrong thing when told to, by `setMisdeed` or the environment: the
// one that the host's finding of that name is about, or one of those that only a frame or a whole check shows. Compiled
// on its own and loaded like any other effect.
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "hostapi/custom_ui.h"
#include "hostapi/export.h"
#include "hostapi/smart_render.h"
#include "hostapi/suites_aegp.h"
#include "hostapi/suites_pf.h"

namespace {

std::string misdeedOfTheEnvironment() {
  const char* const name = std::getenv("QUILTOR_SAMPLE_MISDEED");
  return name ? name : "";
}

std::string chosenMisdeed = misdeedOfTheEnvironment();

bool does(const char* misdeed) { return chosenMisdeed == misdeed; }

template <class Table>
class Suite {
 public:
  Suite(const PF_InData* in, const char* name, int32_t version)
      : basic_(in->pica_basicP), name_(name), version_(version) {
    const void* table = nullptr;
    if (basic_->AcquireSuite(name, version, &table) == kSPNoError) table_ = static_cast<const Table*>(table);
  }
  ~Suite() {
    if (table_) basic_->ReleaseSuite(name_, version_);
  }
  Suite(const Suite&) = delete;
  Suite& operator=(const Suite&) = delete;
  const Table* operator->() const { return table_; }
  explicit operator bool() const { return table_ != nullptr; }

 private:
  SPBasicSuite* basic_;
  const char* name_;
  int32_t version_;
  const Table* table_ = nullptr;
};

using Handles = Suite<PF_HandleSuite1>;

Handles handlesOf(const PF_InData* in) { return {in, kPFHandleSuite, kPFHandleSuiteVersion2}; }

constexpr unsigned char kLive = 1, kFlat = 2;

// Sequence data are one byte that tells live from flat, and seven more.
PF_Handle newSequenceData(const Handles& handles, unsigned char kind) {
  const PF_Handle handle = handles->host_new_handle(8);
  if (!handle) return nullptr;
  if (void* data = handles->host_lock_handle(handle)) {
    std::memset(data, kind, 8);
    handles->host_unlock_handle(handle);
    return handle;
  }
  handles->host_dispose_handle(handle);
  return nullptr;
}

// --- Wrong things done in the about call ---

void misuseSuites(PF_InData* in) {
  SPBasicSuite* basic = in->pica_basicP;
  const void* table = nullptr;
  if (does("SuiteNotReleased")) basic->AcquireSuite(kPFHandleSuite, kPFHandleSuiteVersion2, &table);
  if (does("SuiteReleasedTooOften")) basic->ReleaseSuite(kPFHandleSuite, kPFHandleSuiteVersion2);
  if (does("BadArgument")) basic->AcquireSuite(nullptr, 1, &table);
  if (does("UnimplementedSlot")) basic->Undefined();
}

void misuseHandles(PF_InData* in) {
  const Handles handles = handlesOf(in);
  if (!handles) return;
  if (does("HandleUnknown")) {
    void* cell = nullptr;
    handles->host_lock_handle(&cell);
    return;
  }
  const PF_Handle handle = handles->host_new_handle(16);
  if (!handle) return;
  if (does("HandleLeftLocked")) {
    handles->host_lock_handle(handle);
    in->global_data = handle;
    return;
  }
  if (does("HandleUnlockedTooOften")) handles->host_unlock_handle(handle);
  if (does("HandleOverrun")) static_cast<char*>(*handle)[16] = 1;
  if (does("HandleDisposedWhileLocked")) handles->host_lock_handle(handle);
  if (does("HandleLeaked")) return;
  handles->host_dispose_handle(handle);
  if (does("HandleDisposedTwice")) handles->host_dispose_handle(handle);
  if (does("HandleUsedAfterDispose")) handles->host_lock_handle(handle);
}

void misuseWorlds(PF_InData* in) {
  const Suite<PF_WorldSuite2> worlds(in, kPFWorldSuite, kPFWorldSuiteVersion2);
  if (!worlds) return;
  PF_EffectWorld world{};
  if (worlds->PF_NewWorld(in->effect_ref, 4, 3, 1, PF_PixelFormat_ARGB32, &world) != PF_Err_NONE) return;
  if (does("WorldNotDisposed")) return;
  if (does("WorldOverrun")) reinterpret_cast<unsigned char*>(world.data)[3 * world.rowbytes] ^= 0xFF;
  PF_EffectWorld copy = world;
  worlds->PF_DisposeWorld(in->effect_ref, &world);
  if (does("WorldDisposedTwice")) worlds->PF_DisposeWorld(in->effect_ref, &copy);
}

void misuseStreams(PF_InData* in) {
  const Suite<AEGP_PFInterfaceSuite1> layers(in, kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1);
  const Suite<AEGP_StreamSuite2> streams(in, kAEGPStreamSuite, kAEGPStreamSuiteVersion7);
  if (!layers || !streams) return;
  AEGP_LayerH layer = nullptr;
  AEGP_StreamRefH stream = nullptr;
  if (layers->AEGP_GetEffectLayer(in->effect_ref, &layer) != PF_Err_NONE) return;
  if (streams->AEGP_GetNewLayerStream(0, layer, AEGP_LayerStream_SCALE, &stream) != PF_Err_NONE) return;
  if (does("StreamNotDisposed")) return;
  if (does("StreamValueNotDisposed")) {
    const A_Time time{0, 25};
    AEGP_StreamValue value{};
    streams->AEGP_GetNewStreamValue(0, stream, AEGP_LTimeMode_LayerTime, &time, 0, &value);
  }
  streams->AEGP_DisposeStream(stream);
  if (does("ObjectUnknown")) streams->AEGP_DisposeStream(stream);
}

// The first mask's feather.
void misuseMaskStreams(PF_InData* in, const Suite<AEGP_MaskSuite5>& masks, AEGP_MaskRefH mask) {
  const Suite<AEGP_StreamSuite4> streams(in, kAEGPStreamSuite, kAEGPStreamSuiteVersion9);
  AEGP_StreamRefH stream = nullptr;
  const bool opened =
      streams && streams->AEGP_GetNewMaskStream(0, mask, AEGP_MaskStream_FEATHER, &stream) == PF_Err_NONE;
  const bool outOfOrder = opened && does("MaskDisposedBeforeStream");
  if (outOfOrder) masks->AEGP_DisposeMask(mask);
  if (opened) {
    const A_Time time{in->current_time, in->time_scale};
    AEGP_StreamValue2 value{};
    if (streams->AEGP_GetNewStreamValue(0, stream, AEGP_LTimeMode_LayerTime, &time, 0, &value) == PF_Err_NONE) {
      streams->AEGP_DisposeStreamValue(&value);
    }
    streams->AEGP_DisposeStream(stream);
  }
  if (!outOfOrder && !does("MaskNotDisposed")) masks->AEGP_DisposeMask(mask);
}

// A path drawn into a matte of its own.
void drawPath(PF_InData* in, PF_PathOutlinePtr path) {
  const Suite<PF_WorldSuite2> worlds(in, kPFWorldSuite, kPFWorldSuiteVersion2);
  const Suite<PF_FillMatteSuite2> filling(in, kPFFillMatteSuite, kPFFillMatteSuiteVersion2);
  const Suite<PF_MaskSuite1> drawing(in, kAEGPMaskSuite, kAEGPMaskSuiteVersion1);
  PF_EffectWorld matte{};
  if (!worlds || !filling || !drawing || !path) return;
  if (worlds->PF_NewWorld(in->effect_ref, 8, 6, 0, PF_PixelFormat_ARGB32, &matte) != PF_Err_NONE) return;
  const PF_Pixel white{255, 255, 255, 255};
  filling->fill(in->effect_ref, &white, nullptr, &matte);
  drawing->PF_MaskWorldWithPath(in->effect_ref, &path, 2, 0, 0, 1, in->quality, &matte, nullptr);
  worlds->PF_DisposeWorld(in->effect_ref, &matte);
}

void misusePaths(PF_InData* in, PF_PathID id) {
  const Suite<PF_PathQuerySuite1> paths(in, kPFPathQuerySuite, kPFPathQuerySuiteVersion1);
  PF_PathOutlinePtr path = nullptr;
  if (!paths || paths->PF_CheckoutPath(in->effect_ref, id, in->current_time, in->time_step, in->time_scale, &path)) {
    return;
  }
  drawPath(in, path);
  if (does("PathNotCheckedIn")) return;
  paths->PF_CheckinPath(in->effect_ref, id, 0, path);
  if (does("PathCheckedInTwice")) paths->PF_CheckinPath(in->effect_ref, id, 0, path);
}

void misuseMasks(PF_InData* in) {
  const Suite<AEGP_PFInterfaceSuite1> layers(in, kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1);
  const Suite<AEGP_MaskSuite5> masks(in, kAEGPLayerMaskSuite, kAEGPLayerMaskSuiteVersion6);
  AEGP_LayerH layer = nullptr;
  A_long count = 0;
  AEGP_MaskRefH mask = nullptr;
  AEGP_MaskIDVal id = 0;
  if (!layers || !masks || layers->AEGP_GetEffectLayer(in->effect_ref, &layer)) return;
  if (masks->AEGP_GetLayerNumMasks(layer, &count) || count < 1) return;
  if (masks->AEGP_GetLayerMaskByIndex(layer, 0, &mask)) return;
  const bool named = masks->AEGP_GetMaskID(mask, &id) == PF_Err_NONE;
  misuseMaskStreams(in, masks, mask);
  if (named) misusePaths(in, static_cast<PF_PathID>(id));
}

void misuseParameters(PF_InData* in) {
  PF_ParamDef definition{};
  if (does("WrongSelector")) in->inter.add_param(in->effect_ref, -1, &definition);
  if (does("ParamNotCheckedIn") || does("ParamCheckedInTwice")) {
    in->inter.checkout_param(in->effect_ref, 2, 0, 1, 25, &definition);
  }
  if (does("ParamCheckedInTwice")) {
    in->inter.checkin_param(in->effect_ref, &definition);
    in->inter.checkin_param(in->effect_ref, &definition);
  }
}

struct AbortJob {
  PF_InData* in;
  std::atomic<bool> calledElsewhere = false;
};

// Thread index 0 waits for the turn of another thread, so that there is one.
PF_Err abortOnTheWrongThread(void* refcon, A_long threadIndex, A_long, A_long) {
  AbortJob& job = *static_cast<AbortJob*>(refcon);
  if (threadIndex != 0) {
    job.in->inter.abort(job.in->effect_ref);
    job.calledElsewhere = true;
  }
  while (!job.calledElsewhere) std::this_thread::yield();
  return PF_Err_NONE;
}

void misuseThreads(PF_InData* in) {
  const Suite<PF_Iterate8Suite1> iterate(in, kPFIterate8Suite, kPFIterate8SuiteVersion1);
  if (!iterate || !does("WrongThread")) return;
  AbortJob job{in};
  iterate->iterate_generic(2, &job, &abortOnTheWrongThread);
}

PF_Err about(PF_InData* in) {
  misuseSuites(in);
  misuseHandles(in);
  misuseWorlds(in);
  misuseStreams(in);
  misuseMasks(in);
  misuseParameters(in);
  misuseThreads(in);
  return PF_Err_NONE;
}

// --- Setup ---

PF_Err globalSetup(PF_InData* in, PF_OutData* out) {
  out->my_version = 0x80001;
  out->out_flags = PF_OutFlag_DEEP_COLOR_AWARE;
  out->out_flags2 = PF_OutFlag2_SUPPORTS_SMART_RENDER | PF_OutFlag2_FLOAT_COLOR_AWARE | PF_OutFlag2_AE13_5_THREADSAFE |
                    PF_OutFlag2_AUTOMATIC_WIDE_TIME_INPUT | PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA;
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  out->global_data = handles->host_new_handle(16);
  return out->global_data ? PF_Err_NONE : PF_Err_OUT_OF_MEMORY;
}

PF_Err globalSetdown(PF_InData* in) {
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  if (in->global_data) handles->host_dispose_handle(in->global_data);
  return PF_Err_NONE;
}

PF_ParamDef named(A_long id, PF_ParamType type, const char* name) {
  PF_ParamDef definition{};
  definition.uu.id = id;
  definition.param_type = type;
  std::strncpy(definition.name, name, PF_MAX_EFFECT_PARAM_NAME_LEN);
  return definition;
}

PF_Err paramsSetup(PF_InData* in, PF_OutData* out) {
  PF_ParamDef layer = named(1, PF_Param_LAYER, "Other");
  layer.u.ld.dephault = PF_LayerDefault_NONE;
  PF_ParamDef amount = named(2, PF_Param_FLOAT_SLIDER, "Amount");
  amount.u.fs_d.valid_max = amount.u.fs_d.slider_max = 100;
  amount.u.fs_d.dephault = 50;
  amount.ui_flags = PF_PUI_CONTROL;
  PF_ParamDef mode = named(3, PF_Param_POPUP, "Mode");
  mode.u.pd.num_choices = 3;
  mode.u.pd.dephault = 2;
  std::string items = "One|Two|Three";
  mode.u.pd.u.namesptr = items.c_str();
  PF_ParamDef center = named(4, PF_Param_POINT, "Center");
  center.u.td.x_dephault = center.u.td.y_dephault = 50 * 65536;
  PF_ParamDef color = named(5, PF_Param_COLOR, "Color");
  color.u.cd.dephault = {255, 10, 20, 30};
  PF_ParamDef angle = named(6, PF_Param_ANGLE, "Angle");
  angle.u.ad.dephault = -30 * 65536;
  PF_ParamDef on = named(7, PF_Param_CHECKBOX, "On");
  on.u.bd.dephault = 1;
  on.u.bd.u.nameptr = "label";
  PF_ParamDef path = named(8, PF_Param_PATH, "Mask");

  if (does("ParamIdDuplicate")) mode.uu.id = 2;
  if (does("ParamNameNotTerminated")) std::memset(mode.name, 'n', sizeof mode.name);
  if (does("ParamTypeUnknown")) color.param_type = 77;
  if (does("PopupDefaultOutOfRange")) mode.u.pd.dephault = 0;
  if (does("PopupItemCountWrong")) mode.u.pd.num_choices = 4;

  out->num_params = does("ParamCountMismatch") ? 4 : 9;
  for (PF_ParamDef* definition : {&layer, &amount, &mode, &center, &color, &angle, &on, &path}) {
    const PF_ParamIndex index = does("AddParamIndexNotAppend") && definition == &mode ? 3 : -1;
    if (const PF_Err code = in->inter.add_param(in->effect_ref, index, definition)) return code;
  }
  items = "overwritten";
  PF_CustomUIInfo controls{};
  controls.events = PF_CustomEFlag_EFFECT;
  return in->inter.register_ui(in->effect_ref, &controls);
}

// --- Sequence data ---

PF_Err sequenceSetup(PF_InData* in, PF_OutData* out) {
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  out->sequence_data = newSequenceData(handles, kLive);
  return out->sequence_data ? PF_Err_NONE : PF_Err_OUT_OF_MEMORY;
}

PF_Err sequenceResetup(PF_InData* in, PF_OutData* out) {
  if (!in->sequence_data) return sequenceSetup(in, out);
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  if (*static_cast<unsigned char*>(*in->sequence_data) == kLive) return PF_Err_NONE;
  out->sequence_data = newSequenceData(handles, kLive);
  if (!does("FlatHandleNotDisposed")) handles->host_dispose_handle(in->sequence_data);
  return out->sequence_data ? PF_Err_NONE : PF_Err_OUT_OF_MEMORY;
}

PF_Err sequenceFlatten(PF_InData* in, PF_OutData* out, bool replace) {
  if (!in->sequence_data || (!replace && does("FlatDataIsLive"))) return PF_Err_NONE;
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  const PF_Handle scratch = does("LeaksWhenRefused") ? handles->host_new_handle(8) : nullptr;
  const PF_Handle flat = newSequenceData(handles, kFlat);
  if (!flat) return PF_Err_OUT_OF_MEMORY;
  if (scratch) handles->host_dispose_handle(scratch);
  out->sequence_data = flat;
  if (replace) handles->host_dispose_handle(in->sequence_data);
  return PF_Err_NONE;
}

PF_Err sequenceSetdown(PF_InData* in) {
  const Handles handles = handlesOf(in);
  if (!handles) return PF_Err_BAD_CALLBACK_PARAM;
  if (in->sequence_data) handles->host_dispose_handle(in->sequence_data);
  return PF_Err_NONE;
}

// --- The panel ---

// Shows the first parameter.
PF_Err updateParamsUi(PF_InData* in) {
  const Suite<AEGP_PFInterfaceSuite1> effects(in, kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1);
  const Suite<AEGP_EffectSuite2> references(in, kAEGPEffectSuite, kAEGPEffectSuiteVersion2);
  const Suite<AEGP_StreamSuite2> streams(in, kAEGPStreamSuite, kAEGPStreamSuiteVersion7);
  const Suite<AEGP_DynamicStreamSuite2> flags(in, kAEGPDynamicStreamSuite, kAEGPDynamicStreamSuiteVersion2);
  AEGP_EffectRefH effect = nullptr;
  AEGP_StreamRefH stream = nullptr;
  if (!effects || !references || !streams || !flags) return PF_Err_NONE;
  if (effects->AEGP_GetNewEffectForEffect(0, in->effect_ref, &effect) != PF_Err_NONE) return PF_Err_NONE;
  const bool opened = streams->AEGP_GetNewEffectStreamByIndex(0, effect, 1, &stream) == PF_Err_NONE;
  if (opened) flags->AEGP_SetDynamicStreamFlag(stream, AEGP_DynStreamFlag_HIDDEN, 0, 0);
  const bool outOfOrder = does("EffectDisposedBeforeStream");
  if (outOfOrder) references->AEGP_DisposeEffect(effect);
  if (opened) streams->AEGP_DisposeStream(stream);
  if (!outOfOrder && !does("EffectNotDisposed")) references->AEGP_DisposeEffect(effect);
  return PF_Err_NONE;
}

// Draws a dot.
PF_Err event(PF_InData* in, const PF_EventExtra* extra) {
  if (extra->e_type != PF_Event_DRAW) return PF_Err_NONE;
  const Suite<PF_EffectCustomUISuite1> customUi(in, kPFEffectCustomUISuite, kPFEffectCustomUISuiteVersion1);
  const Suite<DRAWBOT_DrawbotSuite1> drawings(in, kDRAWBOTDrawSuite, kDRAWBOTDrawSuiteVersion1);
  const Suite<DRAWBOT_SupplierSuite1> suppliers(in, kDRAWBOTSupplierSuite, kDRAWBOTSupplierSuiteVersion1);
  const Suite<DRAWBOT_SurfaceSuite1> surfaces(in, kDRAWBOTSurfaceSuite, kDRAWBOTSurfaceSuiteVersion1);
  if (!customUi || !drawings || !suppliers || !surfaces) return PF_Err_BAD_CALLBACK_PARAM;
  DRAWBOT_DrawRef drawing = nullptr;
  DRAWBOT_SupplierRef supplier = nullptr;
  DRAWBOT_SurfaceRef surface = nullptr;
  DRAWBOT_ImageRef image = nullptr;
  if (customUi->PF_GetDrawingReference(extra->contextH, &drawing) || !drawing) return PF_Err_NONE;
  if (drawings->GetSupplier(drawing, &supplier) || drawings->GetSurface(drawing, &surface)) return PF_Err_NONE;
  const unsigned char dot[4] = {255, 0, 0, 255};
  if (suppliers->NewImageFromBuffer(supplier, 1, 1, 4, kDRAWBOT_PixelLayout_32BGRA_Straight, dot, &image)) {
    return PF_Err_NONE;
  }
  const DRAWBOT_PointF32 origin{1, 2};
  surfaces->DrawImage(surface, image, &origin, 0.5F);
  const auto object = reinterpret_cast<DRAWBOT_ObjectRef>(image);
  if (!does("DrawbotObjectNotReleased")) suppliers->ReleaseObject(object);
  return PF_Err_NONE;
}

// --- Rendering ---

struct CopyJob {
  PF_InData* in;
  const PF_EffectWorld* input;
  PF_EffectWorld* output;
  size_t bytes;
};

PF_Err copyRow(void* refcon, A_long threadIndex, A_long y, A_long) {
  const CopyJob& job = *static_cast<CopyJob*>(refcon);
  const PF_Err code = threadIndex == 0 ? job.in->inter.abort(job.in->effect_ref) : PF_Err_NONE;
  const auto* from = reinterpret_cast<const unsigned char*>(job.input->data) + ptrdiff_t{y} * job.input->rowbytes;
  auto* to = reinterpret_cast<unsigned char*>(job.output->data) + ptrdiff_t{y} * job.output->rowbytes;
  std::memcpy(to, from, job.bytes);
  return code;
}

// --- Wrong things done in a frame ---

void misuseFrame(PF_InData* in, PF_EffectWorld* output, size_t pixel) {
  const void* table = nullptr;
  if (does("FrameLeaksSuite")) in->pica_basicP->AcquireSuite(kPFHandleSuite, kPFHandleSuiteVersion2, &table);
  auto* lastRow = reinterpret_cast<unsigned char*>(output->data) + ptrdiff_t{output->height - 1} * output->rowbytes;
  if (does("FrameWritesPastRow")) lastRow[static_cast<size_t>(output->width) * pixel] ^= 0xFF;
  static int frames = 0;
  if (does("FrameDiffers") && ++frames % 2 == 0) lastRow[0] ^= 0xFF;
  if (does("FrameCrashes") && pixel == 8) *static_cast<volatile int*>(nullptr) = 1;
  while (does("FrameHangs") && pixel == 8) std::this_thread::yield();
}

PF_Err copyWorld(PF_InData* in, PF_EffectWorld* input, PF_EffectWorld* output) {
  const Suite<PF_WorldSuite2> worlds(in, kPFWorldSuite, kPFWorldSuiteVersion2);
  const Suite<PF_Iterate8Suite1> iterate(in, kPFIterate8Suite, kPFIterate8SuiteVersion1);
  if (!worlds || !iterate) return PF_Err_BAD_CALLBACK_PARAM;
  PF_PixelFormat format = PF_PixelFormat_INVALID;
  if (const PF_Err code = worlds->PF_GetPixelFormat(output, &format)) return code;
  const size_t pixel = format == PF_PixelFormat_ARGB32 ? 4 : format == PF_PixelFormat_ARGB64 ? 8 : 16;
  CopyJob job{in, input, output, static_cast<size_t>(output->width) * pixel};
  if (does("InputWorldWritten")) input->data->red ^= 1;
  const PF_Err code = iterate->iterate_generic(output->height, &job, &copyRow);
  misuseFrame(in, output, pixel);
  return code;
}

PF_Err checkOutAndIn(PF_InData* in, PF_ParamIndex index, A_long time, PF_ParamDef* record) {
  const PF_Err code = in->inter.checkout_param(in->effect_ref, index, time, in->time_step, in->time_scale, record);
  return code ? code : in->inter.checkin_param(in->effect_ref, record);
}

PF_Err render(PF_InData* in, PF_ParamDef** params, PF_EffectWorld* output) {
  PF_ParamDef record{};
  if (const PF_Err code = checkOutAndIn(in, 1, in->current_time + 3, &record)) return code;
  if (does("FrameForgetsCheckin")) {
    in->inter.checkout_param(in->effect_ref, 1, in->current_time, in->time_step, in->time_scale, &record);
  }
  PF_ParamDef* destination = does("ParamCheckoutIntoParams") ? params[2] : &record;
  if (const PF_Err code = checkOutAndIn(in, 2, in->current_time, destination)) return code;
  return copyWorld(in, &params[0]->u.ld, output);
}

PF_Err preRender(PF_InData* in, PF_PreRenderExtra* extra) {
  const PF_RenderRequest& request = extra->input->output_request;
  PF_CheckoutResult result{};
  const A_long id = does("CheckoutIdNegative") ? -1 : 1;
  if (const PF_Err code = extra->cb->checkout_layer(in->effect_ref, 0, id, &request, in->current_time, in->time_step,
                                                    in->time_scale, &result)) {
    return code;
  }
  if (does("CheckoutIdDuplicate")) {
    extra->cb->checkout_layer(in->effect_ref, 0, id, &request, in->current_time, 1, in->time_scale, &result);
  }
  extra->output->result_rect = result.result_rect;
  extra->output->max_result_rect = result.max_result_rect;
  if (does("ResultRectOutsideRequest")) --extra->output->result_rect.left;
  if (does("ResultRectOutsideRequest")) --extra->output->max_result_rect.left;
  if (does("ResultRectOutsideMaximum")) --extra->output->max_result_rect.right;
  extra->output->pre_render_data = std::malloc(8);
  extra->output->delete_pre_render_data_func = &std::free;
  return PF_Err_NONE;
}

PF_Err smartRender(PF_InData* in, PF_SmartRenderExtra* extra) {
  PF_EffectWorld* input = nullptr;
  PF_EffectWorld* output = nullptr;
  const A_long id = does("CheckoutIdNegative") ? -1 : 1;
  if (does("CheckoutIdUnknown")) extra->cb->checkout_layer_pixels(in->effect_ref, 77, &input);
  if (does("OutputBeforeInput")) extra->cb->checkout_output(in->effect_ref, &output);
  if (const PF_Err code = extra->cb->checkout_layer_pixels(in->effect_ref, id, &input)) return code;
  if (const PF_Err code = extra->cb->checkout_output(in->effect_ref, &output)) return code;
  const bool alike = input->width == output->width && input->height == output->height;
  const PF_Err code = alike ? copyWorld(in, input, output) : PF_Err_NONE;
  const PF_Err checkedIn = extra->cb->checkin_layer_pixels(in->effect_ref, id);
  return code ? code : checkedIn;
}

}  // namespace

QUILTOR_EXPORT void setMisdeed(const char* name) { chosenMisdeed = name; }

QUILTOR_EXPORT PF_Err EntryPointFunc(A_long selector, PF_InData* in, PF_OutData* out, PF_ParamDef** params,
                                     PF_EffectWorld* output, void* extra) {
  if (does("AnswersUnannounced") && selector == PF_Cmd_AUDIO_SETUP) return PF_Err_OUT_OF_MEMORY;
  switch (selector) {
    case PF_Cmd_ABOUT:
      return about(in);
    case PF_Cmd_GLOBAL_SETUP:
      return globalSetup(in, out);
    case PF_Cmd_GLOBAL_SETDOWN:
      return globalSetdown(in);
    case PF_Cmd_PARAMS_SETUP:
      return paramsSetup(in, out);
    case PF_Cmd_SEQUENCE_SETUP:
      return sequenceSetup(in, out);
    case PF_Cmd_SEQUENCE_RESETUP:
      return sequenceResetup(in, out);
    case PF_Cmd_SEQUENCE_FLATTEN:
      return sequenceFlatten(in, out, true);
    case PF_Cmd_GET_FLATTENED_SEQUENCE_DATA:
      return sequenceFlatten(in, out, false);
    case PF_Cmd_SEQUENCE_SETDOWN:
      return sequenceSetdown(in);
    case PF_Cmd_UPDATE_PARAMS_UI:
      return updateParamsUi(in);
    case PF_Cmd_EVENT:
      return event(in, static_cast<const PF_EventExtra*>(extra));
    case PF_Cmd_RENDER:
      return render(in, params, output);
    case PF_Cmd_SMART_PRE_RENDER:
      return preRender(in, static_cast<PF_PreRenderExtra*>(extra));
    case PF_Cmd_SMART_RENDER:
      return smartRender(in, static_cast<PF_SmartRenderExtra*>(extra));
    default:
      return PF_Err_NONE;
  }
}
