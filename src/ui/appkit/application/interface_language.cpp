#include "ui/appkit/application/interface_language.h"

#include <CoreFoundation/CoreFoundation.h>

#include <iterator>
#include <string_view>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::appkit {
namespace {

/// The name of the system's own texts in that language.
std::string_view systemName(AppLanguage language) {
  return language == AppLanguage::chinese ? "zh-Hans" : rawValue(language);
}

}  // namespace

void useInterfaceLanguage(AppLanguage language) {
  using macos::CFRef;
  const auto code = macos::makeString(systemName(language));
  const void* codes[] = {code.get()};
  const auto languages =
      CFRef<CFArrayRef>::adopt(CFArrayCreate(kCFAllocatorDefault, codes, std::size(codes), &kCFTypeArrayCallBacks));
  CFPreferencesSetAppValue(CFSTR("AppleLanguages"), languages.get(), kCFPreferencesCurrentApplication);
  CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

}  // namespace rondora::appkit
