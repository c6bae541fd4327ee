#include "ui/appkit/painting/core_graphics_shapes.h"

#include <algorithm>
#include <cmath>
#include <variant>
#include <vector>

namespace rondora::appkit {
namespace {

using macos::CFRef;

/// Far outside any screen; keeps hostile numbers within the toolkit's integers.
constexpr double kMaxPixel = 30000;
constexpr CGGradientDrawingOptions kDrawsBeyondBothEnds =
    static_cast<CGGradientDrawingOptions>(kCGGradientDrawsBeforeStartLocation) |
    static_cast<CGGradientDrawingOptions>(kCGGradientDrawsAfterEndLocation);

double fraction(double value) { return std::isnan(value) ? 0 : std::clamp(value, 0.0, 1.0); }

double finite(double value) { return std::isnan(value) ? 0 : std::clamp(value, -kMaxPixel, kMaxPixel); }

CGPoint toCGPoint(Point point) { return {finite(point.x), finite(point.y)}; }

CFRef<CGPathRef> makePath(const Path& path) {
  const auto owner = CFRef<CGMutablePathRef>::adopt(CGPathCreateMutable());
  const CGMutablePathRef result = owner.get();
  for (const PathElement& element : path.elements) {
    const CGPoint end = toCGPoint(element.end);
    switch (element.verb) {
      case PathVerb::move:
        CGPathMoveToPoint(result, nullptr, end.x, end.y);
        break;
      case PathVerb::line:
        CGPathAddLineToPoint(result, nullptr, end.x, end.y);
        break;
      case PathVerb::cubic: {
        const CGPoint first = toCGPoint(element.control1);
        const CGPoint second = toCGPoint(element.control2);
        CGPathAddCurveToPoint(result, nullptr, first.x, first.y, second.x, second.y, end.x, end.y);
        break;
      }
      case PathVerb::close:
        CGPathCloseSubpath(result);
        break;
    }
  }
  return CFRef<CGPathRef>::share(result);
}

CFRef<CGGradientRef> makeGradient(const std::vector<GradientStop>& stops) {
  std::vector<CGFloat> components;
  std::vector<CGFloat> locations;
  for (const GradientStop& stop : stops) {
    for (const double each : {stop.color.red, stop.color.green, stop.color.blue, stop.color.alpha}) {
      components.push_back(fraction(each));
    }
    locations.push_back(fraction(stop.position));
  }
  const auto colors = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  return CFRef<CGGradientRef>::adopt(
      CGGradientCreateWithColorComponents(colors.get(), components.data(), locations.data(), locations.size()));
}

void addPath(CGContextRef context, const Path& path) { CGContextAddPath(context, makePath(path).get()); }

/// Null for a paint of several colours.
const Color* colorOf(const Paint& paint) {
  const auto* solid = std::get_if<SolidPaint>(&paint);
  return solid == nullptr ? nullptr : &solid->color;
}

/// False for an empty path, which would leave the clip as large as it is.
bool clipToPath(CGContextRef context) {
  if (CGContextIsPathEmpty(context)) return false;
  CGContextClip(context);
  return true;
}

void setFillColor(CGContextRef context, Color color) {
  CGContextSetRGBFillColor(context, fraction(color.red), fraction(color.green), fraction(color.blue),
                           fraction(color.alpha));
}

void fillClip(CGContextRef context, Color color) {
  setFillColor(context, color);
  CGContextFillRect(context, {{-kMaxPixel, -kMaxPixel}, {2 * kMaxPixel, 2 * kMaxPixel}});
}

/// Fills the clip.
struct PaintFiller {
  CGContextRef context;
  double pixelsPerPoint;
  std::span<const GlassImage> glass;

  void operator()(const SolidPaint& paint) const { fillClip(context, paint.color); }
  void operator()(const LinearGradientPaint& paint) const {
    const auto gradient = makeGradient(paint.stops);
    CGContextDrawLinearGradient(context, gradient.get(), toCGPoint(paint.start), toCGPoint(paint.end),
                                kDrawsBeyondBothEnds);
  }
  void operator()(const RadialGradientPaint& paint) const {
    const auto gradient = makeGradient(paint.stops);
    const CGPoint center = toCGPoint(paint.center);
    CGContextDrawRadialGradient(context, gradient.get(), center, 0, center, std::max(finite(paint.radius), 0.0),
                                kDrawsBeyondBothEnds);
  }
  void operator()(const BackdropPaint& paint) const {
    const auto isWanted = [&](const GlassImage& each) { return each.paint == paint; };
    const auto found = std::ranges::find_if(glass, isWanted);
    if (found == glass.end()) return fillClip(context, layered(paint.imitation, paint.veil));
    const PixelRect size = sizeOf(found->image);
    drawImage(context, found->image, {{0, 0}, {size.width / pixelsPerPoint, size.height / pixelsPerPoint}});
  }
};

}  // namespace

void ShapePainter::paintInside(const Paint& paint) const {
  std::visit(PaintFiller{context, pixelsPerPoint, glass}, paint);
}

void ShapePainter::fill(const FillCommand& command) const {
  const ContextState state(context);
  if (!command.clip.elements.empty()) {
    addPath(context, command.clip);
    CGContextClip(context);
  }
  addPath(context, command.path);
  if (const Color* color = colorOf(command.paint)) {
    setFillColor(context, *color);
    CGContextFillPath(context);
    return;
  }
  if (clipToPath(context)) paintInside(command.paint);
}

void ShapePainter::stroke(const StrokeCommand& command) const {
  const ContextState state(context);
  CGContextSetLineWidth(context, std::max(finite(command.width), 0.0));
  CGContextSetLineCap(context, kCGLineCapRound);
  CGContextSetLineJoin(context, kCGLineJoinRound);
  addPath(context, command.path);
  if (const Color* color = colorOf(command.paint)) {
    CGContextSetRGBStrokeColor(context, fraction(color->red), fraction(color->green), fraction(color->blue),
                               fraction(color->alpha));
    CGContextStrokePath(context);
    return;
  }
  CGContextReplacePathWithStrokedPath(context);
  if (clipToPath(context)) paintInside(command.paint);
}

PixelRect toPixelRect(const Rect& rect, double pixelsPerPoint) {
  if (rect.isEmpty()) return {};
  const auto left = static_cast<int>(std::floor(finite(rect.left() * pixelsPerPoint)));
  const auto top = static_cast<int>(std::floor(finite(rect.top() * pixelsPerPoint)));
  return {left, top, static_cast<int>(std::ceil(finite(rect.right() * pixelsPerPoint))) - left,
          static_cast<int>(std::ceil(finite(rect.bottom() * pixelsPerPoint))) - top};
}

}  // namespace rondora::appkit
