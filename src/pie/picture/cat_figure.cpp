#include "pie/picture/cat_figure.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace rondora {
namespace {

constexpr Color kFurAbove{0.99, 0.975, 0.95, 1};
constexpr Color kFurBelow{0.86, 0.835, 0.80, 1};
constexpr Color kStripe{0.80, 0.755, 0.70, 1};
constexpr Color kPink{0.95, 0.62, 0.62, 1};
constexpr Color kLine{0.20, 0.17, 0.16, 1};
constexpr Color kIris{0.98, 0.74, 0.22, 1};
constexpr Color kPupil{0.09, 0.08, 0.09, 1};

/// The coordinates of a figure: x to the right, y down, 1 is half the figure's side, rotated by `angle`.
class Plan {
 public:
  Plan(Point origin, double unit, double angle = 0)
      : origin_(origin), unit_(unit), cosine_(std::cos(angle)), sine_(std::sin(angle)) {}

  double unit() const { return unit_; }
  Point at(double x, double y) const {
    return origin_ + Point{x * cosine_ - y * sine_, x * sine_ + y * cosine_} * unit_;
  }
  void move(Path& path, double x, double y) const { path.moveTo(at(x, y)); }
  void line(Path& path, double x, double y) const { path.lineTo(at(x, y)); }
  void curve(Path& path, double ax, double ay, double bx, double by, double x, double y) const {
    path.cubicTo(at(ax, ay), at(bx, by), at(x, y));
  }

  /// An ellipse whose own axes are turned by `tilt`.
  void addEllipse(Path& path, double x, double y, double width, double height, double tilt = 0) const {
    constexpr double kArm = 0.5523;
    const double c = std::cos(tilt);
    const double s = std::sin(tilt);
    const auto on = [&](double u, double v) {
      return at(x + u * width * c - v * height * s, y + u * width * s + v * height * c);
    };
    path.moveTo(on(1, 0));
    path.cubicTo(on(1, kArm), on(kArm, 1), on(0, 1));
    path.cubicTo(on(-kArm, 1), on(-1, kArm), on(-1, 0));
    path.cubicTo(on(-1, -kArm), on(-kArm, -1), on(0, -1));
    path.cubicTo(on(kArm, -1), on(1, -kArm), on(1, 0));
    path.close();
  }

 private:
  Point origin_;
  double unit_;
  double cosine_;
  double sine_;
};

constexpr double kEyeX = 0.40;
constexpr double kEyeY = 0.10;

Path headOutline(const Plan& plan) {
  Path path;
  plan.move(path, -0.90, 0.14);
  plan.curve(path, -0.94, -0.22, -0.94, -0.60, -0.86, -0.84);
  plan.curve(path, -0.83, -0.94, -0.74, -0.96, -0.66, -0.89);
  plan.curve(path, -0.50, -0.76, -0.38, -0.64, -0.28, -0.52);
  plan.curve(path, -0.10, -0.57, 0.10, -0.57, 0.28, -0.52);
  plan.curve(path, 0.38, -0.64, 0.50, -0.76, 0.66, -0.89);
  plan.curve(path, 0.74, -0.96, 0.83, -0.94, 0.86, -0.84);
  plan.curve(path, 0.94, -0.60, 0.94, -0.22, 0.90, 0.14);
  plan.curve(path, 0.98, 0.38, 0.88, 0.62, 0.62, 0.75);
  plan.curve(path, 0.42, 0.86, 0.20, 0.89, 0, 0.89);
  plan.curve(path, -0.20, 0.89, -0.42, 0.86, -0.62, 0.75);
  plan.curve(path, -0.88, 0.62, -0.98, 0.38, -0.90, 0.14);
  path.close();
  return path;
}

Path innerEar(const Plan& plan, double side) {
  Path path;
  plan.move(path, side * 0.79, -0.36);
  plan.curve(path, side * 0.81, -0.52, side * 0.80, -0.66, side * 0.77, -0.75);
  plan.curve(path, side * 0.64, -0.66, side * 0.54, -0.57, side * 0.45, -0.46);
  plan.curve(path, side * 0.58, -0.46, side * 0.70, -0.42, side * 0.79, -0.36);
  path.close();
  return path;
}

void stroke(DisplayList& list, const Plan& plan, const Path& path, Color color, double width) {
  list.push_back(StrokeCommand{path, SolidPaint{color}, width * plan.unit()});
}

void appendHead(DisplayList& list, const Plan& plan) {
  list.push_back(FillCommand{
      headOutline(plan),
      LinearGradientPaint{plan.at(0, -0.95), plan.at(0, 0.9), {{0, kFurAbove}, {0.55, kFurAbove}, {1, kFurBelow}}}});
  for (const double side : {-1.0, 1.0}) list.push_back(FillCommand{innerEar(plan, side), SolidPaint{kPink}});
  for (const double x : {-0.15, 0.0, 0.15}) {
    Path stripe;
    plan.move(stripe, x, -0.44);
    plan.line(stripe, x * 0.8, x == 0 ? -0.18 : -0.26);
    stroke(list, plan, stripe, kStripe, 0.075);
  }
}

void appendSleepingEyes(DisplayList& list, const Plan& plan) {
  for (const double x : {-kEyeX, kEyeX}) {
    Path lid;
    plan.move(lid, x - 0.19, kEyeY - 0.01);
    plan.curve(lid, x - 0.12, kEyeY + 0.14, x + 0.12, kEyeY + 0.14, x + 0.19, kEyeY - 0.01);
    stroke(list, plan, lid, kLine, 0.075);
  }
}

void appendOpenEyes(DisplayList& list, const Plan& plan) {
  Path rims;
  Path irises;
  for (const double x : {-kEyeX, kEyeX}) {
    plan.addEllipse(rims, x, kEyeY, 0.215, 0.225);
    plan.addEllipse(irises, x, kEyeY, 0.18, 0.19);
  }
  list.push_back(FillCommand{rims, SolidPaint{kLine}});
  list.push_back(FillCommand{irises, SolidPaint{kIris}});
}

void appendMuzzle(DisplayList& list, const Plan& plan) {
  Path nose;
  plan.move(nose, -0.09, 0.36);
  plan.curve(nose, -0.05, 0.33, 0.05, 0.33, 0.09, 0.36);
  plan.curve(nose, 0.09, 0.41, 0.03, 0.46, 0, 0.46);
  plan.curve(nose, -0.03, 0.46, -0.09, 0.41, -0.09, 0.36);
  nose.close();
  list.push_back(FillCommand{nose, SolidPaint{kPink}});
  Path mouth;
  plan.move(mouth, -0.20, 0.52);
  plan.curve(mouth, -0.17, 0.61, -0.02, 0.61, 0, 0.50);
  plan.curve(mouth, 0.02, 0.61, 0.17, 0.61, 0.20, 0.52);
  stroke(list, plan, mouth, kLine, 0.05);
  Path whiskers;
  for (const double side : {-1.0, 1.0}) {
    plan.move(whiskers, side * 0.58, 0.38);
    plan.curve(whiskers, side * 0.75, 0.34, side * 0.88, 0.31, side * 1.0, 0.30);
    plan.move(whiskers, side * 0.57, 0.49);
    plan.curve(whiskers, side * 0.74, 0.49, side * 0.86, 0.50, side * 0.97, 0.53);
  }
  stroke(list, plan, whiskers, kStripe, 0.035);
}

}  // namespace

void appendCat(DisplayList& list, Point center, double halfSide, CatMood mood) {
  const Plan plan(center, halfSide);
  appendHead(list, plan);
  mood == CatMood::asleep ? appendSleepingEyes(list, plan) : appendOpenEyes(list, plan);
  appendMuzzle(list, plan);
}

void appendCatPupils(DisplayList& list, Point center, double halfSide, double gaze) {
  const Plan plan(center, halfSide);
  const double dx = 0.075 * std::cos(gaze);
  const double dy = 0.075 * std::sin(gaze);
  Path pupils;
  Path glints;
  for (const double x : {-kEyeX, kEyeX}) {
    plan.addEllipse(pupils, x + dx, kEyeY + dy, 0.10, 0.145);
    plan.addEllipse(glints, x + dx + 0.045, kEyeY + dy - 0.06, 0.042, 0.042);
  }
  list.push_back(FillCommand{pupils, SolidPaint{kPupil}});
  list.push_back(FillCommand{glints, SolidPaint{{1, 1, 1, 1}}});
}

Path catPaw(Point center, double radius, double angle, double armLength) {
  const Plan plan(center, radius, angle + std::numbers::pi / 2);  // drawn reaching up
  const double wrist = 0.25;
  const double end = std::max(armLength / radius, wrist);
  Path path;
  plan.move(path, 0.56, wrist);
  plan.curve(path, 0.58, 0.75, 0.62, end - 0.2, 0.66, end);
  plan.line(path, -0.66, end);
  plan.curve(path, -0.62, end - 0.2, -0.58, 0.75, -0.56, wrist);
  path.close();
  plan.addEllipse(path, 0, 0.10, 0.86, 0.74);
  for (const double side : {-1.0, 1.0}) {
    plan.addEllipse(path, side * 0.66, -0.28, 0.27, 0.42, side * 0.42);
    plan.addEllipse(path, side * 0.25, -0.54, 0.27, 0.44, side * 0.12);
  }
  return path;
}

}  // namespace rondora
