#include "ui/appkit/overlay/overlay_window.h"

#include <utility>

namespace {

using Style = rondora::OverlayPanelStyle;

static_assert(Style::kMoveToActiveSpace == NSWindowCollectionBehaviorMoveToActiveSpace);
static_assert(Style::kTransient == NSWindowCollectionBehaviorTransient);
static_assert(Style::kIgnoresCycle == NSWindowCollectionBehaviorIgnoresCycle);
static_assert(Style::kFullScreenAuxiliary == NSWindowCollectionBehaviorFullScreenAuxiliary);

NSWindowStyleMask maskOf(const Style& style) {
  NSWindowStyleMask mask = style.isBorderless ? NSWindowStyleMaskBorderless : NSWindowStyleMaskTitled;
  if (style.nonactivating) mask |= NSWindowStyleMaskNonactivatingPanel;
  return mask;
}

}  // namespace

@implementation RondoraOverlayWindow {
  BOOL canBecomeKey_;
  BOOL canBecomeMain_;
  std::function<void()> keyLost_;
}

- (instancetype)initWithStyle:(const rondora::OverlayPanelStyle&)style contentRect:(NSRect)contentRect {
  self = [super initWithContentRect:contentRect styleMask:maskOf(style) backing:NSBackingStoreBuffered defer:NO];
  if (self == nil) return nil;
  canBecomeKey_ = style.canBecomeKey;
  canBecomeMain_ = style.canBecomeMain;
  self.releasedWhenClosed = NO;
  self.floatingPanel = style.isFloating;
  self.level = style.windowLevel;  // after `floatingPanel`, which sets one
  self.collectionBehavior = style.collectionBehavior;
  self.hasShadow = style.hasShadow;
  self.opaque = style.isOpaque;
  if (!style.isOpaque) self.backgroundColor = NSColor.clearColor;
  self.animationBehavior = style.isAnimated ? NSWindowAnimationBehaviorDefault : NSWindowAnimationBehaviorNone;
  self.hidesOnDeactivate = style.hidesOnDeactivate;
  if (style.hasFixedAppearance) self.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
  self.canHide = NO;
  // Screen readers would speak of a window without a name; the ring's announcements say what it is.
  self.accessibilityElement = NO;
  self.accessibilityRole = NSAccessibilityUnknownRole;
  // Said outright, it holds also where the window is transparent.
  self.ignoresMouseEvents = NO;
  return self;
}

- (void)setKeyLost:(std::function<void()>)keyLost {
  keyLost_ = std::move(keyLost);
}

- (BOOL)canBecomeKeyWindow {
  return canBecomeKey_;
}

- (BOOL)canBecomeMainWindow {
  return canBecomeMain_;
}

// A key that no monitor consumed would be looked up in the main menu, which can end the program.
- (BOOL)performKeyEquivalent:(NSEvent*)__unused event {
  return YES;
}

- (void)resignKeyWindow {
  [super resignKeyWindow];
  if (keyLost_) keyLost_();
}

@end
