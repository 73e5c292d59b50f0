#pragma once

namespace quiltor::bench {

// Lets this process use the first cores only: the effect's workers share what their process may use, so a measurement
// with one thread becomes one of one core. A count above the machine's cores means all. Throws std::system_error when
// the system refuses.
void useCores(int count);

}  // namespace quiltor::bench
