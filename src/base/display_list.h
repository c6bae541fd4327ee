#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/color.h"
#include "base/geometry.h"

// A drawing without a toolkit: what a ring looks like, in points, y down. Toolkits paint it and add no policy.

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
  /// The same outline in the opposite direction. The path must be one closed piece.
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
/// The screen beneath the picture, seen through frosted glass.
struct BackdropPaint {
  double blurRadius = 0;  // points
  /// 0 is grey, 1 leaves the colours as they are, more strengthens them.
  double saturation = 1;
  /// The brightness that white is reduced to, 0 to 1; black stays black.
  double brightest = 1;
  /// Composited on top.
  Color veil{0, 0, 0, 0};
  /// Painted instead where no snapshot of the screen is available.
  Color imitation;
  friend bool operator==(const BackdropPaint&, const BackdropPaint&) = default;
};
using Paint = std::variant<SolidPaint, LinearGradientPaint, RadialGradientPaint, BackdropPaint>;

struct FillCommand {
  Path path;
  Paint paint;
  /// Restricts painting; an empty path does not clip.
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

/// The colours that a sector has beneath its icon: over the darkest and the lightest screen, and while it is
/// highlighted.
struct IconBackgrounds {
  Color darkest;
  Color lightest;
  Color highlighted;
  friend bool operator==(const IconBackgrounds&, const IconBackgrounds&) = default;
};

struct IconCommand {
  IconKind kind = IconKind::none;
  std::string name;
  Rect rect;
  Color tint;
  /// For an icon of unknown colours: one that hardly differs from what is beneath it lies on a plate.
  std::optional<IconBackgrounds> backgrounds = std::nullopt;
  friend bool operator==(const IconCommand&, const IconCommand&) = default;
};

enum class FontWeight { regular, medium, semibold, bold };
enum class TextAlignment { leading, center, trailing };

/// A band around the letters, `width` points wide, which does not lie beneath them.
struct TextHalo {
  double width = 0;
  Color color;
  friend bool operator==(const TextHalo&, const TextHalo&) = default;
};

struct Disc {
  Point center;
  double radius = 0;
  friend bool operator==(const Disc&, const Disc&) = default;
};

/// Where a word may break if it is wider than its line: U+200B, which is invisible.
inline constexpr std::string_view kSoftBreak = "\u200B";

enum class TextElision { end, middle };

struct TextCommand {
  std::string text;  // UTF-8, of any direction
  Rect rect;         // wrapped and elided inside, centred vertically; at least one line, whatever the height
  double pointSize = 13;
  FontWeight weight = FontWeight::regular;
  TextAlignment alignment = TextAlignment::center;
  int maximumLines = 1;
  Color color;
  std::optional<TextHalo> halo = std::nullopt;
  /// Lines stay inside it, too.
  std::optional<Disc> disc = std::nullopt;
  /// For a text that does not fit otherwise; 0 for none.
  double smallerPointSize = 0;
  TextElision elision = TextElision::end;
  friend bool operator==(const TextCommand&, const TextCommand&) = default;
};

using DisplayCommand = std::variant<FillCommand, StrokeCommand, IconCommand, TextCommand>;
using DisplayList = std::vector<DisplayCommand>;

/// The smallest rectangle of whole points around everything that the lists draw, strokes included. Curves count
/// by the hull of their control points.
Rect boundsOf(const std::vector<DisplayList>& lists);

/// A part of a picture with several states; all of them lie inside `bounds`.
struct PictureLayer {
  Rect bounds;
  std::vector<DisplayList> states;
  friend bool operator==(const PictureLayer&, const PictureLayer&) = default;
};

/// Layers painted in order, each in state 0 at first.
struct Picture {
  Size size;
  /// The point that an opening animation grows from.
  Point anchor;
  std::vector<PictureLayer> layers;
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace rondora
