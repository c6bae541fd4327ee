#include "settings/editing/edit_history.h"

#include <utility>

namespace rondora {
namespace {

/// Each save stamps the document anew.
bool isSame(PieConfiguration one, const PieConfiguration& other) {
  one.lastModified = other.lastModified;
  return one == other;
}

std::size_t itemCount(const PieConfiguration& document) {
  std::size_t count = 1;
  for (const PieMenu& menu : document.menus) count += 1 + menu.items.size();
  return count;
}

}  // namespace

EditHistory::EditHistory(EditSession& session, const ConfigManager& config, const Clock& clock)
    : session_(session), clock_(clock), known_(session.document()) {
  documents_ = config.configuration().subscribe([this](const PieConfiguration& document) { published(document); });
}

bool EditHistory::edit(const EditSession::Edit& edit, std::string_view field) {
  PieConfiguration edited = document();
  edit(edited);
  if (isSame(edited, document())) return false;
  const bool isFurther = !field.empty() && field == lastField_ && clock_.uptime() - lastEdit_ <= kBurst && canUndo();
  const bool takesBack = isFurther && isSame(edited, done_.back());
  if (takesBack) done_.pop_back();
  if (!isFurther) push(done_, document());
  undone_.clear();
  lastField_ = takesBack ? "" : field;
  lastEdit_ = clock_.uptime();
  known_ = edited;
  session_.edit([&edited](PieConfiguration& document) { document = std::move(edited); });
  changed_.send();
  return true;
}

void EditHistory::step(Steps& from, Steps& to) {
  if (from.empty()) return;
  push(to, document());
  known_ = std::move(from.back());
  from.pop_back();
  lastField_.clear();
  session_.edit([this](PieConfiguration& document) { document = known_; });
  changed_.send();
}

void EditHistory::push(Steps& steps, PieConfiguration document) {
  steps.push_back(std::move(document));
  std::size_t items = 0;
  std::size_t kept = 0;
  for (auto step = steps.rbegin(); step != steps.rend() && kept < kMaxSteps; ++step, ++kept) {
    items += itemCount(*step);
    if (items > kMaxItems && kept > 0) break;
  }
  steps.erase(steps.begin(), steps.end() - static_cast<std::ptrdiff_t>(kept));
}

/// A save may repair what was edited: that is no step of its own.
void EditHistory::published(const PieConfiguration& document) {
  if (isSame(known_, document)) {
    known_ = document;
    return;
  }
  if (!session_.isSaving()) {
    push(done_, std::move(known_));
    undone_.clear();
    lastField_.clear();
  }
  known_ = document;
  changed_.send();
}

}  // namespace rondora
