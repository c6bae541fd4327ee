#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/application_directory.h"
#include "platform/linux/application_catalogue.h"
#include "platform/linux/desktop/application_launcher.h"
#include "platform/linux/desktop/default_applications.h"
#include "platform/linux/desktop/desktop_entries.h"
#include "platform/linux/desktop/started_processes.h"
#include "platform/linux/desktop/system_places.h"
#include "platform/linux/desktop/url_handlers.h"

namespace rondora::desktop {

/// The applications of the installed desktop entries.
class InstalledApplications final : public ApplicationCatalogue, public ApplicationDirectory {
 public:
  /// `environment` must outlive the object.
  InstalledApplications(const ProcessEnvironment& environment, StartedProcesses::WatchReadable watchReadable);

  /// Fills the caches that the first look-up would wait for; call it while idle after start-up.
  void warmUp() const;
  /// Reports that applications or file-type associations may have changed; the next look-up reads them again.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return entries_.onChanged(std::move(observer));
  }

  std::vector<StartableApplication> startableApplications() const override { return entries_.startable(); }

  std::optional<std::string> identify(const WindowIdentity& window) const override;
  std::string resolve(std::string_view bundleIdentifier) const override;
  std::optional<std::string> contentType(std::string_view bundleIdentifier) const override {
    return DefaultApplications::contentType(bundleIdentifier);
  }
  bool isInstalled(std::string_view id) const override;
  std::optional<std::string> name(std::string_view id) const override;
  std::optional<ApplicationIconSource> iconSource(std::string_view id) const override;
  std::optional<std::string> applicationAtPath(std::string_view path) const override;
  bool launch(std::string_view id, UserTime time) override;
  StartedProcess startedProcess(std::string_view id) const override { return processes_.state(id); }
  bool openUrl(std::string_view url, UserTime time) override;

 private:
  DesktopEntries entries_;
  DefaultApplications defaults_;
  UrlHandlers urlHandlers_;
  ApplicationLauncher launcher_;
  SystemPlaces places_;
  StartedProcesses processes_;
};

}  // namespace rondora::desktop
