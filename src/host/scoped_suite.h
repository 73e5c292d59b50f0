#pragma once

#include <cstdint>

#include "host/user_message.h"
#include "hostapi/effect.h"

namespace quiltor {

// What the user reads when a suite cannot be had or given back.
struct SuiteMessages {
  const char* acquire = "Not able to acquire AEFX Suite.";
  const char* release = "Not able to release AEFX Suite.";
};

// One suite for a few calls: acquired by the constructor, released by the destructor, null when the host does not offer
// it. With an output record a failure is shown to the user through the host's message; without one it is silent, for
// suites whose absence is normal.
template <class Table>
class ScopedSuite {
 public:
  ScopedSuite(const SPBasicSuite* basic, const char* name, int32_t version, PF_OutData* messages = nullptr,
              SuiteMessages texts = {})
      : basic_(basic), name_(name), version_(version), messages_(messages), texts_(texts) {
    const void* table = nullptr;
    error_ = basic ? basic->AcquireSuite(name, version, &table) : kSPBadParameterError;
    acquired_ = error_ == kSPNoError && table;
    if (acquired_) table_ = static_cast<const Table*>(table);
    if (!acquired_) show(texts_.acquire);
  }

  ~ScopedSuite() {
    if (acquired_ && basic_->ReleaseSuite(name_, version_) != kSPNoError) show(texts_.release);
  }

  ScopedSuite(const ScopedSuite&) = delete;
  ScopedSuite& operator=(const ScopedSuite&) = delete;

  explicit operator bool() const { return acquired_; }
  const Table* operator->() const { return table_; }
  // The basic suite's own answer to the acquisition.
  SPErr error() const { return error_; }

 private:
  void show(const char* message) {
    if (messages_) tellUser(*messages_, message);
  }

  const SPBasicSuite* basic_;
  const char* name_;
  int32_t version_;
  PF_OutData* messages_;
  SuiteMessages texts_;
  const Table* table_ = nullptr;
  SPErr error_ = kSPNoError;
  bool acquired_ = false;
};

}  // namespace quiltor
