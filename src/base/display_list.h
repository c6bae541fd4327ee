#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "base/color.h"
#include "base/geometry.h"

// A drawing without a toolkit: what a ring looks like, in points, y down. Toolkits paint it and decide nothing.

namespace rondora {

enum class PathVerb { move, line, cubic, close };

struct PathElement {
  PathVerb verb = PathVerb::move;
  /// End point; for `cubic` after the two control points.
  Point control1;
  Point control2;
  Point end;
  friend bool operator==(const PathElement&, const PathElement&) = default;
};

struct Path {
  std::vector<PathElement> elements;

  void moveTo(Point p) { elements.push_back({PathVerb::move, {}, {}, p}); }
  void lineTo(Point p) { elements.push_back({PathVerb::line, {}, {}, p}); }
  void cubicTo(Point c1, Point c2, Point p) { elements.push_back({PathVerb::cubic, c1, c2, p}); }
  void close() { elements.push_back({PathVerb::close, {}, {}, {}}); }
  /// A circular arc around `center` from `startAngle` to `endAngle` (radians, clockwise on screen), as cubics that
  /// start at the current point.
  void arc(Point center, double radius, double startAngle, double endAngle);
  /// The same outline drawn the other way round; of one closed piece.
  Path reversed() const;
  void append(const Path& other) { elements.insert(elements.end(), other.elements.begin(), other.elements.end()); }
  static Path circle(Point center, double radius);
  static Path roundedRect(const Rect& rect, double cornerRadius);
  friend bool operator==(const Path&, const Path&) = default;
};

struct GradientStop {
  double position = 0;  // 0 to 1
  Color color;
  friend bool operator==(const GradientStop&, const GradientStop&) = default;
};

struct SolidPaint {
  Color color;
  friend bool operator==(const SolidPaint&, const SolidPaint&) = default;
};
struct LinearGradientPaint {
  Point start;
  Point end;
  std::vector<GradientStop> stops;
  friend bool operator==(const LinearGradientPaint&, const LinearGradientPaint&) = default;
};
struct RadialGradientPaint {
  Point center;
  double radius = 0;
  std::vector<GradientStop> stops;
  friend bool operator==(const RadialGradientPaint&, const RadialGradientPaint&) = default;
};
/// What lies beneath the picture, as seen through frosted glass.
struct BackdropPaint {
  double blurRadius = 0;  // points
  /// 0 is grey, 1 as it is, more is more colourful.
  double saturation = 1;
  /// What white becomes, 0 to 1; darker shades change less, black not at all.
  double brightest = 1;
  /// Laid over all that.
  Color veil{0, 0, 0, 0};
  /// Painted instead where nobody can tell what lies beneath.
  Color imitation;
  friend bool operator==(const BackdropPaint&, const BackdropPaint&) = default;
};
using Paint = std::variant<SolidPaint, LinearGradientPaint, RadialGradientPaint, BackdropPaint>;

struct FillCommand {
  Path path;
  Paint paint;
  /// Nothing is painted outside of it; an empty one clips nothing.
  Path clip = {};
  friend bool operator==(const FillCommand&, const FillCommand&) = default;
};

struct StrokeCommand {
  Path path;
  Paint paint;
  double width = 1;
  friend bool operator==(const StrokeCommand&, const StrokeCommand&) = default;
};

enum class IconKind {
  none,
  symbol,       // name of a system symbol, drawn in `tint`
  emoji,        // the emoji's own text, drawn in its own colours
  application,  // an application's identifier
  imageFile,    // an absolute path
  favicon,      // the origin of a web site, such as "https://www.example.org"; empty for no site
};

struct IconCommand {
  IconKind kind = IconKind::none;
  std::string name;
  Rect rect;
  Color tint;
  friend bool operator==(const IconCommand&, const IconCommand&) = default;
};

enum class FontWeight { regular, medium, semibold, bold };
enum class TextAlignment { leading, center, trailing };

struct TextCommand {
  std::string text;  // UTF-8, of any direction
  Rect rect;         // wrapped and elided inside, centred vertically
  double pointSize = 13;
  FontWeight weight = FontWeight::regular;
  TextAlignment alignment = TextAlignment::center;
  int maximumLines = 1;
  Color color;
  friend bool operator==(const TextCommand&, const TextCommand&) = default;
};

using DisplayCommand = std::variant<FillCommand, StrokeCommand, IconCommand, TextCommand>;
using DisplayList = std::vector<DisplayCommand>;

/// The smallest rectangle of whole points around everything that the lists draw, strokes included. Curves count by
/// their control points, which they never leave.
Rect boundsOf(const std::vector<DisplayList>& lists);

/// A part of a picture that can look one of several ways; nothing of it lies outside `bounds`.
struct PictureLayer {
  Rect bounds;
  std::vector<DisplayList> states;
  friend bool operator==(const PictureLayer&, const PictureLayer&) = default;
};

/// Layers painted one over the other, each in state 0 until told otherwise.
struct Picture {
  Size size;
  /// The point that an opening animation grows from.
  Point anchor;
  std::vector<PictureLayer> layers;
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace rondora
