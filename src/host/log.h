#pragma once

#include <string>

namespace quiltor {

// The log is "Quiltor/log.txt" in the user's data folder: a line a message, no time, no level. A log that cannot be
// written is silent. Each call opens and closes the file, so any thread may call.

// Empties the log; called once for each time that the host loads the effect.
void clearLog() noexcept;

// Appends one line. The message is consumed.
void writeLog(std::string&& message) noexcept;

}  // namespace quiltor
