#pragma once

#include "base/display_list.h"
#include "base/geometry.h"

// The cat that lives in the ring.

namespace rondora {

enum class CatMood { asleep, awake };

/// Draws the cat's head inside a square of that half side; awake it has no pupils.
void appendCat(DisplayList& list, Point center, double halfSide, CatMood mood);
/// The pupils of the same cat, looking in the direction `gaze` (radians, clockwise on screen from the positive x axis).
void appendCatPupils(DisplayList& list, Point center, double halfSide, double gaze);

/// The outline of a paw that reaches out in the direction `angle`: toes inside a circle around `center`, and an arm
/// that ends `armLength` behind it.
Path catPaw(Point center, double radius, double angle, double armLength);

}  // namespace rondora
