#pragma once

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A button with a picture, which is drawn in its own size, in the middle. Options: "style" ("button" or "toolbutton"),
// "toggle".
class IconButtonElement : public Element {
  Q_OBJECT
  Q_PROPERTY(bool value READ value WRITE setValue)  // of one that toggles
  Q_PROPERTY(bool pressed READ isPressed)
  Q_PROPERTY(bool hovered READ isHovered)

 public:
  IconButtonElement(Element& container, const QVariantMap& options);

  [[nodiscard]] bool value() const;
  void setValue(bool value);
  [[nodiscard]] bool isPressed() const;
  [[nodiscard]] bool isHovered() const { return widget()->underMouse(); }
  [[nodiscard]] QString imagePath() const override;
  [[nodiscard]] ScriptImage* image() const { return image_; }

  Q_INVOKABLE void setImage(quiltor::standalone::ScriptImage* image);

 protected:
  QSize contentSize() const override;

 private:
  QPointer<ScriptImage> image_;
};

}  // namespace quiltor::standalone
