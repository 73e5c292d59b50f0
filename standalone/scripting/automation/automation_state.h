#pragma once

#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/scripting/automation/automation_script.h"

namespace quiltor::standalone {

class HostFiles;
class HostRules;

// What the steps of an automation and the questions of the host share.
struct AutomationState {
  std::ostream& out;
  HostFiles* files = nullptr;
  HostRules* rules = nullptr;
  std::deque<std::vector<StepWord>> answers = {};  // to the next choosers of files and folders
  std::deque<std::vector<StepWord>> replies = {};  // to the next confirm and prompt boxes
  std::deque<std::string> alerts = {};             // that no step has expected yet
  std::string result = {};                         // of the last script that ended
};

}  // namespace quiltor::standalone
