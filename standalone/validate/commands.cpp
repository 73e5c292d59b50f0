#include "standalone/validate/commands.h"

namespace quiltor::standalone {
namespace {

void nothing(Subject&) {}

void setUp(Subject& subject) { subject.effect->setUp(); }

void apply(Subject& subject) {
  setUp(subject);
  subject.instance = std::make_unique<Instance>(*subject.effect);
}

void setUpInstance(Subject& subject) {
  apply(subject);
  subject.instance->setUp();
}

void flatten(Subject& subject) {
  setUpInstance(subject);
  subject.instance->flatten();
}

// The host takes the data out of the instance's hands, so that a failed set-down can be told from a leak.
void detach(Subject& subject) { subject.handle = subject.instance->detachSequenceData(); }

CallResult setDown(Subject& subject) {
  const PF_Handle handle = subject.handle;
  return subject.effect->call(
      {.selector = PF_Cmd_SEQUENCE_SETDOWN,
       .prepare = [handle](PF_InData& in, PF_OutData& out) { in.sequence_data = out.sequence_data = handle; }});
}

std::vector<Command> makeCommands() {
  return {
      {"about", setUp, [](Subject& subject) { return subject.effect->about(); }},
      {"global-setup", nothing, [](Subject& subject) { return subject.effect->globalSetup(); }},
      {"params-setup", [](Subject& subject) { subject.effect->globalSetup(); },
       [](Subject& subject) { return subject.effect->paramsSetup(); }},
      {"global-setdown", setUp,
       [](Subject& subject) { return subject.effect->call({.selector = PF_Cmd_GLOBAL_SETDOWN}); }, false},
      {"sequence-setup", apply, [](Subject& subject) { return subject.instance->setUp(); }},
      {"sequence-flatten", setUpInstance, [](Subject& subject) { return subject.instance->flatten(); }},
      {"get-flattened", setUpInstance, [](Subject& subject) { return subject.instance->getFlattened(subject.flat); }},
      {"sequence-resetup", flatten, [](Subject& subject) { return subject.instance->resetup(); }},
      {"sequence-resetup-of-live-data", setUpInstance, [](Subject& subject) { return subject.instance->resetup(); }},
      {"sequence-resetup-without-data", apply, [](Subject& subject) { return subject.instance->resetupFromNull(); }},
      {"sequence-setdown",
       [](Subject& subject) {
         setUpInstance(subject);
         detach(subject);
       },
       setDown, false},
      {"sequence-setdown-of-flat-data",
       [](Subject& subject) {
         flatten(subject);
         detach(subject);
       },
       setDown, false},
      {"panel-refresh", setUpInstance, [](Subject& subject) { return subject.instance->updateUi(); }},
      {"changed-parameter", setUpInstance,
       [](Subject& subject) {
         CallResult result;
         const auto& parameters = subject.effect->parameters();
         for (std::size_t i = 1; i < parameters.size() && result.succeeded(); ++i) {
           const bool supervised = (parameters[i].definition.flags & PF_ParamFlag_SUPERVISE) != 0;
           if (supervised) result = subject.instance->userChanged(static_cast<int>(i));
         }
         return result;
       }},
      {"options-dialog", setUpInstance, [](Subject& subject) { return subject.instance->doDialog(); }},
      {"control-draw", setUpInstance,
       [](Subject& subject) {
         const int control = customControlOf(*subject.effect);
         return control ? subject.instance->drawControl(control).call : CallResult{};
       }},
      {"control-click", setUpInstance,
       [](Subject& subject) {
         const int control = customControlOf(*subject.effect);
         return control ? subject.instance->clickedByUser(control).call : CallResult{};
       }},
  };
}

}  // namespace

int customControlOf(const Effect& effect) {
  const auto& parameters = effect.parameters();
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    if (parameters[i].definition.ui_flags & PF_PUI_CONTROL) return static_cast<int>(i);
  }
  return 0;
}

void Subject::shutDown() {
  instance.reset();
  if (effect) effect->shutDown();
}

void prepare(Subject& subject, Host& host, const EffectModule& module, const Command& command) {
  subject.shutDown();
  subject.effect = std::make_unique<Effect>(host, module);
  subject.handle = nullptr;
  command.prepare(subject);
}

const std::vector<Command>& commands() {
  static const std::vector<Command> all = makeCommands();
  return all;
}

}  // namespace quiltor::standalone
