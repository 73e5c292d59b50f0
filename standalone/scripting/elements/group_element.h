#pragma once

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A container without a look.
class GroupElement : public Element {
  Q_OBJECT

 public:
  explicit GroupElement(Element& container) : Element("group", new QWidget(container.widget()), &container) {
    setDefaults({0, 0, 0, 0}, Orientation::Row);
  }
};

}  // namespace quiltor::standalone
