#include "standalone/cli/panel_command.h"

#include <algorithm>
#include <optional>

#include "standalone/cli/command_error.h"
#include "standalone/cli/instance_values.h"
#include "standalone/cli/parameter_lookup.h"
#include "standalone/cli/pattern_file.h"
#include "standalone/cli/typed_path.h"
#include "standalone/host/picture_file.h"

namespace quiltor::standalone {
namespace {

// The pane with the control on it.
World drawnControl(Instance& instance, const std::vector<Parameter>& parameters) {
  const std::optional<int> control = ownControl(parameters);
  if (!control) throw UsageError("--draw: the effect has no control of its own");
  const EventResult result = instance.drawControl(*control);
  requireSuccess(result.call, "drawing the control");
  return result.drawing->pane();
}

const char* stateOf(const PanelEntry& entry) {
  if (entry.hidden()) return "hidden";
  return entry.disabled() ? "greyed" : "shown";
}

void printPanel(const Instance& instance, std::size_t count, std::ostream& out) {
  std::size_t width = 0;
  for (std::size_t i = 1; i < count; ++i) width = std::max(width, instance.shown(static_cast<int>(i)).name.size());
  for (std::size_t i = 1; i < count; ++i) {
    const PanelEntry& entry = instance.shown(static_cast<int>(i));
    out << entry.name << std::string(width + 2 - entry.name.size(), ' ') << stateOf(entry) << '\n';
  }
}

void usePanel(Effect& effect, const PanelOptions& options, const PatternFile* pattern, std::optional<World>& drawing,
              std::ostream& out) {
  const std::vector<Parameter>& parameters = effect.parameters();
  std::vector<Assignment> assignments;
  for (const std::string& text : options.assignments) assignments.push_back(parseAssignment(parameters, text));
  std::vector<unsigned char> saved;
  if (pattern) saved = savedWithPattern(effect, pattern->path());

  Instance instance(effect);
  requireSuccess(pattern ? instance.resetupFrom(saved) : instance.setUp(), "setting up an instance");
  requireSuccess(instance.showPanel(), "showing the panel");
  for (const Assignment& assignment : assignments) {
    applyValue(instance, assignment.index, assignment.value);
    requireSuccess(instance.changedByUser(assignment.index), "changing a parameter");
  }
  if (!options.drawing.empty()) drawing = drawnControl(instance, parameters);
  printPanel(instance, parameters.size(), out);
  requireSuccess(instance.shutDown(), "closing an instance");
}

}  // namespace

void runPanel(const SessionOptions& session, const PanelOptions& options, std::ostream& out, std::ostream& err) {
  if (!options.drawing.empty()) requirePngName("--draw", options.drawing);
  std::optional<PatternFile> pattern;
  if (!options.pattern.empty()) pattern.emplace(options.pattern);
  std::optional<World> drawing;
  withEffect(session, {}, err,
             [&](Effect& effect) { usePanel(effect, options, pattern ? &*pattern : nullptr, drawing, out); });
  if (drawing) writePng(options.drawing, *drawing);
}

}  // namespace quiltor::standalone
