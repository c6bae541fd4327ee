#pragma once

namespace rondora {

struct AppearancePhase {
  double scale = 1;
  double opacity = 1;
  friend bool operator==(const AppearancePhase&, const AppearancePhase&) = default;
};

/// The ring grows slightly and fades in, fast at first. Durations are seconds.
struct OpeningAnimation {
  double duration = 0;

  bool isOver(double elapsed) const { return !(elapsed < duration); }
  AppearancePhase phase(double elapsed) const;
};

}  // namespace rondora
