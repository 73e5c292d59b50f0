#pragma once

#include <cstdint>

#include "tests/render/render_case.h"

namespace quiltor::render_tests {

// The frame of a number: always the same one.
[[nodiscard]] RenderCase randomCase(uint32_t number);

}  // namespace quiltor::render_tests
