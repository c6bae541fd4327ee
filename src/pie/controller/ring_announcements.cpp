#include "pie/controller/ring_announcements.h"

#include <utility>

namespace rondora {

RingAnnouncements::RingAnnouncements(Announcer& announcer, MainQueue& mainQueue, Sentence sentence)
    : announcer_(announcer), mainQueue_(mainQueue), sentence_(std::move(sentence)) {}

void RingAnnouncements::opened(std::string name) {
  if (!hasListeners()) return;
  name_ = std::move(name);
  settleLater();
}

void RingAnnouncements::highlighted(Index index) {
  highlighted_ = index;
  if (hasListeners()) settleLater();
}

void RingAnnouncements::closed() {
  settling_.reset();
  name_.clear();
  highlighted_.reset();
  announced_.reset();
  if (std::exchange(hasAnnounced_, false)) announcer_.withdraw();
}

void RingAnnouncements::settleLater() {
  settling_ = mainQueue_.workItem(kSettleSeconds, [this] { settle(); });
}

void RingAnnouncements::settle() {
  std::string text = std::exchange(name_, {});
  if (highlighted_ && highlighted_ != announced_) {
    if (!text.empty()) text += kSpokenPause;
    text += sentence_(*highlighted_);
  }
  announced_ = highlighted_;
  if (text.empty()) return;
  hasAnnounced_ = true;
  announcer_.announce(std::move(text));
}

}  // namespace rondora
