#include "standalone/scripting/elements/label_element.h"

namespace quiltor::standalone {
namespace {

class Label : public QLabel {
 public:
  Label(QWidget* parent, Qt::TextElideMode truncation) : QLabel(parent), truncation_(truncation) {
    setTextFormat(Qt::PlainText);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    const QString shown = fontMetrics().elidedText(text(), truncation_, width());
    if (truncation_ == Qt::ElideNone || shown == text()) return QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(alignment()), shown);
  }

 private:
  Qt::TextElideMode truncation_;
};

Qt::TextElideMode truncationOf(const QVariantMap& options) {
  const QString place = options.value("truncate").toString();
  if (place == "middle") return Qt::ElideMiddle;
  return place == "end" ? Qt::ElideRight : Qt::ElideNone;
}

}  // namespace

LabelElement::LabelElement(Element& container, const QVariantMap& options)
    : Element("statictext", new Label(container.widget(), truncationOf(options)), &container),
      label_(static_cast<QLabel*>(widget())) {
  label_->setWordWrap(options.value("multiline").toBool());
}

void LabelElement::setText(const QString& text) {
  Element::setText(text);
  label_->setText(text);
}

void LabelElement::setJustify(const QString& side) {
  Qt::Alignment horizontal = Qt::AlignLeft;
  if (side == "center") horizontal = Qt::AlignHCenter;
  if (side == "right") horizontal = Qt::AlignRight;
  label_->setAlignment(horizontal | Qt::AlignVCenter);
}

}  // namespace quiltor::standalone
