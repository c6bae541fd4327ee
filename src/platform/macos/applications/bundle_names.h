#pragma once

#include <Foundation/Foundation.h>

#include <string>

namespace rondora::macos {

/// The name that the user knows an application by: as the system shows its bundle, without the ending.
std::string nameOfBundle(NSString* path);

}  // namespace rondora::macos
