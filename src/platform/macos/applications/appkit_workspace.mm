#include "platform/macos/applications/appkit_workspace.h"

#include <AppKit/AppKit.h>

#include "platform/macos/applications/bundle_names.h"
#include "platform/macos/foundation/notification_subscription.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

/// The main window alone comes to the front, not all windows of the application.
constexpr NSApplicationActivationOptions kMainWindowOnly = 0;

ActivationPolicy policyOf(NSRunningApplication* application) {
  switch (application.activationPolicy) {
    case NSApplicationActivationPolicyRegular:
      return ActivationPolicy::regular;
    case NSApplicationActivationPolicyAccessory:
      return ActivationPolicy::accessory;
    default:
      return ActivationPolicy::prohibited;
  }
}

RunningApplication snapshotOf(NSRunningApplication* application) {
  RunningApplication snapshot;
  snapshot.processIdentifier = application.processIdentifier;
  if (NSString* identifier = application.bundleIdentifier) snapshot.bundleIdentifier = textOf(identifier);
  snapshot.localizedName = textOf(application.localizedName);
  snapshot.activationPolicy = policyOf(application);
  snapshot.isTerminated = application.isTerminated;
  snapshot.isHidden = application.isHidden;
  return snapshot;
}

std::vector<RunningApplication> snapshotsOf(NSArray<NSRunningApplication*>* applications) {
  std::vector<RunningApplication> snapshots;
  snapshots.reserve(applications.count);
  for (NSRunningApplication* application in applications) snapshots.push_back(snapshotOf(application));
  return snapshots;
}

/// Nil when it has ended, also when another process has its identifier by now.
NSRunningApplication* processOf(const RunningApplication& application) {
  NSRunningApplication* process =
      [NSRunningApplication runningApplicationWithProcessIdentifier:application.processIdentifier];
  return process != nil && snapshotOf(process).isSameProcess(application) ? process : nil;
}

NSURL* bundleOf(std::string_view bundleIdentifier) {
  return [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:nsString(bundleIdentifier)];
}

}  // namespace

std::optional<RunningApplication> AppKitWorkspace::frontmostApplication() const {
  NSRunningApplication* application = NSWorkspace.sharedWorkspace.frontmostApplication;
  return application == nil ? std::nullopt : std::optional(snapshotOf(application));
}

std::vector<RunningApplication> AppKitWorkspace::runningApplications() const {
  return snapshotsOf(NSWorkspace.sharedWorkspace.runningApplications);
}

std::vector<RunningApplication> AppKitWorkspace::runningApplications(std::string_view bundleIdentifier) const {
  return snapshotsOf([NSRunningApplication runningApplicationsWithBundleIdentifier:nsString(bundleIdentifier)]);
}

bool AppKitWorkspace::activate(const RunningApplication& application) {
  return [processOf(application) activateWithOptions:kMainWindowOnly];
}

void AppKitWorkspace::unhide(const RunningApplication& application) { [processOf(application) unhide]; }

bool AppKitWorkspace::hide(const RunningApplication& application) { return [processOf(application) hide]; }

bool AppKitWorkspace::terminate(const RunningApplication& application) { return [processOf(application) terminate]; }

std::optional<ApplicationLocation> AppKitWorkspace::urlForApplication(std::string_view bundleIdentifier) const {
  NSString* path = bundleOf(bundleIdentifier).path;
  return path == nil ? std::nullopt : std::optional(ApplicationLocation{textOf(path)});
}

std::optional<std::string> AppKitWorkspace::contentType(std::string_view /*bundleIdentifier*/) const {
  return std::nullopt;
}

bool AppKitWorkspace::openApplication(const ApplicationLocation& location) {
  [NSWorkspace.sharedWorkspace openApplicationAtURL:[NSURL fileURLWithPath:nsString(location.value)]
                                      configuration:[NSWorkspaceOpenConfiguration configuration]
                                  completionHandler:nil];
  return true;
}

StartedProcess AppKitWorkspace::startedProcess(const ApplicationLocation& /*location*/) const {
  return StartedProcess::unknown;
}

std::optional<ApplicationLocation> AppKitWorkspace::applicationAtPath(std::string_view path) const {
  if (![NSFileManager.defaultManager fileExistsAtPath:nsString(path)]) return std::nullopt;
  return ApplicationLocation{std::string(path)};
}

bool AppKitWorkspace::openUrl(std::string_view url) {
  NSURL* address = [NSURL URLWithString:nsString(url)];
  return address != nil && [NSWorkspace.sharedWorkspace openURL:address];
}

std::optional<std::string> AppKitWorkspace::applicationName(std::string_view bundleIdentifier) const {
  NSString* path = bundleOf(bundleIdentifier).path;
  return path == nil ? std::nullopt : std::optional(nameOfBundle(path));
}

Subscription AppKitWorkspace::onDidActivateApplication(std::function<void(const RunningApplication&)> observer) {
  return observe(NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceDidActivateApplicationNotification,
                 ^(NSNotification* notification) {
                   const id application = notification.userInfo[NSWorkspaceApplicationKey];
                   if ([application isKindOfClass:NSRunningApplication.class]) observer(snapshotOf(application));
                 });
}

}  // namespace rondora::macos
