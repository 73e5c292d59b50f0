#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standalone/host/services/world.h"

namespace quiltor::bench {

// J2 as the users of a graphics library draw it: a repeated bilinear pattern, turned and scaled, in Multiply over an
// opaque layer of 8 bits.
class OtherPainter {
 public:
  virtual ~OtherPainter() = default;
  virtual std::string name() const = 0;
  virtual void draw() = 0;
};

// With one thread.
std::unique_ptr<OtherPainter> cairoPainter(const standalone::World& layer, const standalone::World& pattern);

// With all cores, from maps of places that are made before. Null when the program was built without OpenCV.
std::unique_ptr<OtherPainter> openCvPainter(const standalone::World& layer, const standalone::World& pattern);

// Those that there are.
std::vector<std::unique_ptr<OtherPainter>> otherPainters(const standalone::World& layer,
                                                         const standalone::World& pattern);

}  // namespace quiltor::bench
