#include "standalone/host/services/stream_table.h"

#include <utility>

namespace quiltor::standalone {

std::string StreamTable::Stream::name() const {
  if (source.parameter) return "the stream of \"" + source.parameter->name + "\"";
  const std::string code = "stream " + std::to_string(source.code);
  return source.maskId ? code + " of mask " + std::to_string(*source.maskId) : "layer " + code;
}

AEGP_StreamRefH StreamTable::open(const StreamSource& source) {
  auto stream = std::make_unique<Stream>(Stream{source, 0, currentCall()});
  const auto handle = reinterpret_cast<AEGP_StreamRefH>(stream.get());
  std::lock_guard lock(mutex_);
  streams_.emplace(handle, std::move(stream));
  return handle;
}

StreamTable::Stream* StreamTable::find(AEGP_StreamRefH stream) {
  const auto found = streams_.find(stream);
  if (found != streams_.end()) return found->second.get();
  findings_.record(FindingKind::ObjectUnknown, "what was passed as a stream is none, or was disposed before");
  return nullptr;
}

std::optional<StreamSource> StreamTable::sourceOf(AEGP_StreamRefH stream) {
  std::lock_guard lock(mutex_);
  const Stream* found = find(stream);
  return found ? std::optional(found->source) : std::nullopt;
}

std::optional<StreamSource> StreamTable::takeValue(AEGP_StreamRefH stream) {
  std::lock_guard lock(mutex_);
  Stream* found = find(stream);
  if (!found) return std::nullopt;
  ++found->values;
  return found->source;
}

bool StreamTable::disposeValue(AEGP_StreamRefH stream) {
  std::lock_guard lock(mutex_);
  Stream* found = find(stream);
  if (!found) return false;
  if (found->values < 1) {
    findings_.record(FindingKind::ObjectUnknown, "a stream's value was disposed that is not alive");
    return false;
  }
  --found->values;
  return true;
}

void StreamTable::checkValues(const Stream& stream) {
  if (stream.values < 1) return;
  findings_.record(FindingKind::StreamValueNotDisposed,
                   stream.name() + " was left with " + std::to_string(stream.values) + " values not disposed");
}

bool StreamTable::dispose(AEGP_StreamRefH stream) {
  std::lock_guard lock(mutex_);
  const Stream* found = find(stream);
  if (!found) return false;
  checkValues(*found);
  streams_.erase(stream);
  return true;
}

void StreamTable::checkMask(AEGP_MaskRefH mask) {
  std::lock_guard lock(mutex_);
  for (const auto& [handle, stream] : streams_) {
    if (stream->source.mask != mask) continue;
    findings_.record(FindingKind::MaskDisposedBeforeStream,
                     "the mask was disposed while " + stream->name() + " was open");
    // Another mask may get the address.
    stream->source.mask = nullptr;
  }
}

void StreamTable::checkEffect(AEGP_EffectRefH effect) {
  std::lock_guard lock(mutex_);
  for (const auto& [handle, stream] : streams_) {
    if (stream->source.effect != effect) continue;
    findings_.record(FindingKind::EffectDisposedBeforeStream,
                     "the reference to the effect was disposed while " + stream->name() + " was open");
    stream->source.effect = nullptr;
  }
}

void StreamTable::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (auto entry = streams_.begin(); entry != streams_.end();) {
    const Stream& stream = *entry->second;
    if (stream.madeIn != &call) {
      ++entry;
      continue;
    }
    findings_.record(FindingKind::StreamNotDisposed, stream.name() + " was left open");
    checkValues(stream);
    entry = streams_.erase(entry);
  }
}

}  // namespace quiltor::standalone
