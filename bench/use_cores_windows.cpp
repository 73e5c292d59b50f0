#include <windows.h>

#include "bench/use_cores.h"

namespace quiltor::bench {

void useCores(int count) { SetProcessAffinityMask(GetCurrentProcess(), (DWORD_PTR{1} << count) - 1); }

}  // namespace quiltor::bench
