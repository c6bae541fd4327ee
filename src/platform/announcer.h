#pragma once

#include <string>

namespace rondora {

/// Tells the users of assistive technology, such as a screen reader, what the program shows without having the focus.
/// Never waits for that technology. Main thread.
class Announcer {
 public:
  virtual ~Announcer() = default;

  /// False while no assistive technology listens: callers then make no text. Allocates nothing.
  virtual bool hasListeners() const = 0;
  /// Has one sentence spoken and shown in braille, in place of the one before. UTF-8, in the interface's language.
  virtual void announce(std::string sentence) = 0;
  /// What was announced is over. Nothing is said.
  virtual void withdraw() = 0;
};

}  // namespace rondora
