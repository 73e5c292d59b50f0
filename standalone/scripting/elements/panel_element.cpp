#include "standalone/scripting/elements/panel_element.h"

namespace quiltor::standalone {
namespace {

constexpr int kTitleIndent = 8;
constexpr int kTitleGap = 4;

// Draws the border, with its upper edge through the middle of the title.
class PanelWidget : public QWidget {
 public:
  using QWidget::QWidget;

  void setTitle(const QString& title) {
    title_ = title;
    update();
  }
  [[nodiscard]] int titleHeight() const { return title_.isEmpty() ? 1 : fontMetrics().height(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, titleHeight() / 2 + 0.5, -0.5, -0.5), 3, 3);
    if (title_.isEmpty()) return;
    const QRect words(kTitleIndent, 0, fontMetrics().horizontalAdvance(title_) + 2 * kTitleGap, titleHeight());
    painter.fillRect(words, palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(words, Qt::AlignCenter, title_);
  }

 private:
  QString title_;
};

}  // namespace

PanelElement::PanelElement(Element& container) : Element("panel", new PanelWidget(container.widget()), &container) {
  setDefaults({10, 10, 10, 10}, Orientation::Column);
}

void PanelElement::setText(const QString& text) {
  Element::setText(text);
  static_cast<PanelWidget*>(widget())->setTitle(text);
}

void PanelElement::describe(LayoutBox& box) const {
  box.frame = {1, static_cast<const PanelWidget*>(widget())->titleHeight(), 1, 1};
}

}  // namespace quiltor::standalone
