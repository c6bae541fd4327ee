#include "storage/debounced_save.h"

#include <utility>

namespace rondora {

void DebouncedSave::edit(PieConfiguration configuration) {
  pending_ = std::move(configuration);
  workItem_ = mainQueue_.workItem(kDelay, [this] { flush(); });
}

void DebouncedSave::flush() {
  workItem_.reset();
  if (auto configuration = std::exchange(pending_, std::nullopt)) configManager_.save(std::move(*configuration));
}

}  // namespace rondora
