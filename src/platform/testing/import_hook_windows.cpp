#include "platform/testing/import_hook_windows.h"

#include <windows.h>
// After the header that it needs.
#include <psapi.h>

#include <algorithm>
#include <array>

namespace quiltor {
namespace {

template <class Record>
const Record* at(const void* module, size_t offset) {
  return reinterpret_cast<const Record*>(static_cast<const char*>(module) + offset);
}

// Where a module keeps the addresses of what it calls by that name.
void findPlaces(void* module, const std::string& function, std::vector<void**>& places) {
  const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* const headers = at<IMAGE_NT_HEADERS64>(module, static_cast<size_t>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (imports.Size == 0) return;
  const auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    if (library->OriginalFirstThunk == 0) continue;
    const auto* names = at<IMAGE_THUNK_DATA64>(module, library->OriginalFirstThunk);
    auto* const addresses = const_cast<IMAGE_THUNK_DATA64*>(at<IMAGE_THUNK_DATA64>(module, library->FirstThunk));
    for (size_t i = 0; names[i].u1.AddressOfData != 0; ++i) {
      if (IMAGE_SNAP_BY_ORDINAL64(names[i].u1.Ordinal)) continue;
      if (function == at<IMAGE_IMPORT_BY_NAME>(module, names[i].u1.AddressOfData)->Name) {
        places.push_back(reinterpret_cast<void**>(&addresses[i].u1.Function));
      }
    }
  }
}

std::vector<void*> loadedModules() {
  std::array<HMODULE, 256> modules{};
  DWORD bytes = 0;
  if (!EnumProcessModules(GetCurrentProcess(), modules.data(), sizeof modules, &bytes)) return {};
  return std::vector<void*>(modules.begin(), modules.begin() + std::min(modules.size(), bytes / sizeof(HMODULE)));
}

void write(void** place, void* value) {
  DWORD protection = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
  *place = value;
  VirtualProtect(place, sizeof *place, protection, &protection);
}

}  // namespace

ImportHook::ImportHook(const std::string& function, void* replacement, void* onlyModule) {
  std::vector<void**> places;
  for (void* const module : onlyModule ? std::vector<void*>{onlyModule} : loadedModules()) {
    findPlaces(module, function, places);
  }
  for (void** const place : places) {
    places_.emplace_back(place, *place);
    write(place, replacement);
  }
}

ImportHook::~ImportHook() {
  for (const auto& [place, value] : places_) write(place, value);
}

// Other libraries of the system hand their calls on to this one.
void* systemFunction(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), name));
}

}  // namespace quiltor
