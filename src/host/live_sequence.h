#pragma once

#include <cstddef>

#include "host/handle_guards.h"
#include "host/host_error.h"
#include "host/sequence_form.h"

namespace quiltor {

// An instance's live data, locked as long as this lives. Null when the host has no data or has them in the flat form.
// Throws 512 when they cannot be locked or are not ours.
class LiveSequence {
 public:
  LiveSequence(const PF_HandleSuite1& handles, PF_Handle handle) : lock_(handles, handle) {
    if (!handle) return;
    const auto size = static_cast<size_t>(handles.host_get_handle_size(handle));
    const SequenceForm form = lock_ ? sequenceFormOf({lock_.as<const uint8_t>(), size}) : SequenceForm::Damaged;
    if (form == SequenceForm::Damaged) throwHostError(PF_Err_INTERNAL_STRUCT_DAMAGED);
    if (form == SequenceForm::Live) data_ = lock_.as<SequenceData>();
  }

  explicit operator bool() const { return data_ != nullptr; }
  SequenceData* get() const { return data_; }
  SequenceData& operator*() const { return *data_; }
  SequenceData* operator->() const { return data_; }

 private:
  HandleLock lock_;
  SequenceData* data_ = nullptr;
};

}  // namespace quiltor
