#include "tests/refusals/refusal_rules.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

namespace quiltor::refusal_tests {
namespace {

using standalone::HostCall;

enum class In { Both, Compositing, VideoEditor };

struct Rule {
  std::string_view selector;  // a part of its name; empty: all
  HostCall kind;
  std::string_view what;  // a part of the call's text; empty: all
  Expected expected;
  In application = In::Both;
  std::optional<std::size_t> occurrence = std::nullopt;
};

constexpr Expected kIgnored{};
constexpr Expected k512{Answer::StructDamaged, Picture::None};
constexpr Expected k516{Answer::MissingSuite, Picture::None};
constexpr Expected kNoMemory{Answer::OutOfMemory, Picture::None};
constexpr Expected kHostsOwn{Answer::HostsOwn, Picture::None};
constexpr Expected kSilent{Answer::Success, Picture::Untouched};
constexpr Expected kUnmasked{Answer::Success, Picture::Unmasked};

constexpr const char* kNotAcquired = "Not able to acquire AEFX Suite.";
constexpr const char* kNotReleased = "Not able to release AEFX Suite.";

// The first rule that fits holds.
constexpr Rule kRules[] = {
    // --- What is given back: whatever the host says, it is over ---
    {"GLOBAL_SETUP", HostCall::ReleaseSuite, "\"PF Effect UI Suite\"", {.message = kNotReleased}},
    {"EVENT", HostCall::ReleaseSuite, "\"DRAWBOT", {.message = kNotReleased}},
    {"EVENT", HostCall::ReleaseSuite, "\"PF Effect Custom UI Suite\"", {.message = kNotReleased}},
    {"RENDER", HostCall::ReleaseSuite, "\"AEGP Mask Suite\"", {.message = "Error releasing suite"}},
    {"", HostCall::ReleaseSuite, "", kIgnored},
    {"", HostCall::CheckinParam, "", kIgnored},
    {"", HostCall::CheckinLayerPixels, "", kIgnored},
    {"", HostCall::CheckinPath, "", kIgnored},
    {"", HostCall::DisposeStream, "", kIgnored},
    {"", HostCall::DisposeStreamValue, "", kIgnored},
    {"", HostCall::DisposeMask, "", kIgnored},
    {"", HostCall::DisposeEffect, "", kIgnored},
    {"", HostCall::DisposeWorld, "", kIgnored},
    {"", HostCall::UnlockMemory, "", kIgnored},
    {"", HostCall::FreeMemory, "", kIgnored},

    // --- The effect's own life ---
    {"GLOBAL_SETUP", HostCall::AcquireSuite, "\"PF Effect UI Suite\"", {.message = kNotAcquired}},
    {"GLOBAL_SETUP", HostCall::AcquireSuite, "\"PF Pixel Format Suite\"", kIgnored},
    {"GLOBAL_SETUP", HostCall::AcquireSuite, "\"AEGP Utility Suite\" 7", k516, In::Compositing},
    {"GLOBAL_SETUP", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"GLOBAL_SETUP", HostCall::NewHandle, "", k512},
    {"GLOBAL_SETUP", HostCall::LockHandle, "", kIgnored},
    {"GLOBAL_SETUP", HostCall::RegisterEffect, "", kHostsOwn, In::Compositing},
    {"GLOBAL_SETUP", HostCall::SetOptionsButton, "", kIgnored, In::Compositing},
    {"GLOBAL_SETUP", HostCall::AddPixelFormat, "", kIgnored, In::VideoEditor},
    {"GLOBAL_SETDOWN", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"GLOBAL_SETDOWN", HostCall::LockHandle, "", kIgnored},
    {"PARAMS_SETUP", HostCall::AcquireSuite, "\"PF ANSI Suite\" 1", k516},
    {"PARAMS_SETUP", HostCall::AddParam, "", kHostsOwn},
    {"PARAMS_SETUP", HostCall::RegisterUi, "", kHostsOwn},
    {"ABOUT", HostCall::AcquireSuite, "\"PF ANSI Suite\" 1", k516, In::Compositing},

    // --- The instance's data ---
    {"SEQUENCE_", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"SEQUENCE_", HostCall::AcquireSuite, "\"PF AE Adv App Suite\" 1", k516},
    {"SEQUENCE_", HostCall::NewHandle, "", k512},
    {"SEQUENCE_", HostCall::LockHandle, "", k512},

    // --- The panel: what cannot be had is not shown ---
    {"PARAM", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"PARAM", HostCall::AcquireSuite, "", kIgnored},
    {"PARAM", HostCall::LockHandle, "made in PF_Cmd_SEQUENCE_SETUP", k512},
    {"PARAM", HostCall::LockHandle, "made in PF_Cmd_GLOBAL_SETUP", kIgnored},
    {"PARAM", HostCall::Effect, "", kIgnored},
    {"PARAM", HostCall::Stream, "", kIgnored},
    {"PARAM", HostCall::StreamFlag, "", kIgnored},
    {"PARAM", HostCall::UpdateParamUi, "", kIgnored},
    {"DO_DIALOG", HostCall::AcquireSuite, "", k516},
    {"DO_DIALOG", HostCall::LockHandle, "made in PF_Cmd_SEQUENCE_SETUP", k512},
    {"DO_DIALOG", HostCall::ExecuteScript, "", kIgnored},
    {"DO_DIALOG", HostCall::LockMemory, "", kIgnored},
    // After a pick, which holds although the panel may not show it.
    {"EVENT", HostCall::AcquireSuite, "\"AEGP PF Interface Suite\" 1", kIgnored},
    {"EVENT", HostCall::AcquireSuite, "\"AEGP Effect Suite\" 2", kIgnored},
    {"EVENT", HostCall::AcquireSuite, "\"AEGP Stream Suite\" 7", kIgnored},
    {"EVENT", HostCall::AcquireSuite, "\"AEGP Dynamic Stream Suite\" 2", kIgnored},
    {"EVENT", HostCall::LockHandle, "made in PF_Cmd_GLOBAL_SETUP", kIgnored},
    {"EVENT", HostCall::Effect, "", kIgnored},
    {"EVENT", HostCall::Stream, "", kIgnored},
    {"EVENT", HostCall::StreamFlag, "", kIgnored},
    {"EVENT", HostCall::RefreshWindows, "", kIgnored},
    {"EVENT", HostCall::AcquireSuite, "", {Answer::MissingSuite, Picture::None, kNotAcquired}},
    {"EVENT", HostCall::LockHandle, "made in PF_Cmd_SEQUENCE_SETUP", k512},
    {"EVENT", HostCall::ExecuteScript, "", kIgnored},
    {"EVENT", HostCall::LockMemory, "", kIgnored},
    {"EVENT", HostCall::DrawingReference, "", kHostsOwn},
    {"EVENT", HostCall::Drawbot, "", kHostsOwn},
    {"EVENT", HostCall::NewImage, "", kHostsOwn},
    {"EVENT", HostCall::DrawImage, "", kHostsOwn},
    {"EVENT", HostCall::ReleaseObject, "", kHostsOwn},

    // --- Before a smart frame ---
    {"SMART_PRE_RENDER", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"SMART_PRE_RENDER", HostCall::NewHandle, "", {Answer::Success, Picture::None}},
    {"SMART_PRE_RENDER", HostCall::LockHandle, "", {Answer::Success, Picture::None}},
    {"SMART_PRE_RENDER", HostCall::CheckoutParam, "", kHostsOwn},
    {"SMART_PRE_RENDER", HostCall::CheckoutLayer, "", kHostsOwn},

    // --- The frame's values and layers ---
    {"RENDER", HostCall::CheckoutParam, "", kHostsOwn},
    {"SMART_RENDER", HostCall::CheckoutLayerPixels, "checkout_layer_pixels 0", kHostsOwn},
    {"SMART_RENDER", HostCall::CheckoutLayerPixels, "", {.picture = Picture::PatternIsInput}},
    {"SMART_RENDER", HostCall::CheckoutOutput, "", kHostsOwn},
    {"RENDER", HostCall::Abort, "", kHostsOwn},

    // --- The frame's suites ---
    {"RENDER", HostCall::AcquireSuite, "\"PF Handle Suite\" 2", k516},
    {"RENDER", HostCall::AcquireSuite, "\"PF Iterate8 Suite\" 1", k516},
    {"RENDER", HostCall::AcquireSuite, "\"PF World Suite\" 2", {Answer::NoWorldSuite, Picture::None}},
    {"RENDER", HostCall::AcquireSuite, "\"PF Pixel Format Suite\" 1", kIgnored, In::Compositing},
    // The answer is that of the world suite's acquisition, which went well.
    {"RENDER", HostCall::AcquireSuite, "\"PF Pixel Format Suite\" 1", kSilent, In::VideoEditor},
    {"RENDER", HostCall::AcquireSuite, "\"AEGP PF Interface Suite\" 1", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"AEGP Stream Suite\" 7", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"AEGP Stream Suite\" 9", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"AEGP Layer Mask Suite\" 6", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"PF Path Query Suite\" 1", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"PF Path Data Suite\" 1", k516, In::Compositing},
    {"RENDER", HostCall::AcquireSuite, "\"PF Fill Matte Suite\" 2", k516, In::Compositing},
    {"RENDER",
     HostCall::AcquireSuite,
     "\"AEGP Mask Suite\" 1",
     {Answer::Success, Picture::Unmasked, "Error loading suite"},
     In::Compositing},
    // There they are missing anyway.
    {"RENDER", HostCall::AcquireSuite, "", kIgnored, In::VideoEditor},

    // --- The frame's memory: the effect's data are asked silently, the frame's own buffers are needed ---
    {"RENDER", HostCall::NewHandle, "", kNoMemory},
    {"RENDER", HostCall::LockHandle, "made in PF_Cmd_RENDER", kNoMemory},
    {"RENDER", HostCall::LockHandle, "made in PF_Cmd_SMART_RENDER", kNoMemory},
    {"RENDER", HostCall::LockHandle, "", kSilent},
    {"RENDER", HostCall::Iterate, "", kHostsOwn},
    {"RENDER", HostCall::GetPixelFormat, "PF_GetPixelFormat", kHostsOwn},
    // A world whose format the video editor does not tell is asked of the world suite, which does not know it.
    {"RENDER", HostCall::GetPixelFormat, "GetPixelFormat", k516, In::VideoEditor},

    // --- The layer's transform: what the host does not tell is neutral ---
    {"RENDER", HostCall::Layer, "", {.picture = Picture::Unlocked}, In::Compositing, 0},
    {"RENDER", HostCall::Stream, "AEGP_GetNewLayerStream 0", {.picture = Picture::WithoutAnchor}},
    {"RENDER", HostCall::Stream, "AEGP_GetNewLayerStream 1", {.picture = Picture::WithoutPosition}},
    {"RENDER", HostCall::Stream, "AEGP_GetNewLayerStream 2", {.picture = Picture::WithoutScale}},
    {"RENDER", HostCall::Stream, "AEGP_GetNewLayerStream 3", {.picture = Picture::WithoutRotation}},
    {"RENDER", HostCall::StreamValue, "AEGP_GetNewStreamValue 0", {.picture = Picture::WithoutAnchor}},
    {"RENDER", HostCall::StreamValue, "AEGP_GetNewStreamValue 1", {.picture = Picture::WithoutPosition}},
    {"RENDER", HostCall::StreamValue, "AEGP_GetNewStreamValue 2", {.picture = Picture::WithoutScale}},

    // --- The mask: what the host does not tell is no mask; what it does not draw ends the frame ---
    {"RENDER", HostCall::Layer, "", kUnmasked, In::Compositing, 1},
    {"RENDER", HostCall::Stream, "AEGP_GetNewMaskStream", kUnmasked},
    {"RENDER", HostCall::StreamValue, "AEGP_GetNewStreamValue 402", kUnmasked},
    {"RENDER", HostCall::StreamValue, "AEGP_GetNewStreamValue 3", {.picture = Picture::WithoutRotation}},
    {"RENDER", HostCall::Mask, "AEGP_GetMaskID of mask 5", kIgnored},
    {"RENDER", HostCall::Mask, "", kUnmasked},
    {"RENDER", HostCall::Path, "", kUnmasked},
    {"RENDER", HostCall::NewWorld, "", kHostsOwn},
    {"RENDER", HostCall::Fill, "", kHostsOwn},
    {"RENDER", HostCall::DrawPath, "", kHostsOwn},
};

bool fits(const Rule& rule, const standalone::Refusal& refusal, A_long application) {
  const bool videoEditor = application == kAppId_PremierePro;
  if (rule.application != In::Both && (rule.application == In::VideoEditor) != videoEditor) return false;
  if (rule.occurrence && *rule.occurrence != refusal.occurrence) return false;
  return rule.kind == refusal.call.kind && refusal.call.selector.find(rule.selector) != std::string::npos &&
         refusal.call.what.find(rule.what) != std::string::npos;
}

}  // namespace

PF_Err codeOf(Answer answer) {
  switch (answer) {
    case Answer::Success:
      return PF_Err_NONE;
    case Answer::StructDamaged:
      return PF_Err_INTERNAL_STRUCT_DAMAGED;
    case Answer::MissingSuite:
      return PF_Err_BAD_CALLBACK_PARAM;
    case Answer::OutOfMemory:
      return PF_Err_OUT_OF_MEMORY;
    case Answer::NoWorldSuite:
      return kSPSuiteNotFoundError;
    case Answer::HostsOwn:
      break;
  }
  return kHostsOwnCode;
}

Expected expectedFor(const standalone::Refusal& refusal, A_long application) {
  for (const Rule& rule : kRules) {
    if (fits(rule, refusal, application)) return rule.expected;
  }
  ADD_FAILURE() << "no rule says what follows when the host refuses " << refusal.text();
  return {};
}

}  // namespace quiltor::refusal_tests
