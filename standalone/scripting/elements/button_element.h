#pragma once

#include <QPushButton>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A button with words.
class ButtonElement : public Element {
  Q_OBJECT

 public:
  explicit ButtonElement(Element& container);

  void setText(const QString& text) override;
  // Shows that Enter means this button.
  Q_INVOKABLE void setDefault(bool isDefault) { button_->setDefault(isDefault); }

 private:
  QPushButton* button_;
};

}  // namespace quiltor::standalone
