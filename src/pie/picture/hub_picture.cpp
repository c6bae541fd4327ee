#include "pie/picture/hub_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "model/appearance_fields.h"
#include "pie/picture/cat_figure.h"
#include "pie/picture/title_text.h"

namespace rondora {
namespace {

constexpr Color kTitle{1, 1, 1, 0.97};
constexpr Color kNote{1, 1, 1, 0.72};
constexpr double kMinRadiusForBoth = 48;  // points, before scaling
constexpr double kNoteTop = 0.50;         // of the radius, below the centre
constexpr double kNoteBottom = 0.78;

}  // namespace

HubPainter::HubPainter(const PieMenu& menu, const RingLayout& layout, const HubContents& contents)
    : menu_(menu), layout_(layout), contents_(contents), radius_(layout.hubRadius()) {}

PictureLayer HubPainter::layer() const { return {squareAround(layout_.center(), std::ceil(radius_)), {}}; }

PictureLayer HubPainter::figureLayer() const {
  PictureLayer result = layer();
  result.states.resize(2);
  if (!hasFigure()) return result;
  const bool isAlone = !contents_.isMenuEmpty;
  if (isAlone) appendFigure(result.states[0], {layout_.center(), figureHalfSide()}, true);
  if (!isAlone && hasRoomForBoth()) appendFigure(result.states[0], figureAboveTitle(), true);
  if (hasRoomForBoth()) appendFigure(result.states[1], figureAboveTitle(), false);
  return result;
}

PictureLayer HubPainter::titleLayer(const std::vector<std::string>& titles,
                                    const std::vector<std::string>& notes) const {
  PictureLayer result = layer();
  result.states.resize(titles.size() + 1);
  const bool catLooks = hasRoomForBoth() && !contents_.application;
  const bool hasHeading = !contents_.heading.empty() && (contents_.isMenuEmpty || !hasFigure());
  if (hasHeading) result.states[0].push_back(title(contents_.heading));
  const Figure cat = figureAboveTitle();
  for (std::size_t i = 0; i < titles.size(); ++i) {
    DisplayList& list = result.states[i + 1];
    if (catLooks) appendCatPupils(list, cat.center, cat.halfSide, layout_.sectorMiddle(i));
    const bool hasNote = i < notes.size() && !notes[i].empty() && !isCut();
    list.push_back(title(titles[i], hasNote));
    if (hasNote) list.push_back(note(notes[i]));
  }
  return result;
}

bool HubPainter::hasRoomForBoth() const {
  return hasFigure() && !isCut() && radius_ >= kMinRadiusForBoth * layout_.scale;
}

/// The icon scales with the hub's radius, the cat with the largest square inside the hub.
double HubPainter::figureHalfSide() const {
  if (contents_.application) return radius_ * drawn<&PieMenu::centerAppIconScale>(menu_);
  return radius_ / std::numbers::sqrt2 * drawn<&PieMenu::centerCatScale>(menu_);
}

HubPainter::Figure HubPainter::figureAboveTitle() const {
  const Point center = layout_.center();
  return {{center.x, center.y - 0.40 * radius_}, std::min(0.62 * figureHalfSide(), 0.36 * radius_)};
}

void HubPainter::appendFigure(DisplayList& list, const Figure& figure, bool isAlone) const {
  if (contents_.application) {
    const Rect rect = squareAround(figure.center, figure.halfSide);
    list.push_back(IconCommand{IconKind::application, *contents_.application, rect, kTitle});
  } else {
    appendCat(list, figure.center, figure.halfSide, isAlone ? CatMood::asleep : CatMood::awake);
  }
}

/// Beneath the figure, else in the middle, else in the half or quarter that the screen shows.
Rect HubPainter::titleRect(bool hasNote) const {
  constexpr double kAcross = 0.6;  // of the radius
  const Point center = layout_.center();
  const auto part = [this](double from, double to) { return std::pair{from * radius_, (to - from) * radius_}; };
  const auto along = [&](double side) { return side == 0 ? part(-1, 1) : side > 0 ? part(0.06, 1) : part(-1, -0.06); };
  const auto down = [&](double side) {
    return side == 0  ? part(-kAcross, hasNote ? kNoteTop : kAcross)
           : side > 0 ? part(0.04, kAcross + 0.2)
                      : part(-kAcross - 0.2, -0.04);
  };
  const auto [x, width] = along(contents_.visibleSide.x);
  const auto [y, height] =
      hasRoomForBoth() ? (hasNote ? part(-0.04, kNoteTop) : part(-0.02, 0.74)) : down(contents_.visibleSide.y);
  return {{center.x + x, center.y + y}, {width, height}};
}

TextCommand HubPainter::title(const std::string& text, bool hasNote) const {
  constexpr int kMaxLines = 4;
  constexpr double kSmaller = 13.0 / 15;
  const double largest = isCut() ? 13 : hasRoomForBoth() ? 15 : 16;
  const double pointSize = std::min(largest * layout_.scale, radius_ * 0.235);
  TextCommand command{withSoftBreaks(text),
                      titleRect(hasNote),
                      pointSize,
                      FontWeight::semibold,
                      TextAlignment::center,
                      (hasRoomForBoth() ? 3 : kMaxLines) - (hasNote ? 1 : 0),
                      kTitle};
  command.disc = Disc{layout_.center(), 0.94 * radius_};
  command.smallerPointSize = kSmaller * pointSize;
  command.elision = elisionOf(text);
  return command;
}

TextCommand HubPainter::note(const std::string& text) const {
  constexpr double kSmaller = 10.0 / 12;
  const Point center = layout_.center();
  const double pointSize = std::min(12 * layout_.scale, radius_ * 0.185);
  TextCommand command{
      text,
      {{center.x - radius_, center.y + kNoteTop * radius_}, {2 * radius_, (kNoteBottom - kNoteTop) * radius_}},
      pointSize,
      FontWeight::medium,
      TextAlignment::center,
      1,
      kNote};
  command.disc = Disc{center, 0.94 * radius_};
  command.smallerPointSize = kSmaller * pointSize;
  return command;
}

}  // namespace rondora
