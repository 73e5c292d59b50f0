#pragma once

namespace quiltor::bench {

// Lets this process use the first cores only: the effect's workers share what their process may use, so a measurement
// with one thread becomes one of one core.
void useCores(int count);

}  // namespace quiltor::bench
