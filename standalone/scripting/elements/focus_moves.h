#pragma once

namespace quiltor::standalone {

class Element;

// Moves the keyboard's attention from an icon button to the nearest one in the direction of an arrow key. False when
// the key is none of them; where nothing lies the attention stays.
bool moveFocusByArrow(Element& from, int key);

}  // namespace quiltor::standalone
