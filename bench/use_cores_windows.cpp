#include <windows.h>

#include <limits>
#include <string>
#include <system_error>

#include "bench/use_cores.h"

namespace quiltor::bench {

void useCores(int count) {
  constexpr int kMostCores = std::numeric_limits<DWORD_PTR>::digits;
  const HANDLE process = GetCurrentProcess();
  DWORD_PTR own = 0, machines = 0;
  GetProcessAffinityMask(process, &own, &machines);
  const DWORD_PTR first = count < kMostCores ? (DWORD_PTR{1} << count) - 1 : ~DWORD_PTR{0};
  if (!SetProcessAffinityMask(process, first & machines)) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "cannot use " + std::to_string(count) + " cores");
  }
}

}  // namespace quiltor::bench
