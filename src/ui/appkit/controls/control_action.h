#pragma once

#include <AppKit/AppKit.h>

#include <functional>

/// A target that calls a function.
@interface RondoraControlAction : NSObject
- (instancetype)initWithFunction:(std::function<void()>)function;
- (void)perform;
@end

namespace rondora::appkit {

/// Has the function called when the control sends its action. The control keeps it.
void setAction(NSControl* control, std::function<void()> function);

}  // namespace rondora::appkit
