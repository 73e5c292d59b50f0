#include "tests/reference/picture.h"

namespace quiltor::reference {
namespace {

float limited(float value) {
  if (!(value > 0)) return 0;
  return value < 1 ? value : 1;
}

}  // namespace

float channelFromByte(uint8_t value) { return static_cast<float>(value) * 0.003921569f; }

float channelFromDeep(uint16_t value) { return static_cast<float>(value) / 32768.0f; }

uint8_t byteFromChannel(float value) { return static_cast<uint8_t>(limited(value) * 255.0f + 0.5f); }

uint16_t deepFromChannel(float value) { return static_cast<uint16_t>(limited(value) * 32768.0f + 0.5f); }

}  // namespace quiltor::reference
