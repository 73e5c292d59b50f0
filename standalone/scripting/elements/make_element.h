#pragma once

#include <QString>
#include <QVariantMap>

namespace quiltor::standalone {

class Element;

// A new element of a kind by the host's name for it ("iconbutton"), in a container; null for a kind that does not
// exist.
[[nodiscard]] Element* makeElement(const QString& kind, Element& container, const QVariantMap& options);

}  // namespace quiltor::standalone
