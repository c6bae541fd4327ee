#include "commands/sub_action_failures.h"

#include <utility>

namespace rondora {

void SubActionFailures::failed(Entry entry) {
  worked(entry.command, entry.application);
  entries_.insert(entries_.begin(), std::move(entry));
  if (entries_.size() > kMaxEntries) entries_.pop_back();
}

void SubActionFailures::worked(const PieSubAction& command, const RunningApplication& application) {
  std::erase_if(entries_, [&](const Entry& entry) {
    return entry.command.kind == command.kind && entry.command.menuPath == command.menuPath &&
           entry.application.bundleIdentifier == application.bundleIdentifier;
  });
}

}  // namespace rondora
