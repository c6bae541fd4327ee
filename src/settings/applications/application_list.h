#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "base/word_query.h"
#include "localization/localization_store.h"
#include "platform/application_directory.h"
#include "platform/text_order.h"
#include "platform/workspace.h"

namespace rondora {

/// An application that the user can choose.
struct ApplicationChoice {
  std::string bundleIdentifier;
  /// As the list shows it.
  std::string name;
  /// What kind of application it is, or what tells it from another of the same name; may be empty.
  std::string detail;
  bool isRunning = false;
  /// No application of the list, but the identifier that the user typed.
  bool isTyped = false;
  friend bool operator==(const ApplicationChoice&, const ApplicationChoice&) = default;
};

/// The applications that the user chooses from, installed and running ones, in the order of their names. Made when a
/// list is opened, since it reads all of them. Main thread.
class ApplicationList {
 public:
  /// The references must outlive the object.
  struct Services {
    const ApplicationDirectory& directory;
    const Workspace& workspace;
    const TextOrder& order;
    const LocalizationStore& localization;
    /// See `Platform::onInstalledApplicationsChanged`; may be empty.
    std::function<Subscription(std::function<void()>)> onInstalledChanged;
  };
  /// What the list offers besides.
  struct Offer {
    /// The default application of each kind that the first-run document names, whichever it is later.
    bool kinds = false;
    /// Running applications before the others.
    bool runningFirst = false;
    /// Identifiers that are not offered.
    std::vector<std::string> without;
  };

  ApplicationList(Services services, Offer offer);

  /// Shows the applications that the text finds: those whose name begins with it, then those with such words in their
  /// name, their other texts, and last within a name. A text that can be the identifier of another application is
  /// offered as that. An empty text finds all.
  void search(std::string_view text);
  const std::vector<ApplicationChoice>& found() const { return found_; }

  /// The observer is called when applications were installed or removed.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }
  /// Reads the applications and their texts again; the search stays.
  void read();

 private:
  struct Entry {
    ApplicationChoice choice;
    // Search keys.
    std::string name;
    std::string others;
  };
  enum class Match { beginning, name, others, within, none };

  std::vector<StartableApplication> applications() const;
  Entry entryOf(const StartableApplication& application, bool isRunning) const;
  void addKinds();
  void tellApart();
  bool isNew(std::string_view bundleIdentifier) const;
  bool isIdentifier(std::string_view text) const;
  Match match(const Entry& entry, const WordQuery& query) const;

  Services services_;
  Offer offer_;
  /// In lower case: those of the list, and those that are not offered.
  std::set<std::string, std::less<>> identifiers_;
  std::vector<Entry> entries_;
  std::vector<ApplicationChoice> found_;
  std::string search_;
  Signal<> changed_;
  Subscription installedChanged_;
};

}  // namespace rondora
