#include "icons/favicons.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "icons/icon_reference.h"

namespace rondora {
namespace {

constexpr double kSettlingTime = 5;  // seconds: start-up and bursts of edits come first
constexpr double kOfflineRetry = 5 * 60;
constexpr double kShortestPause = 60;
constexpr double kLongestPause = 6 * 60 * 60;  // timers may stand still while the machine sleeps
constexpr std::size_t kMostAtATime = 3;

/// Documents of earlier builds name files of the cache; only what looks like a picture's name is filled again.
bool isPictureName(const std::filesystem::path& name) {
  const std::string text = name.string();
  return name.has_extension() && text.find_first_of(" \t\r\n\v\f") == text.npos;
}

}  // namespace

Favicons::Favicons(const Ports& ports) : ports_(ports), cache_(ports.files, ports.clock) {}

std::optional<std::filesystem::path> Favicons::picture(std::string_view site) const {
  const auto address = WebAddress::parse(site);
  if (!address) return std::nullopt;
  auto file = cache_.fileOf(*address);
  if (!cache_.has(file)) return std::nullopt;
  return file;
}

std::optional<Favicons::Wish> Favicons::wishOf(const PieMenuItem& item) const {
  const IconReference icon = IconReference::of(item);
  if (icon.kind == IconKind::favicon) {
    const auto site = WebAddress::parse(icon.name);
    return site ? std::optional(Wish{*site, cache_.fileOf(*site)}) : std::nullopt;
  }
  const auto* action = std::get_if<OpenURL>(&item.action);
  if (icon.kind != IconKind::imageFile || action == nullptr) return std::nullopt;
  const std::filesystem::path file = icon.name;
  const auto site = WebAddress::parse(action->url);
  if (!site || file.parent_path() != cache_.folder() || !isPictureName(file.filename()) || cache_.has(file)) {
    return std::nullopt;
  }
  return Wish{site->root(), file};
}

void Favicons::prefetch(const PieConfiguration& configuration) {
  wishes_.clear();
  const auto isTaken = [this](const Wish& wish) {
    return std::any_of(wishes_.begin(), wishes_.end(), [&wish](const Wish& other) { return other.file == wish.file; });
  };
  for (const PieMenu& menu : configuration.menus) {
    for (const PieMenuItem& item : menu.items) {
      auto wish = wishOf(item);
      if (wish && !isTaken(*wish)) wishes_.push_back(*std::move(wish));
    }
  }
  std::erase_if(lookups_, [&](const auto& lookup) { return !isTaken({{}, lookup.first}); });
  wake_.reset();
  if (!wishes_.empty()) wakeAfter(kSettlingTime);
}

void Favicons::wakeAfter(double seconds) {
  wake_ = ports_.mainQueue.workItem(seconds, weakSelf_.bind([](Favicons& self) { self.work(); }));
}

void Favicons::work() {
  double pause = std::numeric_limits<double>::infinity();
  for (const Wish& wish : wishes_) {
    if (lookups_.contains(wish.file)) continue;
    double until = cache_.secondsUntilDue(wish.file);
    if (until <= 0 && !ports_.network.canReach(wish.site.host())) until = kOfflineRetry;
    if (until > 0) {
      pause = std::min(pause, until);
    } else if (lookups_.size() < kMostAtATime) {
      start(wish);
    }
  }
  // A lookup that ends comes back here, so the rest needs no timer.
  if (lookups_.empty() && !wishes_.empty()) wakeAfter(std::clamp(pause, kShortestPause, kLongestPause));
}

void Favicons::start(const Wish& wish) {
  lookups_[wish.file] = std::make_unique<FaviconLookup>(
      FaviconLookup::Ports{ports_.network, ports_.codec, ports_.mainQueue}, wish.site,
      weakSelf_.bind([file = wish.file](Favicons& self, const FaviconResult& result) { self.finished(file, result); }));
}

void Favicons::finished(const std::filesystem::path& file, const FaviconResult& result) {
  const bool isNew = cache_.note(file, result);
  auto lookup = lookups_.extract(file);
  // It is the one that is calling, so it goes on a later turn.
  ports_.mainQueue.async([ended = std::shared_ptr(std::move(lookup.mapped()))] {});
  work();
  if (isNew && onPicture) onPicture();
}

}  // namespace rondora
