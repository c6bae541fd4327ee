#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace rondora {

/// How far each sector has come on its way into the highlight or out of it: 0 is normal, 1 is highlighted. A sector
/// that turns round on its way turns where it is. Allocates only when made.
class HighlightFade {
 public:
  /// `seconds` is how long the whole way takes; 0 or less, or no number, means no time at all.
  HighlightFade(std::size_t sectorCount, double seconds);

  void setHighlighted(std::optional<std::size_t> index) { highlighted_ = index; }
  /// Lets time pass. Calls `moved(index, amount)` for every sector that is somewhere else now.
  template <class Moved>
  void advance(double seconds, Moved&& moved) {
    const double step = seconds_ > 0 ? seconds / seconds_ : 1;
    for (std::size_t i = 0; i < travelled_.size(); ++i) {
      if (travel(i, step)) moved(i, eased(travelled_[i]));
    }
  }
  bool isAtRest() const;

 private:
  bool travel(std::size_t index, double step);
  double target(std::size_t index) const { return index == highlighted_ ? 1 : 0; }
  static double eased(double travelled);

  double seconds_;
  std::vector<double> travelled_;
  std::optional<std::size_t> highlighted_;
};

}  // namespace rondora
