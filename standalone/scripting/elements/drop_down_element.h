#pragma once

#include <QComboBox>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A list of which one item is shown. What is chosen belongs to the script's object; this shows it and tells of a
// person's choice.
class DropDownElement : public Element {
  Q_OBJECT

 public:
  explicit DropDownElement(Element& container);

  [[nodiscard]] QStringList items() const;
  [[nodiscard]] int current() const { return comboBox_->currentIndex(); }
  [[nodiscard]] QComboBox& comboBox() { return *comboBox_; }

  Q_INVOKABLE void insertItem(int index, const QString& text);
  Q_INVOKABLE void removeItem(int index) { comboBox_->removeItem(index); }
  Q_INVOKABLE void setItemText(int index, const QString& text) { comboBox_->setItemText(index, text); }
  Q_INVOKABLE void showItem(int index) { comboBox_->setCurrentIndex(index); }

 private:
  QComboBox* comboBox_;
};

}  // namespace quiltor::standalone
