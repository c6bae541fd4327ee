#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace rondora {

/// The elements of two lists that stand for the same thing.
template <class T>
struct Paired {
  struct Pair {
    const T* before;
    const T* after;
  };
  /// In the order of the list after the change.
  std::vector<Pair> both;
  std::vector<const T*> added;
  std::vector<const T*> removed;
  /// Those in both lists follow each other in another order.
  bool isReordered = false;
};

/// Pairs elements by the first key that finds a partner; an empty key finds none. The lists must outlive the result.
template <class T>
Paired<T> paired(const std::vector<T>& before, const std::vector<T>& after,
                 const std::vector<std::function<std::string(const T&)>>& keys) {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::vector<std::size_t> partners(after.size(), kNone);
  std::vector<bool> isTaken(before.size(), false);
  for (const auto& key : keys) {
    std::map<std::string, std::vector<std::size_t>> free;
    for (std::size_t i = before.size(); i-- > 0;) {
      if (!isTaken[i]) free[key(before[i])].push_back(i);
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
      const std::string name = partners[i] == kNone ? key(after[i]) : std::string();
      const auto found = name.empty() ? free.end() : free.find(name);
      if (found == free.end() || found->second.empty()) continue;
      partners[i] = found->second.back();
      isTaken[partners[i]] = true;
      found->second.pop_back();
    }
  }
  Paired<T> result;
  std::size_t last = 0;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (partners[i] == kNone) {
      result.added.push_back(&after[i]);
      continue;
    }
    if (partners[i] < last) result.isReordered = true;
    last = partners[i];
    result.both.push_back({&before[partners[i]], &after[i]});
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!isTaken[i]) result.removed.push_back(&before[i]);
  }
  return result;
}

}  // namespace rondora
