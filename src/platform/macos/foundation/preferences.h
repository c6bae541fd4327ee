#pragma once

#include "platform/user_defaults.h"

namespace rondora::macos {

/// The program's domain of the user's preferences. Every change is written at once.
class Preferences final : public UserDefaults {
 public:
  bool hasValue(std::string_view key) const override;
  void setInteger(std::string_view key, std::int64_t value) override;
  bool boolean(std::string_view key) const override;
  void setBoolean(std::string_view key, bool value) override;
  std::optional<std::string> string(std::string_view key) const override;
  void setString(std::string_view key, std::string_view text) override;
  std::optional<std::string> problem() const override { return problem_; }
  bool isEmpty() const override;
  bool importDomain(const Predecessor& predecessor) override;

 private:
  void set(std::string_view key, const void* value);
  void write();

  std::optional<std::string> problem_;
};

}  // namespace rondora::macos
