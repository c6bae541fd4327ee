#include "platform/macos/permissions/privacy_permissions.h"

#include <ApplicationServices/ApplicationServices.h>

#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

bool PrivacyPermissions::isProcessTrusted() const { return AXIsProcessTrusted(); }

void PrivacyPermissions::promptForTrust() {
  const void* keys[] = {kAXTrustedCheckOptionPrompt};
  const void* values[] = {kCFBooleanTrue};
  const auto options = CFRef<CFDictionaryRef>::adopt(CFDictionaryCreate(
      kCFAllocatorDefault, keys, values, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  AXIsProcessTrustedWithOptions(options.get());
}

bool PrivacyPermissions::preflightListenEventAccess() const { return CGPreflightListenEventAccess(); }

void PrivacyPermissions::requestListenEventAccess() { CGRequestListenEventAccess(); }

std::optional<Subscription> PrivacyPermissions::onMayHaveChanged(std::function<void()> /*observer*/) {
  return std::nullopt;
}

}  // namespace rondora::macos
