#include "standalone/scripting/elements/button_element.h"

#include "standalone/scripting/elements/plain_text.h"

namespace quiltor::standalone {

ButtonElement::ButtonElement(Element& container)
    : Element("button", new QPushButton(container.widget()), &container), button_(static_cast<QPushButton*>(widget())) {
  button_->setAutoDefault(false);
  connect(button_, &QPushButton::clicked, this, [this] { tell("activate"); });
}

void ButtonElement::setText(const QString& text) {
  Element::setText(text);
  button_->setText(withoutMnemonic(text));
}

}  // namespace quiltor::standalone
