#pragma once

#include <QLabel>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A text. Options: "truncate" ("middle" or "end") puts an ellipsis for what has no room, "multiline" breaks lines.
class LabelElement : public Element {
  Q_OBJECT

 public:
  LabelElement(Element& container, const QVariantMap& options);

  void setText(const QString& text) override;
  Q_INVOKABLE void setJustify(const QString& side);

 private:
  QLabel* label_;
};

}  // namespace quiltor::standalone
