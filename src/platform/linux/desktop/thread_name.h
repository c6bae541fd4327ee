#pragma once

#include <string>

namespace rondora::desktop {

/// Names the calling thread; Linux shows the last 15 bytes of the label.
void nameThread(const std::string& label);

}  // namespace rondora::desktop
