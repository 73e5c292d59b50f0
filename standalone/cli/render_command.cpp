#include "standalone/cli/render_command.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/instance_values.h"
#include "standalone/cli/mask_file.h"
#include "standalone/cli/parameter_lookup.h"
#include "standalone/cli/pattern_file.h"
#include "standalone/cli/shrink.h"
#include "standalone/cli/typed_path.h"
#include "standalone/host/instance.h"
#include "standalone/host/picture_file.h"

namespace quiltor::standalone {
namespace {

HostOptions hostOptions(const RenderOptions& options, const World& input) {
  HostOptions host;
  host.downsampleX.den = host.downsampleY.den = static_cast<A_u_long>(options.downsample);
  const std::pair centre(input.width() / 2.0, input.height() / 2.0);
  std::tie(host.transform.positionX, host.transform.positionY) = options.position.value_or(centre);
  std::tie(host.transform.anchorX, host.transform.anchorY) = options.anchor.value_or(centre);
  std::tie(host.transform.scaleX, host.transform.scaleY) = options.scale.value_or(std::pair(100.0, 100.0));
  host.transform.rotation = options.rotation;
  if (!options.masks.empty()) host.masks = readMasks(options.masks);
  return host;
}

int patternLayerParameter(const std::vector<Parameter>& parameters) {
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    if (parameters[i].definition.param_type == PF_Param_LAYER) return static_cast<int>(i);
  }
  throw UsageError("--pattern-layer: the effect takes no layer besides its own");
}

// A given picture is meant to be seen, so the Quiltor module's switch between both kinds of pattern follows it; what
// --set says comes later and wins.
void choosePatternSource(Instance& instance, const std::vector<Parameter>& parameters, const std::string& item) {
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    if (shortName(parameters, i) != "source") continue;
    applyValue(instance, static_cast<int>(i), parseParameterValue(parameters[i], item));
  }
}

RenderResult renderFrame(Effect& effect, Instance& instance, const RenderOptions& options, const World& input) {
  const bool offersSmart = (effect.outFlags2() & PF_OutFlag2_SUPPORTS_SMART_RENDER) != 0;
  if (options.path == RenderPath::Smart && !offersSmart) {
    throw CommandFailure("--smart: the effect does not offer smart rendering");
  }
  const bool isVideoEditor = effect.host().options().appId == kAppId_PremierePro;
  const bool smart = options.path != RenderPath::Classic && offersSmart && !isVideoEditor;
  Frame frame;
  frame.input = &input;
  return smart ? instance.renderSmart(frame) : instance.render(frame);
}

// Which option asks for what the video editor lacks; empty when none does.
std::string notInVideoEditor(const RenderOptions& options) {
  if (options.path == RenderPath::Smart) return "--smart: Premiere Pro has no smart rendering";
  if (options.format == WorldFormat::Argb16) return "--depth: \"16\": expected 8 or float, as Premiere Pro renders";
  if (!options.masks.empty()) return "--masks: Premiere Pro shows effects no masks";
  const std::string place = ": Premiere Pro does not tell effects where their layer lies";
  if (options.position) return "--layer-position" + place;
  if (options.anchor) return "--layer-anchor" + place;
  if (options.scale) return "--layer-scale" + place;
  if (options.rotation != 0) return "--layer-rotation" + place;
  return {};
}

// The video editor's pixels are blue first for effects that declare that they take them so.
WorldFormat declaredFormat(const Host& host, WorldFormat depth) {
  const auto declares = [&host](PrPixelFormat format) {
    return std::ranges::find(host.declaredPixelFormats(), format) != host.declaredPixelFormats().end();
  };
  if (depth == WorldFormat::Argb8) return declares(PrPixelFormat_BGRA_4444_8u) ? WorldFormat::Bgra8 : depth;
  if (declares(PrPixelFormat_BGRA_4444_32f)) return WorldFormat::BgraFloat;
  throw CommandFailure("--depth: \"float\": the effect does not declare that it takes such pixels in Premiere Pro");
}

World renderWith(Effect& effect, const RenderOptions& options, const World& input, const PatternFile* pattern,
                 const World* patternLayer) {
  const std::vector<Parameter>& parameters = effect.parameters();
  std::vector<int32_t> masks;
  for (const Mask& mask : effect.host().options().masks) masks.push_back(mask.id);
  std::vector<Assignment> assignments;
  for (const std::string& text : options.assignments) {
    assignments.push_back(parseAssignment(parameters, text, masks));
  }

  std::vector<unsigned char> saved;
  if (pattern) saved = savedWithPattern(effect, pattern->path());
  Instance instance(effect);
  requireSuccess(saved.empty() ? instance.setUp() : instance.resetupFrom(saved), "setting up an instance");
  if (pattern) choosePatternSource(instance, parameters, "File");
  if (patternLayer) {
    choosePatternSource(instance, parameters, "Layer");
    instance.setLayer(patternLayerParameter(parameters), patternLayer);
  }
  for (const Assignment& assignment : assignments) {
    applyValue(instance, assignment.index, assignment.value);
  }

  RenderResult result = renderFrame(effect, instance, options, input);
  if (result.code != PF_Err_NONE) {
    throw CommandFailure(utf8FromPath(options.input) + ": " + describeFailure(result.code, result.message));
  }
  if (!result.output) throw CommandFailure(utf8FromPath(options.input) + ": the effect rendered an empty rectangle");
  requireSuccess(instance.shutDown(), "closing an instance");
  return std::move(*result.output);
}

}  // namespace

void runRender(const SessionOptions& session, const RenderOptions& options, std::ostream& err) {
  requirePngName("--output", options.output);
  const bool isVideoEditor = session.appId == kAppId_PremierePro;
  if (isVideoEditor) {
    if (const std::string problem = notInVideoEditor(options); !problem.empty()) throw UsageError(problem);
  }
  const World fullInput = readPicture(options.input, options.format);
  World input = shrink(fullInput, options.downsample);
  std::optional<PatternFile> pattern;
  if (!options.pattern.empty()) pattern.emplace(options.pattern);
  std::optional<World> patternLayer;
  if (!options.patternLayer.empty()) {
    patternLayer = shrink(readPicture(options.patternLayer, options.format), options.downsample);
  }
  std::optional<World> picture;
  withEffect(session, hostOptions(options, fullInput), err, [&](Effect& effect) {
    if (isVideoEditor) input = input.converted(declaredFormat(effect.host(), options.format));
    picture =
        renderWith(effect, options, input, pattern ? &*pattern : nullptr, patternLayer ? &*patternLayer : nullptr);
  });
  writePng(options.output, *picture);
}

}  // namespace quiltor::standalone
