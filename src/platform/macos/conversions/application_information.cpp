#include "platform/macos/conversions/application_information.h"

#include <utility>

#include "platform/macos/conversions/application_bundles.h"

namespace rondora::macos {
namespace {

std::string textAt(const PropertyList& information, std::string_view key) {
  const PropertyList* value = information.find(key);
  const auto* text = value == nullptr ? nullptr : value->as<std::string>();
  return text == nullptr ? std::string() : *text;
}

/// Developers write this switch as a Boolean, a number or a text.
bool isSwitchedOn(const PropertyList& information, std::string_view key) {
  const std::string text = textAt(information, key);
  return booleanOf(information.find(key)).value_or(text == "1" || text == "YES" || text == "true");
}

}  // namespace

std::optional<StartableApplication> startableApplication(const PropertyList& information, std::string name) {
  std::string identifier = textAt(information, "CFBundleIdentifier");
  if (identifier.empty() || name.empty() || isSwitchedOn(information, "LSBackgroundOnly")) return std::nullopt;
  StartableApplication application;
  application.bundleIdentifier = std::move(identifier);
  application.name = std::move(name);
  application.executable = textAt(information, "CFBundleExecutable");
  return application;
}

std::string withoutBundleEnding(std::string name) {
  if (name.ends_with(kBundleEnding)) name.resize(name.size() - kBundleEnding.size());
  return name;
}

}  // namespace rondora::macos
