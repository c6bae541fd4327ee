#pragma once

#include <QIcon>

namespace rondora {

/// The program's own mark, a ring of sectors with one of them highlighted.
class StatusBarIcon {
 public:
  /// In greys, legible on dark and on light panels.
  static QIcon make();
};

}  // namespace rondora
