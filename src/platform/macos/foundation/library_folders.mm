#include "platform/macos/foundation/library_folders.h"

#include <Foundation/Foundation.h>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

std::filesystem::path userFolder(NSSearchPathDirectory directory) {
  NSString* path = NSSearchPathForDirectoriesInDomains(directory, NSUserDomainMask, YES).firstObject;
  return textOf(path);
}

}  // namespace

desktop::PosixFileSystem::Folders libraryFolders() {
  return {.applicationSupport = userFolder(NSApplicationSupportDirectory), .caches = userFolder(NSCachesDirectory)};
}

}  // namespace rondora::macos
