#include "standalone/scripting/elements/edit_element.h"

namespace quiltor::standalone {

EditElement::EditElement(Element& container, const QVariantMap& options)
    : Element("edittext", new QLineEdit(container.widget()), &container), edit_(static_cast<QLineEdit*>(widget())) {
  edit_->setReadOnly(options.value("readonly").toBool());
  if (options.value("noecho").toBool()) edit_->setEchoMode(QLineEdit::Password);
  connect(edit_, &QLineEdit::textEdited, this, [this] { tell("edit"); });
  connect(edit_, &QLineEdit::editingFinished, this, [this] { tell("commit"); });
}

}  // namespace quiltor::standalone
