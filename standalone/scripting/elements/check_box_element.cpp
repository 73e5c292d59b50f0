#include "standalone/scripting/elements/check_box_element.h"

#include "standalone/scripting/elements/plain_text.h"

namespace quiltor::standalone {

CheckBoxElement::CheckBoxElement(Element& container)
    : Element("checkbox", new QCheckBox(container.widget()), &container), checkBox_(static_cast<QCheckBox*>(widget())) {
  connect(checkBox_, &QCheckBox::clicked, this, [this] { tell("activate"); });
}

void CheckBoxElement::setText(const QString& text) {
  Element::setText(text);
  checkBox_->setText(withoutMnemonic(text));
}

}  // namespace quiltor::standalone
