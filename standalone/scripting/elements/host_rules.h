#pragma once

#include <QObject>

namespace quiltor::standalone {

// What is not known of the hosts, beside FileRules: for tests, which turn it.
class HostRules : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool changeEventsBeforeShow MEMBER changeEventsBeforeShow)
  Q_PROPERTY(bool closeInOnShowIgnored MEMBER closeInOnShowIgnored)
  Q_PROPERTY(bool writingAllowed MEMBER writingAllowed)

 public:
  bool changeEventsBeforeShow = true;  // a list tells of a change that a script makes before its window is shown
  bool closeInOnShowIgnored = false;   // a dialog that its onShow closes is shown all the same
  bool writingAllowed = true;          // what the host's preferences tell scripts
};

}  // namespace quiltor::standalone
