#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include "platform/macos/conversions/remote_token.h"
#include "platform/macos/foundation/cf_ref.h"

// Functions of the accessibility interface that its headers do not declare; without them nothing is known. Any thread.

namespace rondora::macos {

/// The window server's number of the window that the element is, or lies in; 0 for none.
CGWindowID windowNumberOf(AXUIElementRef element);

/// None when the system makes no element of it. Whether the application has such an element shows its first message.
CFRef<AXUIElementRef> elementForToken(const RemoteToken& token);

}  // namespace rondora::macos
