#pragma once

#include "platform/named_mutex.h"

namespace quiltor {

// The mutex "MYMU": one render at a time, in this process and in all others, and no exchange of an instance's images in
// the middle of one. Made on first use and kept as long as the module is loaded. While it is held, nothing is called
// that could wait for the host's main thread, which itself waits for this mutex when the user picks a pattern.
NamedMutex& renderMutex();

}  // namespace quiltor
