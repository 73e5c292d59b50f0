#pragma once

#include <QCheckBox>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A box with a tick and words. Only a person's click is told, not a value that a script sets.
class CheckBoxElement : public Element {
  Q_OBJECT
  Q_PROPERTY(bool value READ value WRITE setValue)

 public:
  explicit CheckBoxElement(Element& container);

  void setText(const QString& text) override;
  [[nodiscard]] bool value() const { return checkBox_->isChecked(); }
  void setValue(bool value) { checkBox_->setChecked(value); }

 private:
  QCheckBox* checkBox_;
};

}  // namespace quiltor::standalone
