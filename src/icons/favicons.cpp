#include "icons/favicons.h"

#include <algorithm>
#include <set>
#include <utility>

#include "icons/icon_reference.h"

namespace rondora {
namespace {

constexpr double kSettlingTime = 5;  // seconds; start-up and bursts of edits finish first
constexpr double kOfflineRetry = 5 * 60;
constexpr double kMinPause = 60;
constexpr double kMaxPause = 6 * 60 * 60;  // timers may stop while the machine sleeps
constexpr double kSavePause = 5;           // between two writes of the index
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
  due_.clear();
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

/// Looks at every target; a finished lookup only goes on with the next of those that are due.
void Favicons::work() {
  wake_.reset();
  due_.clear();
  std::for_each(targets_.rbegin(), targets_.rend(), [this](const Target& target) {
    if (!lookups_.contains(target.file) && cache_.secondsUntilDue(target.file) <= 0) due_.push_back(&target);
  });
  startDue();
}

void Favicons::startDue() {
  while (!due_.empty() && lookups_.size() < kMaxLookups) {
    const Target& target = *due_.back();
    due_.pop_back();
    if (ports_.network.canReach(target.site.host())) start(target);
  }
  // A finished lookup calls this again, so no timer is needed before.
  const bool isDone = due_.empty() && lookups_.empty() && !targets_.empty();
  if (isDone && !wake_) wakeAfter(std::clamp(secondsUntilNext(), kMinPause, kMaxPause));
}

/// What is still due could not be reached.
double Favicons::secondsUntilNext() {
  double pause = kMaxPause;
  for (const Target& target : targets_) {
    const double until = cache_.secondsUntilDue(target.file);
    pause = std::min(pause, until > 0 ? until : kOfflineRetry);
  }
  return pause;
}

void Favicons::saveSoon() {
  save_ = ports_.mainQueue.workItem(kSavePause, weakSelf_.bind([](Favicons& self) {
    if (self.isRingOpen && self.isRingOpen()) return self.saveSoon();
    self.save_.reset();
    self.save();
  }));
}

void Favicons::start(const Target& target) {
  lookups_[target.file] = std::make_unique<FaviconLookup>(
      FaviconLookup::Ports{ports_.network, ports_.decoder, ports_.mainQueue}, target.site,
      weakSelf_.bind(
          [file = target.file](Favicons& self, const FaviconResult& result) { self.finished(file, result); }));
}

void Favicons::finished(const std::filesystem::path& file, const FaviconResult& result) {
  const bool isNew = cache_.note(file, result);
  if (!save_) saveSoon();
  auto lookup = lookups_.extract(file);
  // The lookup is the caller, so it is destroyed on a later turn.
  ports_.mainQueue.async([ended = std::shared_ptr(std::move(lookup.mapped()))] {});
  startDue();
  if (isNew && onPicture) onPicture();
}

}  // namespace rondora
