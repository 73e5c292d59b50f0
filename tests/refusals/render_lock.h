#pragma once

namespace quiltor::refusal_tests {

// Whether the mutex that all renders of all processes share can be had; other processes may hold it for a while. False
// after a long wait, and then it is never asked again.
[[nodiscard]] bool renderLockIsFree();

}  // namespace quiltor::refusal_tests
