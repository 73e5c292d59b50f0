#include "standalone/host/instance.h"

#include <cstring>
#include <utility>

#include "standalone/host/call_context.h"

namespace quiltor::standalone {
namespace {

// Rendering shares the sequence data between threads: what such a call stores is not kept.
bool mayReplaceSequenceData(A_long selector) {
  switch (selector) {
    case PF_Cmd_SEQUENCE_SETUP:
    case PF_Cmd_SEQUENCE_RESETUP:
    case PF_Cmd_SEQUENCE_FLATTEN:
    case PF_Cmd_DO_DIALOG:
    case PF_Cmd_USER_CHANGED_PARAM:
    case PF_Cmd_UPDATE_PARAMS_UI:
    case PF_Cmd_EVENT:
      return true;
    default:
      return false;
  }
}

PanelAccess panelAccess(A_long selector) {
  switch (selector) {
    case PF_Cmd_USER_CHANGED_PARAM:
    case PF_Cmd_UPDATE_PARAMS_UI:
      return PanelAccess::Definitions;
    case PF_Cmd_EVENT:
      return PanelAccess::Streams;
    default:
      return PanelAccess::None;
  }
}

}  // namespace

Instance::Instance(Effect& effect) : effect_(effect), values_(std::make_unique<ParamValues>(effect.parameters())) {
  for (const Parameter& parameter : effect.parameters()) {
    PanelEntry entry;
    entry.name = parameter.name;
    entry.uiFlags = parameter.definition.ui_flags;
    entry.type = parameter.definition.param_type;
    panel_.push_back(std::move(entry));
  }
}

Instance::~Instance() { shutDown(); }

CallResult Instance::setUp() { return call({.selector = PF_Cmd_SEQUENCE_SETUP}); }
CallResult Instance::resetup() { return call({.selector = PF_Cmd_SEQUENCE_RESETUP}); }
CallResult Instance::flatten() { return call({.selector = PF_Cmd_SEQUENCE_FLATTEN}); }
CallResult Instance::doDialog() { return call({.selector = PF_Cmd_DO_DIALOG}); }

CallResult Instance::resetupFrom(std::span<const unsigned char> flat) {
  discardSequenceData();
  HostState& host = effect_.host().state();
  CallScope owner("the host", &effect_);
  const EnterCall enter(&owner);
  sequenceData_ = host.handles.make(flat.size());
  if (sequenceData_ && !flat.empty()) std::memcpy(*sequenceData_, flat.data(), flat.size());
  flat_ = true;
  return resetup();
}

CallResult Instance::resetupFromNull() {
  discardSequenceData();
  return resetup();
}

CallResult Instance::getFlattened(std::vector<unsigned char>& flat) {
  return run({.selector = PF_Cmd_GET_FLATTENED_SEQUENCE_DATA}, &flat);
}

CallResult Instance::shutDown() {
  if (!setUp_) return {};
  closePane();
  return call({.selector = PF_Cmd_SEQUENCE_SETDOWN});
}

// Before other data takes their place.
void Instance::discardSequenceData() {
  if (sequenceData_ && !flat_) {
    shutDown();
  } else if (sequenceData_) {
    effect_.host().state().handles.drop(sequenceData_);
  }
  sequenceData_ = nullptr;
}

PF_Handle Instance::detachSequenceData() {
  setUp_ = flat_ = false;
  return std::exchange(sequenceData_, nullptr);
}

std::vector<unsigned char> Instance::sequenceBytes() const {
  return effect_.host().state().handles.bytes(sequenceData_);
}

void Instance::setNumber(int index, double value) { values_->setNumber(index, value); }
void Instance::setChoice(int index, int item) { values_->setChoice(index, item); }
void Instance::setChecked(int index, bool on) { values_->setChecked(index, on); }
void Instance::setColor(int index, const PF_Pixel& color) { values_->setColor(index, color); }
void Instance::setPointPercent(int index, double x, double y) { values_->setPointPercent(index, x, y); }
void Instance::setPointPixels(int index, double x, double y) { values_->setPointPixels(index, x, y); }
void Instance::setPath(int index, PF_PathID id) { values_->setPath(index, id); }
void Instance::setLayer(int index, LayerSource source) { values_->setLayer(index, std::move(source)); }
void Instance::adjust(int index, Adjust hook) { values_->adjust(index, std::move(hook)); }

void Instance::setLayer(int index, const World* world) {
  values_->setLayer(index, [world](A_long, A_u_long) { return world; });
}

CallResult Instance::userChanged(int index) {
  PF_UserChangedParamExtra extra{index};
  return callWithParams(PF_Cmd_USER_CHANGED_PARAM, &extra);
}

CallResult Instance::updateUi() { return callWithParams(PF_Cmd_UPDATE_PARAMS_UI, nullptr); }

CallResult Instance::callWithParams(A_long selector, void* extra) {
  ParamArray array = params();
  return call({.selector = selector, .params = array.pointers(), .extra = extra});
}

CallResult Instance::showPanel() {
  return (effect_.outFlags() & PF_OutFlag_SEND_UPDATE_PARAMS_UI) != 0 ? updateUi() : CallResult{};
}

CallResult Instance::changedByUser(int index) {
  const PF_ParamDef& definition = effect_.parameters().at(static_cast<std::size_t>(index)).definition;
  CallResult result;
  if ((definition.flags & PF_ParamFlag_SUPERVISE) != 0) result = userChanged(index);
  return result.succeeded() ? showPanel() : result;
}

Instance::ParamArray Instance::params(const World* input) const {
  const HostOptions& options = effect_.host().options();
  const LayerSize size = input ? LayerSize{input->width(), input->height()} : LayerSize{};
  ParamArray array;
  for (std::size_t i = 0; i < values_->size(); ++i) {
    PF_ParamDef definition = values_->at(i, size, options);
    if (i == 0 && input) definition.u.ld = input->record();
    values_->applyHook(i, definition, options.currentTime, options.timeScale);
    array.values_.push_back(definition);
  }
  for (PF_ParamDef& value : array.values_) array.pointers_.push_back(&value);
  return array;
}

void Instance::fillContext(CallContext& context) {
  context.handles.global = effect_.globalData();
  context.handles.sequence = sequenceData_;
  context.paramCount = static_cast<A_long>(values_->size());
  context.values = values_.get();
  context.panel = &panel_;
  context.panelAccess = panelAccess(context.number);
  if (context.number == PF_Cmd_EVENT) {
    context.context = &panePointer_;
    context.drawing = drawing_;
  }
}

CallResult Instance::call(const Call& call) { return run(call, nullptr); }

CallResult Instance::run(const Call& call, std::vector<unsigned char>* flat) {
  CallContext context(effect_.host().state(), call.selector, &effect_);
  fillContext(context);
  CallResult result = context.perform(effect_.entryPoint(), call);
  const EnterCall enter(&context);
  if (call.selector == PF_Cmd_SEQUENCE_SETDOWN) context.forgive(sequenceData_, result);
  keepSequenceData(call, result, flat);
  return result;
}

void Instance::keepSequenceData(const Call& call, const CallResult& result, std::vector<unsigned char>* flat) {
  HostState& host = effect_.host().state();
  const PF_Handle given = sequenceData_;
  const PF_Handle stored = result.out.sequence_data;

  if (call.selector == PF_Cmd_GET_FLATTENED_SEQUENCE_DATA) {
    if (flat) *flat = stored == given ? std::vector<unsigned char>() : host.handles.bytes(stored);
    if (stored && stored == given && result.succeeded()) {
      host.findings.record(FindingKind::FlatDataIsLive, "the effect handed out its live data as the flat copy");
    } else if (stored != given) {
      host.handles.drop(stored);
    }
    return;
  }
  if (call.selector == PF_Cmd_SEQUENCE_SETDOWN) {
    sequenceData_ = nullptr;
    setUp_ = flat_ = false;
    return;
  }
  if (!mayReplaceSequenceData(call.selector)) return;
  sequenceData_ = stored && host.handles.alive(stored) ? stored : nullptr;

  if (call.selector == PF_Cmd_SEQUENCE_FLATTEN && result.succeeded()) flat_ = true;
  if (call.selector == PF_Cmd_SEQUENCE_SETUP) flat_ = false;
  if (call.selector == PF_Cmd_SEQUENCE_RESETUP) {
    if (given && given != stored && host.handles.alive(given)) {
      if (result.succeeded()) {
        host.findings.record(FindingKind::FlatHandleNotDisposed, "the flat handle that resetup was given still lives");
      }
      host.handles.drop(given);
    }
    if (result.succeeded()) flat_ = false;
  }
  setUp_ = setUp_ || result.succeeded() || sequenceData_ != nullptr;
}

}  // namespace quiltor::standalone
