#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <functional>
#include <string_view>

#include "base/observable.h"
#include "icons/icon_reference.h"
#include "model/pie_menu_item.h"

namespace rondora {

/// The icons of items and applications as the settings show them: the pictures that the ring shows. Main thread.
class ItemIcons {
 public:
  /// Draws an icon, fitted into `side` pixels.
  using Draw = std::function<QImage(const IconCommand& icon, int side)>;
  /// The observer is called when further icons are decoded, so that they are drawn otherwise.
  using OnDecoded = std::function<Subscription(std::function<void()>)>;

  ItemIcons(Draw draw, OnDecoded onDecoded) : draw_(std::move(draw)), onDecoded_(std::move(onDecoded)) {}

  /// `side` points wide and high; symbols are drawn in `tint`.
  QPixmap picture(const IconReference& icon, int side, const QColor& tint, double pixelsPerPoint) const;
  QPixmap picture(const PieMenuItem& item, int side, const QColor& tint, double pixelsPerPoint) const {
    return picture(IconReference::of(item), side, tint, pixelsPerPoint);
  }
  /// For a row of a list: symbols have the colour of its text, chosen or not.
  QIcon ofRow(const IconReference& icon, int side, const QPalette& palette, double pixelsPerPoint) const;
  /// The icon of an application.
  QPixmap application(std::string_view bundleIdentifier, int side, double pixelsPerPoint) const {
    return picture(IconReference::parse(IconReference::application(bundleIdentifier)), side, {}, pixelsPerPoint);
  }
  [[nodiscard]] Subscription onDecoded(std::function<void()> observer) const {
    return onDecoded_ ? onDecoded_(std::move(observer)) : Subscription();
  }

 private:
  Draw draw_;
  OnDecoded onDecoded_;
};

}  // namespace rondora
