#include "ui/appkit/windows/page_window.h"

#include <algorithm>

namespace {

constexpr NSWindowStyleMask kStyle = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;

}  // namespace

/// A scroll view shows the upper end of what is flipped.
@interface RondoraPageDocument : NSView
@end

@implementation RondoraPageDocument

- (BOOL)isFlipped {
  return YES;
}

@end

@implementation RondoraPageWindow {
  NSView* page_;
  NSView* foot_;
}

- (instancetype)initWithPage:(NSView*)page foot:(NSView*)foot {
  self = [super initWithContentRect:NSRect {} styleMask:kStyle backing:NSBackingStoreBuffered defer:YES];
  if (self == nil) return nil;
  page_ = page;
  foot_ = foot;
  self.releasedWhenClosed = NO;
  // The system makes no order of the Tab key for a window with a first control of its own.
  self.autorecalculatesKeyViewLoop = YES;
  [self lay:[self scrollViewOfPage] above:foot];
  return self;
}

- (NSScrollView*)scrollViewOfPage {
  RondoraPageDocument* document = [[RondoraPageDocument alloc] init];
  [document addSubview:page_];
  NSScrollView* scroll = [[NSScrollView alloc] init];
  scroll.drawsBackground = NO;
  scroll.hasVerticalScroller = YES;
  scroll.autohidesScrollers = YES;
  scroll.scrollerStyle = NSScrollerStyleOverlay;  // takes no width from the page
  scroll.documentView = document;
  document.translatesAutoresizingMaskIntoConstraints = NO;
  page_.translatesAutoresizingMaskIntoConstraints = NO;
  [document.leadingAnchor constraintEqualToAnchor:scroll.contentView.leadingAnchor constant:0].active = YES;
  [document.topAnchor constraintEqualToAnchor:scroll.contentView.topAnchor constant:0].active = YES;
  [page_.leadingAnchor constraintEqualToAnchor:document.leadingAnchor constant:0].active = YES;
  [page_.trailingAnchor constraintEqualToAnchor:document.trailingAnchor constant:0].active = YES;
  [page_.topAnchor constraintEqualToAnchor:document.topAnchor constant:0].active = YES;
  [page_.bottomAnchor constraintEqualToAnchor:document.bottomAnchor constant:0].active = YES;
  return scroll;
}

- (void)lay:(NSView*)upper above:(NSView*)lower {
  NSView* contents = [[NSView alloc] init];
  for (NSView* part : {upper, lower}) {
    [contents addSubview:part];
    part.translatesAutoresizingMaskIntoConstraints = NO;
    [part.leadingAnchor constraintEqualToAnchor:contents.leadingAnchor constant:0].active = YES;
    [part.trailingAnchor constraintEqualToAnchor:contents.trailingAnchor constant:0].active = YES;
  }
  [upper.topAnchor constraintEqualToAnchor:contents.topAnchor constant:0].active = YES;
  [lower.topAnchor constraintEqualToAnchor:upper.bottomAnchor constant:0].active = YES;
  [lower.bottomAnchor constraintEqualToAnchor:contents.bottomAnchor constant:0].active = YES;
  self.contentView = contents;
}

- (void)fitContents {
  const NSSize page = page_.fittingSize;
  const NSSize foot = foot_.fittingSize;
  const NSRect before = self.frame;
  NSRect frame = [self frameRectForContentRect:{{0, 0}, {std::max(page.width, foot.width), page.height + foot.height}}];
  // A window that is not shown yet is on no screen.
  const NSRect room = (self.screen == nil ? NSScreen.mainScreen : self.screen).visibleFrame;
  if (room.size.height > 0) frame.size.height = std::min(frame.size.height, room.size.height);
  const CGFloat bottom = before.origin.y + before.size.height - frame.size.height;
  frame.origin = {before.origin.x, std::max(bottom, room.origin.y)};
  [self setFrame:frame display:YES];
}

- (void)cancelOperation:(id)sender {
  [self performClose:sender];
}

@end
