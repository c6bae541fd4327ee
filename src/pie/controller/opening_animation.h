#pragma once

namespace rondora {

struct AppearancePhase {
  double scale = 1;
  double opacity = 1;
  friend bool operator==(const AppearancePhase&, const AppearancePhase&) = default;
};

/// How the ring comes up: it grows a little and fades in, fast first. Seconds.
struct OpeningAnimation {
  static constexpr double kLongest = 2;

  double duration = 0;

  /// A duration that is no positive number means none; a long one is cut.
  static OpeningAnimation lasting(double seconds);

  bool isOver(double elapsed) const { return !(elapsed < duration); }
  AppearancePhase phase(double elapsed) const;
};

}  // namespace rondora
