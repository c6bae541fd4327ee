#include "pie/controller/pie_menu_highlight_state.h"

namespace rondora {

void PieMenuHighlightState::setHighlightedIndex(Index index) {
  if (index == highlightedIndex_) return;
  highlightedIndex_ = index;
  if (observer_) observer_();
}

void PieMenuHighlightState::advanceSelection(std::size_t sectorCount, bool hapticFeedbackEnabled) {
  if (sectorCount < 1) return;
  if (hapticFeedbackEnabled) haptics_.perform(HapticPattern::levelChange);
  setHighlightedIndex(highlightedIndex_ ? (*highlightedIndex_ + 1) % sectorCount : 0);
}

}  // namespace rondora
