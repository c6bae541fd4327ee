#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

#include "platform/haptics.h"

namespace rondora {

/// The highlighted sector of one showing. Pointer and keys set it; drawing and the snippet preview observe it. Setting
/// it allocates nothing.
class PieMenuHighlightState {
 public:
  using Index = std::optional<std::size_t>;

  explicit PieMenuHighlightState(Haptics& haptics) : haptics_(haptics) {}

  Index highlightedIndex() const { return highlightedIndex_; }
  void setHighlightedIndex(Index index);
  /// `observer` is called after each change.
  void observe(std::function<void()> observer) { observer_ = std::move(observer); }

  /// Moves the highlight to the next sector, from the last to the first, from none to the first.
  void advanceSelection(std::size_t sectorCount, bool hapticFeedbackEnabled);

 private:
  Haptics& haptics_;
  Index highlightedIndex_;
  std::function<void()> observer_;
};

}  // namespace rondora
