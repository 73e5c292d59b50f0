#include "tests/support/flat_sequence.h"

#include <cstring>
#include <stdexcept>

namespace quiltor::testing_support {
namespace {

constexpr size_t kHeaderBytes = 1312;
constexpr size_t kFlagByte = 1024;

void appendWord(std::vector<uint8_t>& bytes, uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<uint8_t>(word >> shift));
}

}  // namespace

std::vector<uint8_t> flatSequence(const std::map<size_t, std::string>& texts,
                                  const std::array<int32_t, 256>& visibility) {
  std::vector<uint8_t> bytes;
  for (const int32_t state : visibility) appendWord(bytes, static_cast<uint32_t>(state));
  bytes.resize(kHeaderBytes);
  bytes[kFlagByte] = 1;
  for (size_t slot = 0; slot < 32; ++slot) {
    const std::string text = texts.contains(slot) ? texts.at(slot) : "";
    appendWord(bytes, static_cast<uint32_t>(text.size()));
    bytes.insert(bytes.end(), text.begin(), text.end());
  }
  return bytes;
}

std::vector<std::string> textsOf(const std::vector<uint8_t>& flat) {
  std::vector<std::string> texts;
  size_t at = kHeaderBytes;
  while (texts.size() < 32) {
    uint32_t length = 0;
    for (size_t byte = 0; byte < 4; ++byte) length |= static_cast<uint32_t>(flat.at(at + byte)) << (8 * byte);
    at += 4;
    if (flat.size() - at < length) throw std::out_of_range("a text runs past the end of the flat data");
    const auto text = flat.begin() + static_cast<std::ptrdiff_t>(at);
    texts.emplace_back(text, text + static_cast<std::ptrdiff_t>(length));
    at += length;
  }
  return texts;
}

std::string selectionOf(const std::string& picturePath) { return picturePath + "*****FOLDER*****Samples"; }

SequenceData liveRecordOf(const standalone::Instance& instance) {
  const std::vector<unsigned char> bytes = instance.sequenceBytes();
  SequenceData record;
  if (bytes.size() != sizeof record) {
    throw std::length_error("live data has " + std::to_string(bytes.size()) + " bytes instead of 1312");
  }
  std::memcpy(&record, bytes.data(), sizeof record);
  return record;
}

}  // namespace quiltor::testing_support
