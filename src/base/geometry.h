#pragma once

// Plain geometry in points, y growing downward. A point is one device-independent pixel.

namespace rondora {

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  Point origin;
  Size size;
  friend bool operator==(const Rect&, const Rect&) = default;

  constexpr double left() const { return origin.x; }
  constexpr double top() const { return origin.y; }
  constexpr double right() const { return origin.x + size.width; }
  constexpr double bottom() const { return origin.y + size.height; }
  constexpr Point center() const { return {origin.x + size.width / 2, origin.y + size.height / 2}; }
  constexpr bool isEmpty() const { return size.width <= 0 || size.height <= 0; }
  /// Half open: the right and bottom edges belong to the neighbour.
  constexpr bool contains(Point p) const { return p.x >= left() && p.x < right() && p.y >= top() && p.y < bottom(); }
  constexpr bool intersects(const Rect& other) const {
    return left() < other.right() && other.left() < right() && top() < other.bottom() && other.top() < bottom();
  }
};

constexpr Rect squareAround(Point center, double halfSide) {
  return {{center.x - halfSide, center.y - halfSide}, {2 * halfSide, 2 * halfSide}};
}

}  // namespace rondora
