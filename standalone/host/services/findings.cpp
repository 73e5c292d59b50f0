#include "standalone/host/services/findings.h"

#include <algorithm>
#include <array>

#include "standalone/host/services/call_scope.h"

namespace quiltor::standalone {

std::string_view nameOf(FindingKind kind) {
  static constexpr std::array kNames = {
#define QUILTOR_NAME(name) std::string_view(#name),
      QUILTOR_FINDING_KINDS(QUILTOR_NAME)
#undef QUILTOR_NAME
  };
  return kNames.at(static_cast<std::size_t>(kind));
}

std::string describe(const Finding& finding) {
  return finding.selector + ": " + std::string(nameOf(finding.kind)) + ": " + finding.text;
}

void Findings::record(FindingKind kind, std::string text) {
  Finding finding{kind, currentSelector(), std::move(text)};
  std::lock_guard lock(mutex_);
  findings_.push_back(std::move(finding));
}

std::vector<Finding> Findings::all() const {
  std::lock_guard lock(mutex_);
  return findings_;
}

bool Findings::empty() const { return all().empty(); }

bool Findings::has(FindingKind kind) const {
  std::lock_guard lock(mutex_);
  return std::any_of(findings_.begin(), findings_.end(), [&](const Finding& finding) { return finding.kind == kind; });
}

std::string Findings::text() const {
  std::string lines;
  for (const Finding& finding : all()) lines += describe(finding) + "\n";
  return lines;
}

void Findings::clear() {
  std::lock_guard lock(mutex_);
  findings_.clear();
}

}  // namespace quiltor::standalone
