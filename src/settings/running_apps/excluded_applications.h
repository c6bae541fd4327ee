#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "localization/localization_store.h"
#include "platform/text_order.h"
#include "platform/workspace.h"
#include "settings/applications/application_list.h"
#include "settings/editing/edit_history.h"

namespace rondora {

/// The applications that the menu of running applications leaves out. Main thread.
class ExcludedApplications {
 public:
  /// The references must outlive the object.
  struct Services {
    EditHistory& history;
    const Workspace& workspace;
    const TextOrder& order;
    const LocalizationStore& localization;
    /// This program's, which the menu always leaves out.
    std::string ownBundleIdentifier;
  };
  struct Row {
    std::string bundleIdentifier;
    std::string name;
    /// That it is not installed; empty when it is, or runs.
    std::string note;
    friend bool operator==(const Row&, const Row&) = default;
  };

  explicit ExcludedApplications(Services services) : services_(std::move(services)) {}

  /// In the order of their names.
  std::vector<Row> rows() const;
  /// Each is a step that can be undone; without effect when the application is, or is not, left out already.
  void exclude(const std::string& bundleIdentifier);
  void include(std::string_view bundleIdentifier);
  /// The applications to choose from for `exclude`: the running ones first.
  ApplicationList::Offer offer() const;

  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return services_.history.onChanged(std::move(observer));
  }

 private:
  std::vector<std::string> identifiers() const;
  std::optional<std::string> name(std::string_view bundleIdentifier) const;

  Services services_;
};

}  // namespace rondora
