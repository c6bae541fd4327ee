#pragma once

#include <AppKit/AppKit.h>

#include "platform/windows.h"

/// The beginning of a snippet, and a hint that states what choosing it does. Looks like a part of the ring, whatever
/// the desktop's colours.
@interface RondoraSnippetNoteView : NSView

/// Returns the size that the view needs for it.
- (NSSize)setPreview:(const rondora::SnippetPreview&)preview;

@end
