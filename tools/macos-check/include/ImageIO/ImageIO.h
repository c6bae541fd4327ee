// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/imageio; the page of each
// group stands above it. A Mac compiles against its own SDK instead.
#pragma once

// Library: /System/Library/Frameworks/ImageIO.framework/Versions/A/ImageIO

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>

#ifdef __cplusplus
extern "C" {
#endif

// CGImageSource
typedef struct CGImageSource* CGImageSourceRef;
extern const CFStringRef kCGImageSourceCreateThumbnailFromImageAlways;
extern const CFStringRef kCGImageSourceCreateThumbnailWithTransform;
extern const CFStringRef kCGImageSourceThumbnailMaxPixelSize;
CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef options);
CGImageSourceRef CGImageSourceCreateWithURL(CFURLRef url, CFDictionaryRef options);
size_t CGImageSourceGetCount(CGImageSourceRef isrc);
CFDictionaryRef CGImageSourceCopyPropertiesAtIndex(CGImageSourceRef isrc, size_t index, CFDictionaryRef options);
CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef isrc, size_t index, CFDictionaryRef options);

// CGImageProperties
extern const CFStringRef kCGImagePropertyPixelWidth;
extern const CFStringRef kCGImagePropertyPixelHeight;

// CGImageDestination
typedef struct CGImageDestination* CGImageDestinationRef;
CGImageDestinationRef CGImageDestinationCreateWithData(CFMutableDataRef data, CFStringRef type, size_t count,
                                                       CFDictionaryRef options);
void CGImageDestinationAddImage(CGImageDestinationRef idst, CGImageRef image, CFDictionaryRef properties);
bool CGImageDestinationFinalize(CGImageDestinationRef idst);

#ifdef __cplusplus
}
#endif
