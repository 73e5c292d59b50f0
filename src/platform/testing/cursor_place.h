#pragma once

#include <memory>

namespace quiltor {

// Until the end of the scope the mouse is at that point of the first screen.
class CursorPlace {
 public:
  CursorPlace(int x, int y);
  ~CursorPlace();
  CursorPlace(const CursorPlace&) = delete;
  CursorPlace& operator=(const CursorPlace&) = delete;

 private:
  struct Before;
  std::unique_ptr<Before> before_;
};

}  // namespace quiltor
