#include "standalone/host/interaction.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "standalone/host/call_context.h"
#include "standalone/host/registration.h"
#include "standalone/host/suites/suite_table.h"

namespace quiltor::standalone {
namespace {

// Every call whose reference an effect can have is a CallContext, but for the delete function's, which gets none.
CallContext* contextOf(PF_ProgPtr effect) { return dynamic_cast<CallContext*>(hostState().callOf(effect)); }

PF_Err badArgument(const char* text) {
  hostState().findings.record(FindingKind::BadArgument, text);
  return PF_Err_BAD_CALLBACK_PARAM;
}

PF_Err checkoutParam(PF_ProgPtr effect, PF_ParamIndex index, A_long time, A_long, A_u_long timeScale,
                     PF_ParamDef* destination) {
  CallContext* context = contextOf(effect);
  if (!context) return PF_Err_BAD_CALLBACK_PARAM;
  if (const PF_Err code =
          context->host.faults.refusal(HostCall::CheckoutParam, "checkout_param " + std::to_string(index))) {
    return code;
  }
  if (!destination) return badArgument("checkout_param was called without a destination");
  return context->checkOut(index, time, timeScale, *destination);
}

PF_Err checkinParam(PF_ProgPtr effect, PF_ParamDef* record) {
  CallContext* context = contextOf(effect);
  if (!context) return PF_Err_BAD_CALLBACK_PARAM;
  const PF_Err refused = context->host.faults.refusal(HostCall::CheckinParam, "checkin_param");
  if (!record) return badArgument("checkin_param was called without a record");
  const PF_Err code = context->checkIn(*record);
  return code ? code : refused;
}

Registration* registrationOf(CallContext& context, const char* function) {
  if (!context.registration) {
    context.host.findings.record(FindingKind::WrongSelector,
                                 std::string(function) + " is for PF_Cmd_PARAMS_SETUP only");
  }
  return context.registration;
}

// " \"Opacity\"", as far as the name goes.
std::string nameIn(const PF_ParamDef* definition) {
  if (!definition) return "";
  const auto end = std::find(std::begin(definition->name), std::end(definition->name), '\0');
  return " \"" + std::string(std::begin(definition->name), end) + "\"";
}

PF_Err addParam(PF_ProgPtr effect, PF_ParamIndex index, PF_ParamDefPtr definition) {
  CallContext* context = contextOf(effect);
  if (!context) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string what = "add_param" + nameIn(definition);
  if (const PF_Err code = context->host.faults.refusal(HostCall::AddParam, what)) return code;
  if (!definition) return badArgument("add_param was called without a definition");
  Registration* registration = registrationOf(*context, "add_param");
  if (!registration) return PF_Err_BAD_CALLBACK_PARAM;
  addParameter(*registration, index, *definition, context->host.findings);
  return PF_Err_NONE;
}

PF_Err registerUi(PF_ProgPtr effect, PF_CustomUIInfo* info) {
  CallContext* context = contextOf(effect);
  if (!context) return PF_Err_BAD_CALLBACK_PARAM;
  if (const PF_Err refused = context->host.faults.refusal(HostCall::RegisterUi, "register_ui")) return refused;
  if (!info) return badArgument("register_ui was called without a record");
  Registration* registration = registrationOf(*context, "register_ui");
  if (!registration) return PF_Err_BAD_CALLBACK_PARAM;
  registration->customUi = *info;
  return PF_Err_NONE;
}

PF_Err abortCall(PF_ProgPtr effect) {
  CallContext* context = contextOf(effect);
  if (!context) return PF_Err_BAD_CALLBACK_PARAM;
  HostState& host = context->host;
  if (currentThreadIndex() != 0) {
    host.findings.record(FindingKind::WrongThread, "abort and progress are for thread index 0 only, not for " +
                                                       std::to_string(currentThreadIndex()));
  }
  const int count = host.abortCallCount.fetch_add(1);
  if (const PF_Err refused = host.faults.refusal(HostCall::Abort, "abort", PF_Interrupt_CANCEL)) return refused;
  return host.options.onAbort ? host.options.onAbort(count) : PF_Err_NONE;
}

PF_Err progress(PF_ProgPtr effect, A_long, A_long) { return abortCall(effect); }

}  // namespace

PF_InteractCallbacks interactionCallbacks() {
  auto callbacks = tableOfUnimplementedSlots<PF_InteractCallbacks>();
  callbacks.checkout_param = &checkoutParam;
  callbacks.checkin_param = &checkinParam;
  callbacks.add_param = &addParam;
  callbacks.abort = &abortCall;
  callbacks.progress = &progress;
  callbacks.register_ui = &registerUi;
  std::fill(std::begin(callbacks.reserved_str), std::end(callbacks.reserved_str), nullptr);
  std::fill(std::begin(callbacks.reserved), std::end(callbacks.reserved), nullptr);
  return callbacks;
}

}  // namespace quiltor::standalone
