#include "ui/appkit/application/interface_language.h"

#include <CoreFoundation/CoreFoundation.h>

#include <iterator>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::appkit {

void useInterfaceLanguage(AppLanguage language) {
  using macos::CFRef;
  const auto code = macos::makeString(rawValue(language));
  const void* codes[] = {code.get()};
  const auto languages =
      CFRef<CFArrayRef>::adopt(CFArrayCreate(kCFAllocatorDefault, codes, std::size(codes), &kCFTypeArrayCallBacks));
  CFPreferencesSetAppValue(CFSTR("AppleLanguages"), languages.get(), kCFPreferencesCurrentApplication);
  CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

}  // namespace rondora::appkit
