#include "standalone/host/effect.h"

#include <utility>

#include "standalone/host/call_context.h"

namespace quiltor::standalone {

Effect::Effect(Host& host, const EffectModule& module) : host_(host), entryPoint_(module.entryPoint()) {}

Effect::~Effect() { shutDown(); }

CallResult Effect::globalSetup() { return call({.selector = PF_Cmd_GLOBAL_SETUP}); }
CallResult Effect::paramsSetup() { return call({.selector = PF_Cmd_PARAMS_SETUP}); }
CallResult Effect::about() { return call({.selector = PF_Cmd_ABOUT}); }

CallResult Effect::setUp() {
  CallResult result = globalSetup();
  return result.succeeded() ? paramsSetup() : result;
}

CallResult Effect::shutDown() {
  CallResult result;
  if (down_) return result;
  if (globalSetupCalled_) result = call({.selector = PF_Cmd_GLOBAL_SETDOWN});
  down_ = true;
  CallScope finalCount("shut-down", nullptr);
  const EnterCall enter(&finalCount);
  host_.state().handles.reportLeaks(this);
  host_.state().memory.reportLeaks(this);
  return result;
}

CallResult Effect::call(const Call& call) {
  if (call.selector == PF_Cmd_PARAMS_SETUP) return registerParameters(call);
  const ParamValues defaults(parameters_);
  CallContext context(host_.state(), call.selector, this);
  context.handles.global = globalData_;
  context.paramCount = static_cast<A_long>(parameters_.size());
  context.values = &defaults;
  CallResult result = context.perform(entryPoint_, call);
  if (call.selector == PF_Cmd_GLOBAL_SETUP) {
    globalSetupCalled_ = true;
    down_ = false;
    version_ = result.out.my_version;
    outFlags_ = result.out.out_flags;
    outFlags2_ = result.out.out_flags2;
    globalData_ = result.out.global_data;
  } else if (call.selector == PF_Cmd_GLOBAL_SETDOWN) {
    context.forgive(globalData_, result);
    globalSetupCalled_ = false;
    globalData_ = nullptr;
  }
  return result;
}

CallResult Effect::registerParameters(const Call& call) {
  Registration registration;
  CallContext context(host_.state(), call.selector, this);
  context.handles.global = globalData_;
  context.registration = &registration;
  CallResult result = context.perform(entryPoint_, call);
  parameters_ = std::move(registration.parameters);
  pointAtOwnTexts(parameters_);
  customUiRegistered_ = registration.customUi.has_value();
  customUi_ = registration.customUi.value_or(PF_CustomUIInfo{});
  const A_long expected = static_cast<A_long>(parameters_.size());
  if (result.succeeded() && result.out.num_params != expected) {
    const EnterCall enter(&context);
    host_.findings().record(FindingKind::ParamCountMismatch,
                            "the effect reports " + std::to_string(result.out.num_params) + " parameters, expected " +
                                std::to_string(expected) + ": those it added and the input layer");
  }
  return result;
}

}  // namespace quiltor::standalone
