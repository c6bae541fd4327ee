#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "model/pie_sub_action.h"
#include "platform/workspace.h"

namespace rondora {

/// Why a command did nothing.
enum class SubActionProblem {
  notFound,    // the application has no such command
  noAnswer,    // from the application
  disabled,    // by the application, now
  refused,     // by the application
  noWindow,    // to act on
  windowKept,  // its place, size or state
};

/// The commands that failed last and have not worked since. Main thread.
class SubActionFailures {
 public:
  static constexpr std::size_t kMaxEntries = 5;

  struct Entry {
    PieSubAction command;
    RunningApplication application;
    SubActionProblem problem = SubActionProblem::notFound;
  };

  /// Newest first, one for each command of an application.
  const std::vector<Entry>& entries() const { return entries_; }
  void failed(Entry entry);
  void worked(const PieSubAction& command, const RunningApplication& application);
  void clear() { entries_.clear(); }

 private:
  std::vector<Entry> entries_;
};

}  // namespace rondora
