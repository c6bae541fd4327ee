#include "icons/favicons.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

#include "icons/icon_reference.h"

namespace rondora {
namespace {

constexpr double kSettlingTime = 5;  // seconds; start-up and bursts of edits finish first
constexpr double kOfflineRetry = 5 * 60;
constexpr double kMinPause = 60;
constexpr double kMaxPause = 6 * 60 * 60;  // timers may stop while the machine sleeps
constexpr std::size_t kMaxLookups = 3;

/// Documents of earlier builds name files of the cache directly; only plausible picture names are restored.
bool isPictureName(const std::filesystem::path& name) {
  const std::string text = name.string();
  return name.has_extension() && text.find_first_of(" \t\r\n\v\f") == text.npos;
}

}  // namespace

Favicons::Favicons(const Ports& ports) : ports_(ports), cache_(ports.files, ports.clock, ports.log) {}

std::optional<std::filesystem::path> Favicons::picture(std::string_view site) const {
  const auto address = WebAddress::parse(site);
  if (!address) return std::nullopt;
  auto file = cache_.fileOf(*address);
  if (!cache_.has(file)) return std::nullopt;
  return file;
}

std::optional<Favicons::Target> Favicons::targetOf(const PieMenuItem& item) const {
  const IconReference icon = IconReference::of(item);
  if (icon.kind == IconKind::favicon) {
    const auto site = WebAddress::parse(icon.name);
    return site ? std::optional(Target{*site, cache_.fileOf(*site)}) : std::nullopt;
  }
  const auto* action = std::get_if<OpenURL>(&item.action);
  if (icon.kind != IconKind::imageFile || action == nullptr) return std::nullopt;
  const std::filesystem::path file = icon.name;
  const auto site = WebAddress::parse(action->url);
  if (!site || file.parent_path() != cache_.folder() || !isPictureName(file.filename()) || cache_.has(file)) {
    return std::nullopt;
  }
  return Target{site->root(), file};
}

void Favicons::prefetch(const PieConfiguration& configuration) {
  targets_.clear();
  std::set<std::filesystem::path> files;
  for (const PieMenu& menu : configuration.menus) {
    for (const PieMenuItem& item : menu.items) {
      auto target = targetOf(item);
      if (target && files.insert(target->file).second) targets_.push_back(*std::move(target));
    }
  }
  std::erase_if(lookups_, [&](const auto& lookup) { return !files.contains(lookup.first); });
  wake_.reset();
  if (!targets_.empty()) wakeAfter(kSettlingTime);
}

void Favicons::wakeAfter(double seconds) {
  wake_ = ports_.mainQueue.workItem(seconds, weakSelf_.bind([](Favicons& self) { self.work(); }));
}

void Favicons::work() {
  double pause = std::numeric_limits<double>::infinity();
  for (const Target& target : targets_) {
    if (lookups_.contains(target.file)) continue;
    double until = cache_.secondsUntilDue(target.file);
    if (until <= 0 && !ports_.network.canReach(target.site.host())) until = kOfflineRetry;
    if (until > 0) {
      pause = std::min(pause, until);
    } else if (lookups_.size() < kMaxLookups) {
      start(target);
    }
  }
  // A finished lookup calls this again, so no timer is needed before.
  if (lookups_.empty() && !targets_.empty()) wakeAfter(std::clamp(pause, kMinPause, kMaxPause));
}

void Favicons::start(const Target& target) {
  lookups_[target.file] = std::make_unique<FaviconLookup>(
      FaviconLookup::Ports{ports_.network, ports_.decoder, ports_.mainQueue}, target.site,
      weakSelf_.bind(
          [file = target.file](Favicons& self, const FaviconResult& result) { self.finished(file, result); }));
}

void Favicons::finished(const std::filesystem::path& file, const FaviconResult& result) {
  const bool isNew = cache_.note(file, result);
  auto lookup = lookups_.extract(file);
  // The lookup is the caller, so it is destroyed on a later turn.
  ports_.mainQueue.async([ended = std::shared_ptr(std::move(lookup.mapped()))] {});
  work();
  if (isNew && onPicture) onPicture();
}

}  // namespace rondora
