#pragma once

namespace quiltor {

// Cosine and sine of an angle in radians, computed with twice the digits and rounded once, so that every system's
// renders turn a pattern by the same bits. Not a number for an angle that is none.
double exactCosine(double angle);
double exactSine(double angle);

}  // namespace quiltor
