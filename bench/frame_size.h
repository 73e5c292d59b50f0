#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

namespace quiltor::bench {

struct FrameSize {
  int width = 0, height = 0;

  double pixels() const { return double{1} * width * height; }
  std::string text() const { return std::to_string(width) + "x" + std::to_string(height); }
};

inline FrameSize frameSize(const std::string& text) {
  FrameSize size;
  if (std::sscanf(text.c_str(), "%dx%d", &size.width, &size.height) != 2 || size.width < 1 || size.height < 1) {
    throw std::runtime_error("the size is \"" + text + "\", expected something like 1920x1080");
  }
  return size;
}

}  // namespace quiltor::bench
