#include "standalone/cli/about_command.h"

#include <algorithm>
#include <string>

namespace quiltor::standalone {

void runAbout(const SessionOptions& session, std::ostream& out, std::ostream& err) {
  std::string text;
  withEffect(session, {}, err, [&text](Effect& effect) {
    const CallResult result = effect.about();
    requireSuccess(result, "about");
    text = result.message();
  });
  if (text.empty()) text = "The effect says nothing about itself in this host.";
  std::ranges::replace(text, '\r', '\n');
  out << text << '\n';
}

}  // namespace quiltor::standalone
