#include "standalone/scripting/elements/drop_down_element.h"

#include <QStandardItemModel>

namespace quiltor::standalone {

DropDownElement::DropDownElement(Element& container)
    : Element("dropdownlist", new QComboBox(container.widget()), &container),
      comboBox_(static_cast<QComboBox*>(widget())) {
  // As wide as its items for the layout, and never by itself afterwards.
  comboBox_->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
  connect(comboBox_, &QComboBox::activated, this, [this](int index) { tell("choose", index); });
}

QStringList DropDownElement::items() const {
  QStringList texts;
  for (int i = 0; i < comboBox_->count(); ++i) texts.append(comboBox_->itemText(i));
  return texts;
}

void DropDownElement::insertItem(int index, const QString& text) {
  const int before = comboBox_->currentIndex();
  comboBox_->insertItem(index, text);
  // Qt chooses the first item of an empty list by itself; the host does not.
  if (before < 0) comboBox_->setCurrentIndex(-1);
  auto* const model = qobject_cast<QStandardItemModel*>(comboBox_->model());
  if (text == "-" && model) model->item(index)->setEnabled(false);
}

}  // namespace quiltor::standalone
