#include "pie/picture/legibility.h"

#include <algorithm>

namespace rondora {
namespace {

/// The least alpha with which `halo` is legible beside `letters`; above 1 if none is.
double alphaNeeded(Color letters, Color halo, Color background) {
  const auto isLegible = [&](double alpha) {
    return contrast(letters, layered(background, halo.withAlpha(alpha))) >= kLegible;
  };
  if (isLegible(0)) return 0;
  if (!isLegible(1)) return 2;
  double tooLittle = 0;
  double enough = 1;
  for (int step = 0; step < 5; ++step) {
    const double middle = (tooLittle + enough) / 2;
    (isLegible(middle) ? enough : tooLittle) = middle;
  }
  return enough;
}

double alphaNeeded(Color ink, Color halo, const std::array<Color, 2>& backgrounds) {
  const auto [first, second] = backgrounds;
  return std::max(alphaNeeded(layered(first, ink), halo, first), alphaNeeded(layered(second, ink), halo, second));
}

}  // namespace

Color legibleHalo(Color ink, const std::array<Color, 2>& backgrounds) {
  constexpr Color kBlack{0, 0, 0, 1};
  constexpr Color kWhite{1, 1, 1, 1};
  const double black = alphaNeeded(ink, kBlack, backgrounds);
  if (black <= 1) return kBlack.withAlpha(black);
  const double white = alphaNeeded(ink, kWhite, backgrounds);
  return white <= 1 ? kWhite.withAlpha(white) : kBlack;
}

}  // namespace rondora
