#include "platform/macos/foundation/own_file.h"

#include <Foundation/Foundation.h>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {

std::string ownFile() { return textOf(NSBundle.mainBundle.executablePath); }

}  // namespace rondora::macos
