#pragma once

namespace quiltor::standalone {

enum class Screen { Real, None };

// Makes the process's QApplication, once, in the dark look of the host; later calls change nothing. Without a screen
// windows are drawn in memory. Ends the process, with one line, when there is no display to show windows on.
void startApplication(Screen screen, double scale);

}  // namespace quiltor::standalone
