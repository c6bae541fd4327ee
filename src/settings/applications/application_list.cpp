#include "settings/applications/application_list.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "base/unicode.h"
#include "model/first_run_items.h"

namespace rondora {
namespace {

/// In the order of `kFirstRunItems`.
constexpr std::array<StringKey, kFirstRunItems.size()> kKinds = {
    StringKey::kindWebBrowser,     StringKey::kindTerminal,    StringKey::kindFileManager,
    StringKey::kindSystemSettings, StringKey::kindMusicPlayer, StringKey::kindTextEditor};

bool isRegular(const RunningApplication& application) {
  return application.activationPolicy == ActivationPolicy::regular && !application.isTerminated &&
         !application.bundleIdentifier.value_or("").empty();
}

std::string searchTexts(const StartableApplication& application) {
  std::string key;
  const auto add = [&key](std::string_view text) {
    if (!key.empty()) key += ' ';
    appendSearchKey(key, text);
  };
  add(application.genericName);
  for (const std::string& keyword : application.keywords) add(keyword);
  add(application.executable);
  add(application.bundleIdentifier);
  return key;
}

}  // namespace

ApplicationList::ApplicationList(Services services, Offer offer)
    : services_(std::move(services)), offer_(std::move(offer)) {
  if (services_.onInstalledChanged) {
    installedChanged_ = services_.onInstalledChanged([this] {
      read();
      changed_.send();
    });
  }
  read();
}

/// The installed ones, and the running ones that are not, in the order of their names.
std::vector<StartableApplication> ApplicationList::applications() const {
  auto all = services_.directory.startableApplications();
  std::set<std::string> taken;
  for (const auto& each : all) taken.insert(lowerCased(each.bundleIdentifier));
  for (const RunningApplication& each : services_.workspace.runningApplications()) {
    if (!isRegular(each) || !taken.insert(lowerCased(*each.bundleIdentifier)).second) continue;
    const std::string& name = each.localizedName.empty() ? *each.bundleIdentifier : each.localizedName;
    all.push_back({*each.bundleIdentifier, name, {}, {}, {}});
  }
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const auto& each : all) names.push_back(each.name);
  std::vector<StartableApplication> ordered;
  for (const std::size_t place : services_.order.order(names, rawValue(services_.localization.language()))) {
    ordered.push_back(std::move(all[place]));
  }
  return ordered;
}

ApplicationList::Entry ApplicationList::entryOf(const StartableApplication& application, bool isRunning) const {
  std::string name = searchKey(application.name);
  const bool saysMore = searchKey(application.genericName) != name;
  return {{application.bundleIdentifier, application.name, saysMore ? application.genericName : "", isRunning},
          std::move(name),
          searchTexts(application)};
}

void ApplicationList::read() {
  std::set<std::string> running;
  for (const RunningApplication& each : services_.workspace.runningApplications()) {
    if (isRegular(each)) running.insert(lowerCased(*each.bundleIdentifier));
  }
  identifiers_.clear();
  for (const std::string& each : offer_.without) identifiers_.insert(lowerCased(each));
  entries_.clear();
  for (const StartableApplication& each : applications()) {
    std::string identifier = lowerCased(each.bundleIdentifier);
    const bool isRunning = running.contains(identifier);
    if (identifiers_.insert(std::move(identifier)).second) entries_.push_back(entryOf(each, isRunning));
  }
  tellApart();
  if (offer_.runningFirst) {
    std::stable_partition(entries_.begin(), entries_.end(), [](const Entry& each) { return each.choice.isRunning; });
  }
  if (offer_.kinds) addKinds();
  search(std::exchange(search_, {}));
}

/// An identifier that names an installed application stands for nothing else.
void ApplicationList::addKinds() {
  std::vector<Entry> kinds;
  for (std::size_t i = 0; i < kFirstRunItems.size(); ++i) {
    const std::string identifier(kFirstRunItems[i].bundleIdentifier);
    const auto application = services_.workspace.applicationName(identifier);
    if (!application || !isNew(identifier)) continue;
    const std::string name(services_.localization.text(kKinds[i]));
    kinds.push_back({{identifier, name, *application, false}, searchKey(name), searchKey(*application)});
  }
  entries_.insert(entries_.begin(), std::make_move_iterator(kinds.begin()), std::make_move_iterator(kinds.end()));
}

/// Entries that look the same show their identifiers.
void ApplicationList::tellApart() {
  std::map<std::pair<std::string, std::string>, int> uses;
  for (const Entry& each : entries_) ++uses[{each.choice.name, each.choice.detail}];
  for (Entry& each : entries_) {
    if (uses[{each.choice.name, each.choice.detail}] > 1) each.choice.detail = each.choice.bundleIdentifier;
  }
}

bool ApplicationList::isNew(std::string_view bundleIdentifier) const {
  return !identifiers_.contains(lowerCased(bundleIdentifier));
}

/// One word of visible characters; with a dot, which reversed domains have, or when nothing else is found.
bool ApplicationList::isIdentifier(std::string_view text) const {
  const bool isWord =
      !text.empty() && text.find_first_of(" /") == std::string_view::npos && controlsEscaped(text) == text;
  const bool isMeant = found_.empty() || text.find('.') != std::string_view::npos;
  return isWord && isMeant && isNew(text);
}

ApplicationList::Match ApplicationList::match(const Entry& entry, const WordQuery& query) const {
  if (entry.name.starts_with(query.key())) return Match::beginning;
  if (query.finds({entry.name})) return Match::name;
  if (query.finds({entry.name, entry.others})) return Match::others;
  return entry.name.find(query.key()) != std::string::npos ? Match::within : Match::none;
}

void ApplicationList::search(std::string_view text) {
  search_ = text;
  const WordQuery query(text);
  std::array<std::vector<const Entry*>, static_cast<std::size_t>(Match::none) + 1> groups;
  for (const Entry& each : entries_) groups.at(static_cast<std::size_t>(match(each, query))).push_back(&each);
  groups.back().clear();
  found_.clear();
  for (const auto& group : groups) {
    for (const Entry* each : group) found_.push_back(each->choice);
  }
  const std::string_view identifier = trimmed(text);
  if (isIdentifier(identifier)) {
    const std::string name = services_.localization.text(StringKey::applicationsIdentifier, identifier);
    found_.push_back({std::string(identifier), name, {}, false, true});
  }
}

}  // namespace rondora
