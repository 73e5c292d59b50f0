#pragma once

#include <QJSValue>
#include <QObject>
#include <QPainter>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <QWidget>
#include <optional>
#include <vector>

#include "standalone/scripting/elements/script_image.h"
#include "standalone/scripting/layout/layout.h"

class QPaintEvent;

namespace quiltor::standalone {

// A window or control of a dialog: a widget, its place in the layout, and the way to the script's object for it. What
// its kind adds is in the derived classes; the rules of the scripting host are in environment/.
class Element : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString kind READ kind CONSTANT)
  Q_PROPERTY(QString text READ text WRITE setText)
  Q_PROPERTY(QString helpTip READ helpTip WRITE setHelpTip)
  Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
  Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
  Q_PROPERTY(bool focused READ isFocused)

 public:
  Element(const QString& kind, QWidget* widget, Element* container);
  ~Element() override;

  [[nodiscard]] const QString& kind() const { return kind_; }
  [[nodiscard]] const QString& name() const { return name_; }
  [[nodiscard]] QWidget* widget() const { return widget_; }
  [[nodiscard]] Element* container() const { return container_; }
  [[nodiscard]] const std::vector<Element*>& children() const { return children_; }
  [[nodiscard]] bool isLaidOut() const { return laidOut_; }
  [[nodiscard]] LayoutBox& box() { return box_; }
  // What the script drew last: "control", "image 50x50".
  [[nodiscard]] const QStringList& drawn() const { return drawn_; }
  // The file of the picture that it shows, on disk; empty without one.
  [[nodiscard]] virtual QString imagePath() const { return drawnImage_; }
  [[nodiscard]] bool isDrawnByScript() const { return painting_; }
  Element& window();

  [[nodiscard]] virtual QString text() const { return text_; }
  virtual void setText(const QString& text) { text_ = text; }
  [[nodiscard]] QString helpTip() const { return widget_->toolTip(); }
  void setHelpTip(const QString& tip) { widget_->setToolTip(tip); }
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);
  [[nodiscard]] bool isVisible() const { return visible_; }
  void setVisible(bool visible);
  [[nodiscard]] bool isFocused() const { return widget_->hasFocus(); }
  // What a person may look at and click: neither it nor a container of it is hidden.
  [[nodiscard]] bool isShown() const;
  [[nodiscard]] bool isUsable() const;
  // Where it lies in its window.
  [[nodiscard]] QRect placeInWindow() const;

  // --- For the script's objects ---
  // A new element in here, or null for a kind that does not exist. `options` are the creation properties.
  Q_INVOKABLE quiltor::standalone::Element* add(const QString& kind, const QVariantMap& options);
  Q_INVOKABLE void removeChild(quiltor::standalone::Element* child);
  // Called with the name of what happened and a detail; returns what the script's handler says.
  Q_INVOKABLE void listen(const QJSValue& receiver) { receiver_ = receiver; }
  Q_INVOKABLE void setName(const QString& name) { name_ = name; }
  Q_INVOKABLE void focus() { widget_->setFocus(Qt::OtherFocusReason); }
  Q_INVOKABLE void redraw() { widget_->update(); }

  // --- Layout, in logical pixels. Alignments are -1 (not given) or an Align. ---
  Q_INVOKABLE void setOrientation(const QString& orientation);
  Q_INVOKABLE void setAlignment(int horizontal, int vertical);
  Q_INVOKABLE void setAlignChildren(int horizontal, int vertical);
  Q_INVOKABLE void setMargins(int left, int top, int right, int bottom) { box_.margins = {left, top, right, bottom}; }
  Q_INVOKABLE void setSpacing(int spacing) { box_.spacing = spacing; }
  Q_INVOKABLE void setPreferredSize(int width, int height) { box_.preferred = {width, height}; }
  Q_INVOKABLE void setMinimumSize(int width, int height) { box_.minimum = {width, height}; }
  Q_INVOKABLE void setMaximumSize(int width, int height) { box_.maximum = {width, height}; }
  // Before the layout the size to be laid out with, after it the size from now on.
  Q_INVOKABLE void setSize(int width, int height);
  Q_INVOKABLE virtual void setLocation(int x, int y);
  // x, y, width, height in the container; empty before the layout.
  [[nodiscard]] Q_INVOKABLE virtual QList<int> bounds() const;
  // Lays this and all below it out; with `anew` its own size too is computed again.
  Q_INVOKABLE void layOut(bool anew);

  // --- Drawing, while the element draws itself; false at any other time ---
  Q_INVOKABLE bool drawControl();
  Q_INVOKABLE bool drawImage(quiltor::standalone::ScriptImage* image, int x, int y, int width, int height);
  Q_INVOKABLE bool drawString(const QString& text, const QList<double>& colour, int x, int y);
  Q_INVOKABLE bool drawRectangles(const QList<double>& colour, double penWidth, const QList<int>& corners);
  Q_INVOKABLE QList<int> measureString(const QString& text) const;

 protected:
  // Tells the script's object; undefined without one.
  QJSValue tell(const QString& event, const QJSValue& detail = {});
  // What the element is by itself: its size and, of a container, its border.
  virtual void describe(LayoutBox& box) const;
  virtual QSize contentSize() const { return widget_->sizeHint(); }
  virtual void applyWindowSize(QSize) {}
  void setDefaults(const LayoutMargins& margins, Orientation orientation);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void collect();
  void apply();
  bool drawByScript(QPaintEvent* event);
  void drawFocus(QPainter& painter) const;
  void tellMouse(const char* name, const QEvent* event);

  QString kind_;
  QString name_;
  QString text_;
  QPointer<QWidget> widget_;
  Element* container_;
  std::vector<Element*> children_;
  QJSValue receiver_;
  LayoutBox box_;
  bool laidOut_ = false;
  bool enabled_ = true;
  bool visible_ = true;

  std::optional<QPainter> painter_;
  QPaintEvent* painting_ = nullptr;
  QStringList drawn_;
  QString drawnImage_;
};

}  // namespace quiltor::standalone
