#pragma once

#include <cstdint>
#include <functional>

namespace quiltor {

// Closes the files that the work leaves open, of which a process has a limited number: where the system numbers them,
// those numbers; elsewhere all files of the C library, so that none may be open on purpose. Returns what the work does.
int32_t closingLeftFiles(const std::function<int32_t()>& work);

}  // namespace quiltor
