#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "hostapi/suites_aegp.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// The streams that effects opened and the values that they hold of them. Thread-safe.
class StreamTable {
 public:
  explicit StreamTable(Findings& findings) : findings_(findings) {}

  AEGP_StreamRefH open(AEGP_LayerStream code);
  // The stream's code, counting one value more; false, and recorded, for what is no stream.
  bool takeValue(AEGP_StreamRefH stream, AEGP_LayerStream& code);
  bool disposeValue(AEGP_StreamRefH stream);
  bool dispose(AEGP_StreamRefH stream);

  // Records what the call left, and closes it.
  void checkCall(const CallScope& call);

 private:
  struct Stream {
    AEGP_LayerStream code;
    int values;
    const CallScope* madeIn;
  };

  Stream* find(AEGP_StreamRefH stream);
  void checkValues(const Stream& stream);

  std::mutex mutex_;
  Findings& findings_;
  std::map<AEGP_StreamRefH, std::unique_ptr<Stream>> streams_;
};

}  // namespace quiltor::standalone
