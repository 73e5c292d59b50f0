#include "tests/render/hand_case.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace quiltor::render_tests {

World filled(int width, int height, const Rgba& color, WorldFormat format) {
  World world(format, width, height);
  world.fill(color);
  return world;
}

World rowOf(std::initializer_list<Rgba> pixels) {
  World world(WorldFormat::ArgbFloat, static_cast<int>(pixels.size()), 1);
  int x = 0;
  for (const Rgba& pixel : pixels) world.set(x++, 0, pixel);
  return world;
}

RenderCase overlaid(World input, World pattern) {
  RenderCase frame;
  frame.name = "by hand";
  frame.smart = true;
  frame.offsetX = fixed(pattern.width() / 2);
  frame.offsetY = fixed(pattern.height() / 2);
  frame.input = std::move(input);
  frame.patternLayer = std::move(pattern);
  return frame;
}

RenderCase overlaidFile(World input, PatternSource source, FilePixels file) {
  RenderCase frame = overlaid(std::move(input), filled(1, 1, {}));
  frame.source = source;
  frame.offsetX = fixed(file.width / 2);
  frame.offsetY = fixed(file.height / 2);
  frame.file = std::move(file);
  return frame;
}

void expectPixel(const World& drawn, int x, int y, const Rgba& expected, const std::string& what) {
  const Rgba pixel = drawn.at(x, y);
  const std::string where = what + " at " + std::to_string(x) + "," + std::to_string(y);
  const auto near = [&](double value, double wanted, const char* channel) {
    EXPECT_NEAR(value, wanted, 2e-6 * std::max(1.0, std::fabs(wanted))) << channel << where;
  };
  near(pixel.r, expected.r, "red, ");
  near(pixel.g, expected.g, "green, ");
  near(pixel.b, expected.b, "blue, ");
  near(pixel.a, expected.a, "alpha, ");
}

void expectAll(const World& drawn, const Rgba& expected, const std::string& what) {
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) expectPixel(drawn, x, y, expected, what);
}

}  // namespace quiltor::render_tests
