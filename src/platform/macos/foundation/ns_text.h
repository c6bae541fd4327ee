#pragma once

#include <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace rondora::macos {

/// Empty for text that is not UTF-8.
inline NSString* nsString(std::string_view text) {
  NSString* string = [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
  return string == nil ? @"" : string;
}

/// In UTF-8; empty for nil.
inline std::string textOf(NSString* string) {
  const char* text = string.UTF8String;
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace rondora::macos
