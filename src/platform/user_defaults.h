#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// How the system identifies the application that this program succeeds.
struct Predecessor {
  std::string_view bundleIdentifier;
  /// Name of its folder below the folders for application data and caches.
  std::string_view folder;
};

/// Small settings outside the document, by key. Main thread.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  virtual bool hasValue(std::string_view key) const = 0;
  virtual void setInteger(std::string_view key, std::int64_t value) = 0;
  /// False when the key is missing or holds no Boolean.
  virtual bool boolean(std::string_view key) const = 0;
  virtual void setBoolean(std::string_view key, bool value) = 0;
  virtual std::optional<std::string> string(std::string_view key) const = 0;
  /// `text` is one line.
  virtual void setString(std::string_view key, std::string_view text) = 0;

  /// Why the last change is not on disk, as the system's message; nothing when it is. A system may not tell.
  virtual std::optional<std::string> problem() const { return std::nullopt; }

  /// True when the program's own domain holds no key at all.
  virtual bool isEmpty() const = 0;
  /// Copies the predecessor's domain into this one when it exists and holds anything. True when it did.
  virtual bool importDomain(const Predecessor& predecessor) = 0;
};

}  // namespace rondora
