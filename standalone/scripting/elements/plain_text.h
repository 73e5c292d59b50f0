#pragma once

#include <QString>

namespace quiltor::standalone {

// For widgets that take "&x" for a keyboard shortcut: the host has none, a "&" is a "&".
inline QString withoutMnemonic(QString text) { return text.replace("&", "&&"); }

}  // namespace quiltor::standalone
