#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/observable.h"
#include "localization/string_key.h"
#include "model/app_language.h"

namespace rondora {

/// The interface's texts in the current language. Main thread.
class LocalizationStore {
 public:
  explicit LocalizationStore(AppLanguage language = AppLanguage::english) : language_(language) {}

  AppLanguage language() const { return language_.value(); }
  /// Notifies the subscribers of a change.
  void setLanguage(AppLanguage language);
  CurrentValue<AppLanguage>& currentLanguage() { return language_; }

  std::string_view text(StringKey key) const;
  /// The text with its "%@" replaced. Where either runs from right to left, the argument is isolated and keeps its own
  /// direction.
  std::string text(StringKey key, std::string_view argument) const;
  /// For a text with two of them.
  std::string text(StringKey key, std::string_view first, std::string_view second) const;
  /// For speech: with as many arguments as the text has placeholders, and without marks of direction, which would be
  /// read out.
  std::string spoken(StringKey key, std::initializer_list<std::string_view> arguments) const;

 private:
  /// Replaces the next placeholder from that position on; the position behind the argument.
  std::size_t fillIn(std::string& text, std::size_t from, std::string_view argument) const;

  CurrentValue<AppLanguage> language_;
};

}  // namespace rondora
