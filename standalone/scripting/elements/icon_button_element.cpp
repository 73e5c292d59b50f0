#include "standalone/scripting/elements/icon_button_element.h"

#include <QPushButton>
#include <QStyleOptionButton>

namespace quiltor::standalone {
namespace {

constexpr int kEmptySize = 20;
constexpr int kBorder = 4;

// The standard look, with the picture in its own size in the middle; without the picture while a script draws.
class IconButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  IconButtonElement* element = nullptr;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    ScriptImage* const image = element->image();
    if (!image || element->isDrawnByScript()) return;
    QPainter painter(this);
    const QRect place(QPoint((width() - image->width()) / 2, (height() - image->height()) / 2),
                      QSize(image->width(), image->height()));
    painter.setClipRect(rect().adjusted(kBorder, kBorder, -kBorder, -kBorder));
    painter.drawImage(place, image->scaledTo(place.size() * devicePixelRatioF()));
  }
};

QPushButton* buttonOf(const Element& element) { return static_cast<QPushButton*>(element.widget()); }

}  // namespace

IconButtonElement::IconButtonElement(Element& container, const QVariantMap& options)
    : Element("iconbutton", new IconButton(container.widget()), &container) {
  static_cast<IconButton*>(widget())->element = this;
  QPushButton* const button = buttonOf(*this);
  button->setAutoDefault(false);
  button->setCheckable(options.value("toggle").toBool());
  button->setFlat(options.value("style").toString() == "toolbutton");
  // Qt's own field for a picture stays empty: it would scale it.
  connect(button, &QPushButton::clicked, this, [this] { tell("activate"); });
}

bool IconButtonElement::value() const { return buttonOf(*this)->isChecked(); }
void IconButtonElement::setValue(bool value) { buttonOf(*this)->setChecked(value); }
bool IconButtonElement::isPressed() const { return buttonOf(*this)->isDown(); }
QString IconButtonElement::imagePath() const { return image_ ? image_->path() : Element::imagePath(); }

void IconButtonElement::setImage(ScriptImage* image) {
  image_ = image;
  redraw();
}

QSize IconButtonElement::contentSize() const {
  if (!image_) return {kEmptySize, kEmptySize};
  return {image_->width() + 2 * kBorder, image_->height() + 2 * kBorder};
}

}  // namespace quiltor::standalone
