#include "standalone/cli/library_lookup.h"

#include <algorithm>
#include <cstddef>

#include "library/files/text_pieces.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"

namespace quiltor::standalone {
namespace {

constexpr std::string_view kBetweenFolders = " | ";

std::string ownName(const Library& library) { return library.name.empty() ? library.label : library.name; }

std::string lastFolder(const Library& library) {
  const std::string name = ownName(library);
  const std::size_t found = name.rfind(kBetweenFolders);
  return found == std::string::npos ? name : name.substr(found + kBetweenFolders.size());
}

std::string pathOf(const Library& library) { return library.path; }

}  // namespace

std::string displayName(const Library& library) {
  std::string text = "[" + library.label + "]";
  if (!library.name.empty()) text.append(" ").append(library.name);
  return printable(text);
}

std::vector<Library> shownLibraries() {
  std::vector<Library> libraries = readLibraries(LookUp::Dialogs);
  std::erase_if(libraries, [](const Library& library) { return library.name.find(".cache") != std::string::npos; });
  for (Library& library : libraries) {
    // Where a line lacks its last field, its end is part of the one before.
    for (std::string* field : {&library.label, &library.name}) *field = trimChars(*field, " \t\r\n");
  }
  return libraries;
}

const Library& findLibrary(std::span<const Library> libraries, std::string_view typed) {
  std::vector<std::string> known;
  for (const auto nameOf : {displayName, ownName, lastFolder, pathOf}) {
    std::vector<const Library*> meant;
    for (const Library& library : libraries) {
      known.push_back(nameOf(library));
      if (sameName(known.back(), typed)) meant.push_back(&library);
    }
    if (meant.empty()) continue;
    const auto samePath = [&](const Library* library) { return library->path == meant.front()->path; };
    if (std::ranges::all_of(meant, samePath)) return *meant.front();
    std::string all;
    for (const Library* library : meant) all.append(all.empty() ? "" : ", ").append(library->path);
    throw UsageError(quoted(typed) + " names several libraries, choose one by its path: " + all);
  }
  const std::string near = suggestion(typed, known);
  throw UsageError(quoted(typed) + ": no such library" + (near.empty() ? "; `quiltor library list` lists them" : near));
}

}  // namespace quiltor::standalone
