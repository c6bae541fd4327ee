#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "doubles/value_at.h"
#include "platform/accessibility.h"

namespace rondora {

/// An element of an application's interface; `journal` records the calls in words.
class FakeAXElement final : public AXElement {
 public:
  FakeAXElement(std::string nameInJournal, std::vector<std::string>& journal)
      : name(std::move(nameInJournal)), journal_(journal) {}

  void setMessagingTimeout(double seconds) override { messagingTimeout = seconds; }
  std::optional<AXValue> attribute(std::string_view attributeName) const override {
    return valueAt(attributes, attributeName);
  }
  bool setAttribute(std::string_view attributeName, const AXValue& value) override {
    const bool* flag = std::get_if<bool>(&value);
    journal_.push_back(name + ": " + std::string(attributeName) + (flag ? (*flag ? "=1" : "=0") : "=…"));
    if (const auto found = attributes.find(attributeName); found != attributes.end()) found->second = value;
    return true;
  }
  bool perform(std::string_view action) override {
    journal_.push_back(name + ": " + std::string(action));
    return !refusedActions.contains(action);
  }
  std::uint32_t windowNumber() const override { return number; }

  std::string name;
  std::map<std::string, AXValue, std::less<>> attributes;
  std::set<std::string, std::less<>> refusedActions;
  std::uint32_t number = 0;
  double messagingTimeout = 0;

 private:
  std::vector<std::string>& journal_;
};

class FakeAccessibility final : public Accessibility {
 public:
  using Element = std::shared_ptr<FakeAXElement>;

  /// A window at the end of the application's list.
  Element addWindow(std::int32_t processIdentifier, const std::string& name, std::uint32_t number,
                    std::optional<bool> isMinimized, const std::string& subrole = "AXStandardWindow") {
    const Element window = makeWindow(name, number, isMinimized, subrole);
    const Element owner = applicationElement(processIdentifier);
    auto& windows = owner->attributes.try_emplace("AXWindows", std::vector<AXElementRef>()).first->second;
    std::get<std::vector<AXElementRef>>(windows).push_back(window);
    return window;
  }
  /// A window that the application does not list.
  Element addUnlistedWindow(const std::string& name, std::uint32_t number, bool isMinimized) {
    unlisted_[number] = makeWindow(name, number, isMinimized, "AXStandardWindow");
    return unlisted_[number];
  }
  Element applicationElement(std::int32_t processIdentifier) {
    auto& element = applications_[processIdentifier];
    if (!element) element = std::make_shared<FakeAXElement>("application", journal);
    return element;
  }

  AXElementRef application(std::int32_t processIdentifier) override { return applicationElement(processIdentifier); }
  AXElementRef windowByRemoteToken(std::int32_t /*ownerPID*/, std::uint32_t number) override {
    return valueAt(unlisted_, number).value_or(nullptr);
  }

  std::vector<std::string> journal;

 private:
  Element makeWindow(const std::string& name, std::uint32_t number, std::optional<bool> isMinimized,
                     const std::string& subrole) {
    auto window = std::make_shared<FakeAXElement>(name, journal);
    window->number = number;
    window->attributes["AXSubrole"] = subrole;
    if (isMinimized) window->attributes["AXMinimized"] = *isMinimized;
    return window;
  }

  std::map<std::int32_t, Element> applications_;
  std::map<std::uint32_t, Element> unlisted_;
};

}  // namespace rondora
