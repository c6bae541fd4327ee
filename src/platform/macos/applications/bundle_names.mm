#include "platform/macos/applications/bundle_names.h"

#include "platform/macos/conversions/application_information.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {

std::string nameOfBundle(NSString* path) {
  return withoutBundleEnding(textOf([NSFileManager.defaultManager displayNameAtPath:path]));
}

}  // namespace rondora::macos
