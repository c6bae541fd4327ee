#pragma once

#include <map>
#include <string>
#include <vector>

#include "doubles/value_at.h"
#include "platform/announcer.h"
#include "platform/application_icons.h"
#include "platform/haptics.h"
#include "platform/random_source.h"
#include "platform/trackpads.h"

// Small ports without state.

namespace rondora {

class FakeHaptics final : public Haptics {
 public:
  bool isAvailable() const override { return hasDevice; }
  void perform(HapticPattern pattern) override { performed.push_back(pattern); }

  bool hasDevice = true;
  std::vector<HapticPattern> performed;
};

class FakeAnnouncer final : public Announcer {
 public:
  bool hasListeners() const override { return isHeard; }
  void announce(std::string sentence) override { said.push_back("“" + sentence + "”"); }
  void withdraw() override { said.emplace_back("withdrawn"); }

  bool isHeard = false;
  std::vector<std::string> said;
};

class FakeTrackpads final : public Trackpads {
 public:
  TrackpadAccess access() const override { return state; }

  TrackpadAccess state = TrackpadAccess::none;
};

/// The same numbers for the same seed on every machine (SplitMix64).
class SeededRandom final : public RandomSource {
 public:
  explicit SeededRandom(std::uint64_t seed = 1) : state_(seed) {}
  std::uint64_t next() override {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
  }

 private:
  std::uint64_t state_;
};

class FakeApplicationIcons final : public ApplicationIcons {
 public:
  using Sources = std::map<std::string, ApplicationIconSource, std::less<>>;

  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override {
    return valueAt(sources, bundleIdentifier);
  }
  std::optional<ApplicationIconSource> windowIconSource(std::string_view bundleIdentifier) const override {
    return valueAt(windowSources, bundleIdentifier);
  }

  Sources sources;
  Sources windowSources;
};

}  // namespace rondora
