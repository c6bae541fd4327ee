#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace rondora {

/// How far each sector has faded into the highlight: 0 is normal, 1 is highlighted. A sector that reverses continues
/// from where it is. Allocates only when constructed.
class HighlightFade {
 public:
  using Index = std::optional<std::size_t>;

  /// `seconds` is the duration of a whole fade; zero, negative or NaN disables it.
  HighlightFade(std::size_t sectorCount, double seconds);

  /// Moves every sector towards its state under `highlighted`. Calls `moved(index, amount)` for each one that changed.
  template <class Moved>
  void advance(Index highlighted, double seconds, Moved&& moved) {
    const double step = seconds_ > 0 ? seconds / seconds_ : 1;
    for (std::size_t i = 0; i < travelled_.size(); ++i) {
      if (travel(i, target(i, highlighted), step)) moved(i, eased(travelled_[i]));
    }
  }
  bool isAtRest(Index highlighted) const;

 private:
  bool travel(std::size_t index, double target, double step);
  static double target(std::size_t index, Index highlighted) { return index == highlighted ? 1 : 0; }
  static double eased(double travelled);

  double seconds_;
  std::vector<double> travelled_;
};

}  // namespace rondora
