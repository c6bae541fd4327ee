#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace rondora {

/// The symbols and emoji that the user chose last, the latest first. Kept for the session.
class RecentIcons {
 public:
  static constexpr std::size_t kMax = 32;

  void add(std::string icon) {
    std::erase(icons_, icon);
    icons_.insert(icons_.begin(), std::move(icon));
    icons_.resize(std::min(icons_.size(), kMax));
  }
  const std::vector<std::string>& icons() const { return icons_; }

 private:
  std::vector<std::string> icons_;
};

}  // namespace rondora
