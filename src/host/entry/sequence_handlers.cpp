#include "host/entry/sequence_handlers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "base/scope_guard.h"
#include "description/effect_description.h"
#include "host/entry/flat_sequence_data.h"
#include "host/handle_guards.h"
#include "host/pattern_selection.h"
#include "host/sequence_form.h"
#include "host/suite_handler.h"
#include "host/text_slots.h"
#include "library/pattern_reference.h"

namespace quiltor {
namespace {

// The bytes behind a locked handle.
std::span<uint8_t> bytesOf(const PF_HandleSuite1& handles, const HandleLock& lock, PF_Handle handle) {
  return {lock.as<uint8_t>(), static_cast<size_t>(handles.host_get_handle_size(handle))};
}

// Without the render mutex: a host does not end an instance that it still renders, and its main thread must not wait
// for the renders of others.
void destroyParts(SequenceData& live) noexcept {
  delete std::exchange(live.patternImage, nullptr);
  delete std::exchange(live.previewImage, nullptr);
  for (char*& text : live.text) delete[] std::exchange(text, nullptr);
}

// Fills the record's memory, whatever it holds. Leaves nothing to destroy when it throws.
void buildParts(SequenceData& live, const SequenceState& state, std::string reference, const PF_InData& in) {
  std::memset(&live, 0, sizeof live);
  bool built = false;
  const ScopeGuard undo([&] {
    if (!built) destroyParts(live);
  });
  std::copy(state.visibility.begin(), state.visibility.end(), live.visibility);
  for (size_t slot = 0; slot < kTextSlots; ++slot) live.text[slot] = newText(state.text[slot]);
  live.patternImage = new PatternImage;
  live.previewImage = new std::vector<uint8_t>;
  live.previewImage->reserve(kPreviewBytes);
  loadPatternReference(live, reference, in, Redraw::No);
  live.patternLoaded = 1;
  built = true;
}

HostErr storeInstance(const PF_HandleSuite1& handles, const PF_InData& in, PF_OutData& out, const SequenceState& state,
                      std::string reference) {
  OwnedHandle handle(handles, sizeof(SequenceData));
  if (!handle) return PF_Err_INTERNAL_STRUCT_DAMAGED;
  const HandleLock lock(handles, handle.get());
  if (!lock) return PF_Err_INTERNAL_STRUCT_DAMAGED;
  buildParts(*lock.as<SequenceData>(), state, std::move(reference), in);
  out.sequence_data = handle.release();
  return PF_Err_NONE;
}

// What the description says of a new instance.
SequenceState freshState() {
  const Description& description = effectDescription();
  SequenceState state;
  for (size_t index = 0; index < state.visibility.size(); ++index) {
    const ParamRecord& param = description.params[index];
    state.visibility[index] = param.visibility;
    const int64_t slot = std::abs(int64_t{param.special});
    if (param.kind != ParamKind::Text || slot >= kTextSlots) continue;
    state.text[static_cast<size_t>(slot)] = param.popupItems.empty() ? param.popupText : param.popupItems.front();
  }
  return state;
}

}  // namespace

HostErr sequenceSetup(PF_InData& in, PF_OutData& out) {
  SuiteHandler suites(in.pica_basicP);
  return storeInstance(suites.handles(), in, out, freshState(), {});
}

HostErr sequenceResetup(PF_InData& in, PF_OutData& out) {
  if (!in.sequence_data) return sequenceSetup(in, out);
  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  {
    const HandleLock lock(handles, in.sequence_data);
    if (!lock) return PF_Err_INTERNAL_STRUCT_DAMAGED;
    const std::span<const uint8_t> bytes = bytesOf(handles, lock, in.sequence_data);
    switch (sequenceFormOf(bytes)) {
      case SequenceForm::Damaged:
        return PF_Err_INTERNAL_STRUCT_DAMAGED;
      case SequenceForm::Live:
        out.sequence_data = in.sequence_data;
        return PF_Err_NONE;
      case SequenceForm::Flat:
        break;
    }
    const std::optional<SequenceState> state = readFlat(bytes);
    if (!state) return PF_Err_INTERNAL_STRUCT_DAMAGED;
    // Deliberate: the selection stays as it was picked even when the library was found elsewhere, so that the project
    // finds its pattern on both machines and a reopened project is not a changed one.
    const HostErr code = storeInstance(handles, in, out, *state, referenceFromSelection(state->text[kSelectionSlot]));
    if (code != PF_Err_NONE) return code;
  }
  handles.host_dispose_handle(std::exchange(in.sequence_data, nullptr));
  return PF_Err_NONE;
}

HostErr sequenceFlatten(PF_InData& in, PF_OutData& out, LiveData live) {
  // The host disposes what it finds here after asking for a copy: never let it find the live handle, whatever happens.
  if (live == LiveData::Keep && out.sequence_data == in.sequence_data) out.sequence_data = nullptr;
  if (!in.sequence_data) return PF_Err_INTERNAL_STRUCT_DAMAGED;

  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  {
    const HandleLock lock(handles, in.sequence_data);
    if (!lock) return PF_Err_INTERNAL_STRUCT_DAMAGED;
    const SequenceForm form = sequenceFormOf(bytesOf(handles, lock, in.sequence_data));
    if (form == SequenceForm::Flat) return PF_Err_NONE;
    if (form == SequenceForm::Damaged) return PF_Err_INTERNAL_STRUCT_DAMAGED;

    SequenceData& record = *lock.as<SequenceData>();
    const size_t size = flatSize(record);
    OwnedHandle flat(handles, size);
    if (!flat) return PF_Err_INTERNAL_STRUCT_DAMAGED;
    {
      const HandleLock flatLock(handles, flat.get());
      if (!flatLock) return PF_Err_INTERNAL_STRUCT_DAMAGED;
      writeFlat(record, {flatLock.as<uint8_t>(), size});
    }
    out.sequence_data = flat.release();
    if (live == LiveData::Keep) return PF_Err_NONE;
    destroyParts(record);
  }
  handles.host_dispose_handle(std::exchange(in.sequence_data, nullptr));
  return PF_Err_NONE;
}

HostErr sequenceSetdown(PF_InData& in, PF_OutData& out) {
  if (!in.sequence_data) return PF_Err_NONE;
  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  {
    const HandleLock lock(handles, in.sequence_data);
    if (!lock) return PF_Err_INTERNAL_STRUCT_DAMAGED;
    if (sequenceFormOf(bytesOf(handles, lock, in.sequence_data)) == SequenceForm::Live) {
      destroyParts(*lock.as<SequenceData>());
    }
  }
  handles.host_dispose_handle(std::exchange(in.sequence_data, nullptr));
  out.sequence_data = nullptr;
  return PF_Err_NONE;
}

}  // namespace quiltor
