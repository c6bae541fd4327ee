#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/observable.h"
#include "platform/announcer.h"
#include "platform/main_queue.h"

namespace rondora {

/// Speech pauses at a full stop in every language of the interface.
inline constexpr const char* kSpokenPause = ". ";

/// What a sentence about a sector is made of.
struct SpokenItem {
  std::string title;
  std::size_t position = 0;  // from 1, in ring order
  std::size_t count = 0;
  std::optional<std::string> key;  // its quick-select label
  /// Dimmed: the item cannot do what it is for.
  bool isAvailable = true;
  /// Why not, where the item itself says so; may be empty.
  std::string note = {};
};

/// Announces an open ring: the menu's name, then the highlighted items. A highlight is announced when it has stayed for
/// `kSettleSeconds`, so that sweeping over the ring says nothing but where the sweep ends. While nobody listens it does
/// nothing and allocates nothing.
class RingAnnouncements {
 public:
  static constexpr double kSettleSeconds = 0.12;

  using Index = std::optional<std::size_t>;
  using Sentence = std::function<std::string(std::size_t index)>;

  /// `sentence` says what is announced of an item. The ports must outlive the object.
  RingAnnouncements(Announcer& announcer, MainQueue& mainQueue, Sentence sentence);

  bool hasListeners() const { return announcer_.hasListeners(); }
  /// `name` is announced together with an item that is highlighted at once.
  void opened(std::string name);
  void highlighted(Index index);
  void closed();

 private:
  void settleLater();
  void settle();

  Announcer& announcer_;
  MainQueue& mainQueue_;
  Sentence sentence_;
  std::string name_;  // until it is announced
  Index highlighted_;
  Index announced_;
  bool hasAnnounced_ = false;
  Subscription settling_;
};

}  // namespace rondora
