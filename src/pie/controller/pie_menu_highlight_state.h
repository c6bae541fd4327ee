#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "platform/haptics.h"

namespace rondora {

/// The highlighted sector, shared by pointer, keys and drawing. Setting it allocates nothing.
class PieMenuHighlightState {
 public:
  using Index = std::optional<std::size_t>;
  /// Receives the former and the new value, after a change.
  using Observer = std::function<void(Index, Index)>;

  explicit PieMenuHighlightState(Haptics& haptics) : haptics_(haptics) {}

  Index highlightedIndex() const { return highlightedIndex_; }
  void setHighlightedIndex(Index index);
  void observe(Observer observer) { observer_ = std::move(observer); }

  /// One sector on, from the last to the first, from none to the first.
  void advanceSelection(std::size_t sectorCount, bool hapticFeedbackEnabled);

 private:
  Haptics& haptics_;
  Index highlightedIndex_;
  Observer observer_;
};

}  // namespace rondora
