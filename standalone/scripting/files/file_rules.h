#pragma once

#include <QString>
#include <QStringList>

namespace quiltor::standalone {

// What differs between hosts, or is not known of them, about files: for tests, which turn it.
struct FileRules {
  enum class Order { Name, Reversed, Shuffled };
  // Denied: the host's own preference; every change throws. DeniedLate: opening still empties the file, writing throws.
  enum class Writing { Allowed, Denied, DeniedLate };

  Order order = Order::Name;  // of the entries of a folder
  Writing writing = Writing::Allowed;
  QStringList unwritable;  // folders on disk in and below which the system refuses changes
};

}  // namespace quiltor::standalone
