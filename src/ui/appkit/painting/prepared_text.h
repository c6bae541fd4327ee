#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <vector>

#include "base/display_list.h"
#include "ui/appkit/painting/core_text_meter.h"

namespace rondora::appkit {

/// A text laid out inside its rectangle and its disc.
class PreparedText {
 public:
  explicit PreparedText(const TextCommand& command);

  /// In points, y down.
  void paint(CGContextRef context) const;

 private:
  struct PlacedLine {
    Line line;
    Point baseline;
  };

  Color color_;
  std::vector<PlacedLine> lines_;
};

}  // namespace rondora::appkit
