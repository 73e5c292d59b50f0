#pragma once

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A container with a border and, where it has a text, a title in its upper edge.
class PanelElement : public Element {
  Q_OBJECT

 public:
  explicit PanelElement(Element& container);

  void setText(const QString& text) override;

 protected:
  void describe(LayoutBox& box) const override;
};

}  // namespace quiltor::standalone
