#pragma once

#include <functional>
#include <string>
#include <vector>

#include "actions/action_failure.h"
#include "model/menu_action.h"
#include "platform/log.h"

namespace rondora {

/// The actions that failed last and have not worked since. Main thread.
class ActionFailures {
 public:
  static constexpr std::size_t kMaxEntries = 5;

  struct Entry {
    MenuAction action;
    /// Names for the user.
    std::string item;
    std::string menu;
    ActionFailure failure;
  };

  explicit ActionFailures(Log& log) : log_(log) {}

  /// Newest first, one for each action.
  const std::vector<Entry>& entries() const { return entries_; }
  /// Writes one line to the log.
  void failed(Entry entry);
  void worked(const MenuAction& action);
  /// Removes the actions that no item has any more.
  void retain(const std::function<bool(const MenuAction&)>& exists);

 private:
  Log& log_;
  std::vector<Entry> entries_;
};

}  // namespace rondora
