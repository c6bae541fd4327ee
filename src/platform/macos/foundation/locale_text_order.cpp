#include "platform/macos/foundation/locale_text_order.h"

#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <numeric>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::macos {
namespace {

constexpr CFStringCompareFlags kOptions = kCFCompareCaseInsensitive | kCFCompareNumerically | kCFCompareLocalized;

CFRef<CFLocaleRef> localeOf(std::string_view language) {
  const auto identifier = makeString(language);
  return identifier ? CFRef<CFLocaleRef>::adopt(CFLocaleCreate(kCFAllocatorDefault, identifier.get()))
                    : CFRef<CFLocaleRef>();
}

}  // namespace

std::vector<std::size_t> LocaleTextOrder::order(const std::vector<std::string>& texts,
                                                std::string_view language) const {
  const auto locale = localeOf(language);
  std::vector<CFRef<CFStringRef>> strings;
  strings.reserve(texts.size());
  for (const std::string& text : texts) {
    auto string = makeString(text);
    strings.push_back(string ? std::move(string) : makeString(""));
  }
  std::vector<std::size_t> places(texts.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::stable_sort(places.begin(), places.end(), [&](std::size_t one, std::size_t other) {
    const CFStringRef second = strings[other].get();
    return CFStringCompareWithOptionsAndLocale(strings[one].get(), second,
                                               CFRange{0, CFStringGetLength(strings[one].get())}, kOptions,
                                               locale.get()) == kCFCompareLessThan;
  });
  return places;
}

}  // namespace rondora::macos
