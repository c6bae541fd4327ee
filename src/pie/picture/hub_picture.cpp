#include "pie/picture/hub_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "model/appearance_fields.h"
#include "pie/picture/cat_figure.h"

namespace rondora {
namespace {

constexpr Color kTitle{1, 1, 1, 0.97};
constexpr double kMinRadiusForBoth = 48;  // points, before scaling

}  // namespace

HubPainter::HubPainter(const PieMenu& menu, const RingLayout& layout, const std::optional<std::string>& application)
    : menu_(menu), layout_(layout), application_(application), radius_(layout.hubRadius()) {}

PictureLayer HubPainter::layer() const { return {squareAround(layout_.center(), std::ceil(radius_)), {}}; }

PictureLayer HubPainter::figureLayer() const {
  PictureLayer result = layer();
  result.states.resize(2);
  if (!hasFigure()) return result;
  appendFigure(result.states[0], {layout_.center(), figureHalfSide()}, true);
  if (hasRoomForBoth()) appendFigure(result.states[1], figureAboveTitle(), false);
  return result;
}

PictureLayer HubPainter::titleLayer(const std::vector<std::string>& titles) const {
  PictureLayer result = layer();
  result.states.resize(titles.size() + 1);
  const bool catLooks = hasRoomForBoth() && !application_;
  const Figure cat = figureAboveTitle();
  for (std::size_t i = 0; i < titles.size(); ++i) {
    DisplayList& list = result.states[i + 1];
    if (catLooks) appendCatPupils(list, cat.center, cat.halfSide, layout_.sectorMiddle(i));
    list.push_back(title(titles[i]));
  }
  return result;
}

bool HubPainter::hasRoomForBoth() const { return hasFigure() && radius_ >= kMinRadiusForBoth * layout_.scale; }

/// The icon scales with the hub's radius, the cat with the largest square inside the hub.
double HubPainter::figureHalfSide() const {
  if (application_) return radius_ * drawn<&PieMenu::centerAppIconScale>(menu_);
  return radius_ / std::numbers::sqrt2 * drawn<&PieMenu::centerCatScale>(menu_);
}

HubPainter::Figure HubPainter::figureAboveTitle() const {
  const Point center = layout_.center();
  return {{center.x, center.y - 0.40 * radius_}, std::min(0.62 * figureHalfSide(), 0.36 * radius_)};
}

void HubPainter::appendFigure(DisplayList& list, const Figure& figure, bool isAlone) const {
  if (application_) {
    const Rect rect = squareAround(figure.center, figure.halfSide);
    list.push_back(IconCommand{IconKind::application, *application_, rect, kTitle});
  } else {
    appendCat(list, figure.center, figure.halfSide, isAlone ? CatMood::asleep : CatMood::awake);
  }
}

TextCommand HubPainter::title(const std::string& text) const {
  const bool isBelow = hasRoomForBoth();
  const double top = isBelow ? 0.02 : -0.5;
  const double bottom = isBelow ? 0.62 : 0.5;
  const double halfWidth = isBelow ? 0.78 : 0.82;
  const Point center = layout_.center();
  const Rect rect{{center.x - halfWidth * radius_, center.y + top * radius_},
                  {2 * halfWidth * radius_, (bottom - top) * radius_}};
  const double pointSize = std::min((isBelow ? 15 : 16) * layout_.scale, radius_ * 0.235);
  return {text, rect, pointSize, FontWeight::semibold, TextAlignment::center, isBelow ? 2 : 3, kTitle};
}

}  // namespace rondora
