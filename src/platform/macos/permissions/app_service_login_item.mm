#include "platform/macos/permissions/app_service_login_item.h"

#include <ServiceManagement/ServiceManagement.h>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

LoginItemError errorUnless(BOOL success, NSError* error) {
  return success ? std::nullopt : LoginItemError(textOf(error.localizedDescription));
}

}  // namespace

LoginItemError AppServiceLoginItem::add() {
  if (isListed()) return std::nullopt;
  NSError* error = nil;
  const BOOL success = [SMAppService.mainAppService registerAndReturnError:&error];
  return errorUnless(success, error);
}

LoginItemError AppServiceLoginItem::remove() {
  const SMAppServiceStatus status = SMAppService.mainAppService.status;
  if (status == SMAppServiceStatusNotRegistered || status == SMAppServiceStatusNotFound) return std::nullopt;
  NSError* error = nil;
  const BOOL success = [SMAppService.mainAppService unregisterAndReturnError:&error];
  return errorUnless(success, error);
}

bool AppServiceLoginItem::isListed() const { return SMAppService.mainAppService.status == SMAppServiceStatusEnabled; }

}  // namespace rondora::macos
