#include "storage/edit_session.h"

#include <utility>

namespace rondora {

EditSession::EditSession(ConfigManager& configManager, MainQueue& mainQueue)
    : configManager_(configManager),
      mainQueue_(mainQueue),
      changes_(configManager.configuration().subscribe([this](const PieConfiguration&) { documentChanged(); })) {}

const PieConfiguration& EditSession::document() const { return pending_ ? *pending_ : configManager_.current(); }

void EditSession::edit(const Edit& edit) {
  if (!pending_) pending_ = configManager_.current();
  edit(*pending_);
  workItem_ = mainQueue_.workItem(kDelay, [this] { flush(); });
}

void EditSession::flush() {
  workItem_.reset();
  if (!pending_) return;
  isSaving_ = true;
  configManager_.save(*std::exchange(pending_, std::nullopt));
  isSaving_ = false;
}

void EditSession::documentChanged() {
  if (isSaving_) return;
  pending_.reset();
  workItem_.reset();
}

}  // namespace rondora
