#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/display_list.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"
#include "pie/picture/hub_picture.h"
#include "platform/application_icons.h"

// A sample ring: invented items, and backgrounds.

namespace rondora {

/// Finds icons in the icon theme by the application's identifier.
class ThemeIcons : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override;
  std::optional<ApplicationIconSource> windowIconSource(std::string_view) const override { return std::nullopt; }
};

struct SampleRing {
  PieMenu menu;
  RingLayout layout;
  Picture picture;

  static SampleRing make(PieMenu menu, HubContents hub = {});
  /// The state of each layer while that item is highlighted.
  std::vector<double> states(std::optional<std::size_t> highlighted) const;
};

PieMenu sampleMenu(std::size_t itemCount, bool rightToLeft);

/// Sets one appearance key of the menu, such as "menuRadius=180" or "variant=clear"; false for other text.
bool setAppearance(PieMenu& menu, const QString& keyAndValue);

/// "white", "black", "busy" (text, windows and pictures) or "photo".
QImage sampleBackground(const QString& name, QSize size);

}  // namespace rondora
