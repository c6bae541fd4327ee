// For tools/check-macos: the classes of developer.apple.com/documentation/appkit that the program uses, a header for
// each.
#pragma once

#include <AppKit/NSApplication.h>
#include <AppKit/NSImage.h>
#include <AppKit/NSMenu.h>
#include <AppKit/NSMenuItem.h>
#include <AppKit/NSRunningApplication.h>
#include <AppKit/NSWorkspace.h>
#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>
