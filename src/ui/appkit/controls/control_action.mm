#include "ui/appkit/controls/control_action.h"

#include <utility>

@implementation RondoraControlAction {
  std::function<void()> function_;
}

- (instancetype)initWithFunction:(std::function<void()>)function {
  self = [super init];
  if (self != nil) function_ = std::move(function);
  return self;
}

- (void)perform {
  // A copy: it may replace what keeps this object.
  const auto function = function_;
  if (function) function();
}

@end

namespace rondora::appkit {

void setAction(NSControl* control, std::function<void()> function) {
  RondoraControlAction* action = [[RondoraControlAction alloc] initWithFunction:std::move(function)];
  control.target = action;
  control.action = @selector(perform);
  control.cell.representedObject = action;  // the target is weak
}

}  // namespace rondora::appkit
