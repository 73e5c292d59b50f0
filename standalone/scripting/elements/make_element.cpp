#include "standalone/scripting/elements/make_element.h"

#include "standalone/scripting/elements/button_element.h"
#include "standalone/scripting/elements/check_box_element.h"
#include "standalone/scripting/elements/drop_down_element.h"
#include "standalone/scripting/elements/edit_element.h"
#include "standalone/scripting/elements/group_element.h"
#include "standalone/scripting/elements/icon_button_element.h"
#include "standalone/scripting/elements/label_element.h"
#include "standalone/scripting/elements/panel_element.h"

namespace quiltor::standalone {

Element* makeElement(const QString& kind, Element& container, const QVariantMap& options) {
  const auto made = [&]() -> Element* {
    if (kind == "panel") return new PanelElement(container);
    if (kind == "group") return new GroupElement(container);
    if (kind == "statictext") return new LabelElement(container, options);
    if (kind == "button") return new ButtonElement(container);
    if (kind == "checkbox") return new CheckBoxElement(container);
    if (kind == "dropdownlist") return new DropDownElement(container);
    if (kind == "iconbutton") return new IconButtonElement(container, options);
    if (kind == "edittext") return new EditElement(container, options);
    return nullptr;
  }();
  // Once a dialog is open Qt leaves new widgets hidden.
  if (made) made->widget()->show();
  return made;
}

}  // namespace quiltor::standalone
