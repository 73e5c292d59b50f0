#pragma once

#include <QString>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {

// A window and all in it, one line each, indented by depth: kind, name, text, place in the window and size, and what is
// not as usual, such as `hidden`.
//
//   dialog "Select Texture" 0,0 482x414
//     panel 5,5 472x404
//       dropdownlist 16,16 450x24 items=2 selected="[Textures] "
//       iconbutton 20,50 50x50 image="/t/wood.png" drawn="control, image 50x50"
[[nodiscard]] QString controlTree(const Element& window);

// The same of one element, without those in it.
[[nodiscard]] QString describeControl(const Element& element);

}  // namespace quiltor::standalone
