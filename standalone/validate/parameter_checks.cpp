// Frames with every parameter at its ends, with other layers and with masks.
#include <string>
#include <vector>

#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

struct Setting {
  std::string text;
  std::function<void(Instance&)> apply;
};

// The ends of a parameter's range, and values that no slider reaches but a script can set.
std::vector<Setting> settingsOf(const Parameter& parameter, int index) {
  const PF_ParamDef& definition = parameter.definition;
  std::vector<Setting> settings;
  const auto numbers = [&](std::initializer_list<double> values) {
    for (const double value : values) {
      settings.push_back({std::to_string(value), [index, value](Instance& to) { to.setNumber(index, value); }});
    }
  };
  switch (definition.param_type) {
    case PF_Param_FLOAT_SLIDER:
      numbers({definition.u.fs_d.valid_min, definition.u.fs_d.valid_max,
               (definition.u.fs_d.valid_min + definition.u.fs_d.valid_max) / 3});
      break;
    case PF_Param_SLIDER:
      numbers({double(definition.u.sd.valid_min), double(definition.u.sd.valid_max)});
      break;
    case PF_Param_FIX_SLIDER:
      numbers({definition.u.fd.valid_min / 65536.0, definition.u.fd.valid_max / 65536.0});
      break;
    case PF_Param_ANGLE:
      numbers({-720, -33.5, 90, 3600});
      break;
    case PF_Param_CHECKBOX:
      for (const bool on : {false, true}) {
        settings.push_back({on ? "on" : "off", [index, on](Instance& to) { to.setChecked(index, on); }});
      }
      break;
    case PF_Param_POPUP:
      for (int item = 1; item <= definition.u.pd.num_choices; ++item) {
        settings.push_back(
            {"item " + std::to_string(item), [index, item](Instance& to) { to.setChoice(index, item); }});
      }
      break;
    case PF_Param_COLOR:
      for (const PF_Pixel& color : {PF_Pixel{255, 0, 0, 0}, PF_Pixel{255, 255, 255, 255}}) {
        settings.push_back(
            {color.red ? "white" : "black", [index, color](Instance& to) { to.setColor(index, color); }});
      }
      break;
    case PF_Param_POINT:
    case PF_Param_POINT_3D:
      for (const double percent : {0.0, 33.3, -1000.0, 20000.0}) {
        settings.push_back({std::to_string(percent) + " percent",
                            [index, percent](Instance& to) { to.setPointPercent(index, percent, percent); }});
      }
      break;
    default:
      break;
  }
  return settings;
}

void takesEveryValue(CheckRun& run) {
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 14, 9);
    const auto& parameters = stage.effect.parameters();
    for (std::size_t i = 1; i < parameters.size(); ++i) {
      Instance instance(stage.effect);
      run.requireSuccess(instance.setUp(), "sequence setup");
      for (const Setting& setting : settingsOf(parameters[i], static_cast<int>(i))) {
        run.trial(kind.name + ", \"" + parameters[i].name + "\" at " + setting.text);
        setting.apply(instance);
        (void)renderFrame(stage, instance, kind, {.input = &layer});
      }
    }
  });
}

void takesEveryLayer(CheckRun& run) {
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 14, 9);
    const World larger = testPicture(kind.format, 40, 31), tiny = testPicture(kind.format, 1, 1);
    const auto& parameters = stage.effect.parameters();
    bool any = false;
    for (std::size_t i = 1; i < parameters.size(); ++i) {
      if (parameters[i].definition.param_type != PF_Param_LAYER) continue;
      any = true;
      Instance instance(stage.effect);
      run.requireSuccess(instance.setUp(), "sequence setup");
      const auto render = [&](const std::string& which, const World* world) {
        run.trial(kind.name + ", \"" + parameters[i].name + "\" is " + which);
        instance.setLayer(static_cast<int>(i), world);
        (void)renderFrame(stage, instance, kind, {.input = &layer});
      };
      render("a larger layer", &larger);
      render("a layer of one pixel", &tiny);
      render("the effect's own layer", &layer);
      for (const NoLayerPixels none : {NoLayerPixels::EmptyWorld, NoLayerPixels::NullWorld, NoLayerPixels::Error}) {
        stage.host.options().noLayerPixels = none;
        render("no layer", nullptr);
      }
    }
    if (!any) run.notApplicable("the effect takes no other layer");
  });
}

void takesEveryMask(CheckRun& run) {
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 14, 9);
    const auto& parameters = stage.effect.parameters();
    bool any = false;
    for (std::size_t i = 1; i < parameters.size(); ++i) {
      if (parameters[i].definition.param_type != PF_Param_PATH) continue;
      any = true;
      Instance instance(stage.effect);
      run.requireSuccess(instance.setUp(), "sequence setup");
      for (const PF_PathID id : {3u, 7u, 8u, 99u, 0u}) {
        run.trial(kind.name + ", \"" + parameters[i].name + "\" is mask " + std::to_string(id));
        instance.setPath(static_cast<int>(i), id);
        (void)renderFrame(stage, instance, kind, {.input = &layer});
      }
    }
    if (!any) run.notApplicable("the effect takes no mask");
  });
}

}  // namespace

std::vector<Check> parameterChecks() {
  return {
      {"values", "Frames render with every parameter at the ends of its range.", takesEveryValue},
      {"layers", "Frames render with every layer as another layer, and without one.", takesEveryLayer},
      {"masks", "Frames render with every mask, also an empty one and one that is gone.", takesEveryMask},
  };
}

}  // namespace quiltor::standalone
