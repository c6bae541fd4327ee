#pragma once

#include <AppKit/AppKit.h>

#include <functional>

#include "platform/overlay_panel.h"

/// A panel in the style of an overlay.
@interface RondoraOverlayWindow : NSPanel

- (instancetype)initWithStyle:(const rondora::OverlayPanelStyle&)style contentRect:(NSRect)contentRect;
/// Called when the keyboard goes to another window; empty for nobody.
- (void)setKeyLost:(std::function<void()>)keyLost;

@end
