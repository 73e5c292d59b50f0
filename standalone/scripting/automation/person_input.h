#pragma once

#include <QString>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// What a person does with mouse and keyboard, sent to the widgets as the window system would. Throws AutomationError
// for what no person can do, such as a click on a control that is hidden or disabled.
void clickControl(Element& element);
void chooseItem(Element& element, const QString& item);  // by its text, or "#2" for the second
void typeText(Element& element, const QString& text);    // in the place of what was there
void setChecked(Element& element, bool on);
// "Enter", "Shift+Tab", "a": to the control that has the keyboard's attention.
void pressKey(Element& window, const QString& name);

}  // namespace quiltor::standalone
