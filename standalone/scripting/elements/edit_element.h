#pragma once

#include <QLineEdit>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A line to type in. Options: "readonly", "noecho".
class EditElement : public Element {
  Q_OBJECT

 public:
  EditElement(Element& container, const QVariantMap& options);

  [[nodiscard]] QString text() const override { return edit_->text(); }
  void setText(const QString& text) override { edit_->setText(text); }

 private:
  QLineEdit* edit_;
};

}  // namespace quiltor::standalone
