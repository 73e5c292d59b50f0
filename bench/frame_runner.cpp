#include "bench/frame_runner.h"

#include <map>
#include <stdexcept>

#include "hostapi/params.h"
#include "standalone/cli/instance_values.h"

namespace quiltor::bench {
namespace {

using standalone::HostOptions;
using standalone::World;
using standalone::WorldFormat;

// By their place in the registered parameters.
constexpr int kSource = 1, kPatternLayer = 2, kTileMode = 5, kOpacity = 7, kScale = 8, kOffset = 9, kRotation = 10,
              kBlur = 14;
constexpr int kFromLayer = 1, kFromFile = 2;  // menu items

HostOptions trustingHost() {
  HostOptions options;
  options.strict = false;
  options.inputRows = options.outputRows = {};
  return options;
}

}  // namespace

std::optional<FrameJob> frameJob(const std::string& name) {
  constexpr FrameJob kTurned{.blendMode = 8, .opacity = 70, .scale = 73, .rotation = 30};
  static const std::map<std::string, FrameJob> jobs = [&] {
    std::map<std::string, FrameJob> all{
        {"J1", {}}, {"J2", kTurned}, {"J3", kTurned}, {"J4a", kTurned}, {"J4b", kTurned}};
    all["J3"].tileMode = 3;
    all["J3"].blendMode = 15;
    all["J4a"].blur = 10;
    all["J4b"].blur = 100;
    return all;
  }();
  const auto found = jobs.find(name);
  return found == jobs.end() ? std::nullopt : std::optional(found->second);
}

std::optional<WorldFormat> worldFormat(const std::string& name) {
  if (name == "u8") return WorldFormat::Argb8;
  if (name == "u16") return WorldFormat::Argb16;
  if (name == "f32") return WorldFormat::ArgbFloat;
  return std::nullopt;
}

FrameRunner::FrameRunner(const std::string& modulePath)
    : host_(trustingHost()), module_(modulePath), effect_(host_, module_) {
  if (!effect_.setUp().succeeded()) throw std::runtime_error(modulePath + " could not be set up");
}

void FrameRunner::setUp(const FrameJob& job, const World& input, const World& pattern, int threads) {
  instance_.emplace(effect_);
  if (!instance_->setUp().succeeded()) throw std::runtime_error("the instance could not be set up");
  instance_->setChoice(kSource, kFromLayer);
  instance_->setLayer(kPatternLayer, &pattern);
  apply(job, input, threads);
}

void FrameRunner::setUpSaved(const FrameJob& job, const World& input, const std::vector<unsigned char>& saved,
                             int threads) {
  instance_.emplace(effect_);
  if (!instance_->resetupFrom(saved).succeeded()) throw std::runtime_error("the instance could not be set up again");
  instance_->setChoice(kSource, kFromFile);
  apply(job, input, threads);
}

std::vector<unsigned char> FrameRunner::savedWith(const std::filesystem::path& pattern) {
  return standalone::savedWithPattern(effect_, pattern);
}

void FrameRunner::apply(const FrameJob& job, const World& input, int threads) {
  host_.options().iterateThreads = threads;
  input_ = &input;
  instance_->setChoice(kTileMode, job.tileMode);
  instance_->setChoice(kBlendMode, job.blendMode);
  instance_->setNumber(kOpacity, job.opacity);
  instance_->setNumber(kScale, job.scale);
  instance_->setPointPixels(kOffset, input.width() / 2, input.height() / 2);
  instance_->setNumber(kRotation, job.rotation);
  instance_->setNumber(kBlur, job.blur);
}

FrameRunner::Milliseconds FrameRunner::frame() {
  standalone::Frame frame;
  frame.input = input_;
  frame.spare = picture_ ? &*picture_ : nullptr;
  standalone::RenderResult result = instance_->renderSmart(frame);
  if (result.code != PF_Err_NONE || !result.output) throw std::runtime_error("the frame could not be rendered");
  picture_ = std::move(result.output);
  return {1e3 * result.seconds, 1e3 * result.processorSeconds};
}

}  // namespace quiltor::bench
