#pragma once

#include <functional>
#include <sstream>
#include <string>

/// One line for each key, grab and change of state, for reports of stuck keys. Off unless the program is started with
/// RONDORA_TRACE=1; a call then is one branch. Main thread.
namespace rondora::trace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): one switch for the process, set before all else.
inline bool isOn = false;
inline std::function<void(const std::string&)> sink;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

inline void begin(std::function<void(const std::string&)> newSink) {
  sink = std::move(newSink);
  isOn = static_cast<bool>(sink);
}

template <class... Parts>
void line(const Parts&... parts) {
  if (!isOn) return;
  std::ostringstream text;
  text << "trace: ";
  (text << ... << parts);
  sink(text.str());
}

}  // namespace rondora::trace
