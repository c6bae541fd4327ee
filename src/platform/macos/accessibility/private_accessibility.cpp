#include "platform/macos/accessibility/private_accessibility.h"

#include "platform/macos/foundation/application_services.h"
#include "platform/macos/foundation/private_library.h"

namespace rondora::macos {
namespace {

using GetWindow = AXError (*)(AXUIElementRef element, CGWindowID* window);
using CreateWithRemoteToken = AXUIElementRef (*)(CFDataRef token);

struct Functions {
  const PrivateLibrary library{kApplicationServicesPath};
  const GetWindow getWindow = library.function<GetWindow>("_AXUIElementGetWindow");
  const CreateWithRemoteToken createWithRemoteToken =
      library.function<CreateWithRemoteToken>("_AXUIElementCreateWithRemoteToken");
};

const Functions& functions() {
  static const Functions found;
  return found;
}

}  // namespace

CGWindowID windowNumberOf(AXUIElementRef element) {
  const GetWindow getWindow = functions().getWindow;
  CGWindowID window = 0;
  return getWindow != nullptr && getWindow(element, &window) == kAXErrorSuccess ? window : 0;
}

CFRef<AXUIElementRef> elementForToken(const RemoteToken& token) {
  const CreateWithRemoteToken create = functions().createWithRemoteToken;
  if (create == nullptr) return {};
  const auto data =
      CFRef<CFDataRef>::adopt(CFDataCreate(kCFAllocatorDefault, token.data(), static_cast<CFIndex>(token.size())));
  return CFRef<AXUIElementRef>::adopt(create(data.get()));
}

}  // namespace rondora::macos
