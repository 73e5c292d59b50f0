#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "hostapi/suites_aegp.h"
#include "standalone/host/services/call_scope.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/panel.h"

namespace quiltor::standalone {

// What a stream is of: the layer, one of its masks, or a parameter.
struct StreamSource {
  A_long code = 0;
  std::optional<AEGP_MaskIDVal> maskId = std::nullopt;
  AEGP_MaskRefH mask = nullptr;  // the reference that it was opened through, while that lives
  PanelEntry* parameter = nullptr;
  AEGP_EffectRefH effect = nullptr;  // likewise
};

// The streams that effects opened and the values that they hold of them. Thread-safe.
class StreamTable {
 public:
  explicit StreamTable(Findings& findings) : findings_(findings) {}

  AEGP_StreamRefH open(const StreamSource& source);
  // The stream's source; nothing, and recorded, for what is no stream.
  std::optional<StreamSource> sourceOf(AEGP_StreamRefH stream);
  // The same, counting one value more.
  std::optional<StreamSource> takeValue(AEGP_StreamRefH stream);
  bool disposeValue(AEGP_StreamRefH stream);
  bool dispose(AEGP_StreamRefH stream);

  // Record the streams of what is about to be disposed.
  void checkMask(AEGP_MaskRefH mask);
  void checkEffect(AEGP_EffectRefH effect);
  // Records what the call left, and closes it.
  void checkCall(const CallScope& call);

 private:
  struct Stream {
    StreamSource source;
    int values;
    const CallScope* madeIn;

    [[nodiscard]] std::string name() const;
  };

  Stream* find(AEGP_StreamRefH stream);
  void checkValues(const Stream& stream);

  std::mutex mutex_;
  Findings& findings_;
  std::map<AEGP_StreamRefH, std::unique_ptr<Stream>> streams_;
};

}  // namespace quiltor::standalone
