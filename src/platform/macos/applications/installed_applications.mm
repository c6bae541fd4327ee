#include "platform/macos/applications/installed_applications.h"

#include <Foundation/Foundation.h>

#include <set>
#include <utility>

#include "platform/macos/applications/bundle_names.h"
#include "platform/macos/conversions/application_bundles.h"
#include "platform/macos/conversions/application_information.h"
#include "platform/macos/foundation/cf_values.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

/// Where two bundles have the same identifier, the first counts.
std::vector<std::string> roots() {
  return {textOf(NSHomeDirectory()) + "/Applications", "/Applications", "/System/Applications",
          "/System/Cryptexes/App/System/Applications", "/System/Library/CoreServices/Finder.app"};
}

std::optional<StartableApplication> applicationIn(const std::filesystem::path& bundle) {
  NSString* path = nsString(bundle.native());
  const auto information = CFRef<CFDictionaryRef>::adopt(
      CFBundleCopyInfoDictionaryInDirectory((__bridge CFURLRef)[NSURL fileURLWithPath:path]));
  return startableApplication(propertyListOf(information.get()), nameOfBundle(path));
}

}  // namespace

InstalledApplications::InstalledApplications() : watch_(roots(), [this] { changed_.send(); }) {}

std::vector<StartableApplication> InstalledApplications::startableApplications() const {
  std::vector<StartableApplication> applications;
  std::set<std::string> taken;
  for (const std::string& root : roots()) {
    for (const auto& bundle : applicationBundles(root)) {
      @autoreleasepool {
        auto application = applicationIn(bundle);
        if (application && taken.insert(application->bundleIdentifier).second) {
          applications.push_back(*std::move(application));
        }
      }
    }
  }
  return applications;
}

}  // namespace rondora::macos
