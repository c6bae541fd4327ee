#pragma once

namespace rondora {

/// Main thread.
class SecureInput {
 public:
  virtual ~SecureInput() = default;

  /// True while another program, such as a screen lock or a password prompt, keeps all keys from event taps.
  virtual bool isEnabled() const = 0;
};

}  // namespace rondora
