#include "render/trigonometry.h"

#include <boost/multiprecision/cpp_bin_float.hpp>

namespace quiltor {
namespace {

using Quad = boost::multiprecision::cpp_bin_float_quad;

}  // namespace

double exactCosine(double angle) { return static_cast<double>(cos(Quad(angle))); }
double exactSine(double angle) { return static_cast<double>(sin(Quad(angle))); }

}  // namespace quiltor
