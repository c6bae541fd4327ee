#pragma once

#include <QIcon>

namespace rondora {

/// The program's own mark, a ring of sectors with one of them chosen.
class StatusBarIcon {
 public:
  /// Without colours, legible on a dark and on a light panel.
  static QIcon make();
};

}  // namespace rondora
