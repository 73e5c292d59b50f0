#pragma once

namespace quiltor {

// One step of an 8-bit channel. A 32-bit constant and 32-bit products, so that 255 becomes exactly 1.
inline constexpr float kByteStep = 0.003921569f;
static_assert(255.0f * kByteStep == 1.0f);

// The brightness of a colour as the tint and the luma modes see it. Deliberate: not the weights of broadcasting.
inline constexpr float kLumaRed = 0.375f;
inline constexpr float kLumaGreen = 0.5f;
inline constexpr float kLumaBlue = 0.125f;

}  // namespace quiltor
