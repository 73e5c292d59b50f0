#pragma once

#include <string>
#include <vector>

#include "platform/testing/test_process.h"

namespace quiltor {

// The environment variable that tells a process its work, in lines: the name and the words.
constexpr const char* kWorkVariable = "QUILTOR_TEST_WORK";
std::string workText(const ProcessWork& work, const std::vector<std::string>& words);

}  // namespace quiltor
