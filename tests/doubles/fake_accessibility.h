#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "doubles/value_at.h"
#include "platform/accessibility.h"
#include "platform/clock.h"

namespace rondora {

/// What the elements of one FakeAccessibility share.
struct FakeAXCalls {
  int count = 0;
  /// Advanced by the time that calls take, where there is one.
  Clock* clock = nullptr;
  double seconds = 0;
  /// As many elements as are announced are read in one call.
  std::size_t elementsAtOnce = 0;

  void charge(double duration) {
    ++count;
    if (clock) clock->sleep(duration);
  }
};

/// An element of an application's interface; `journal` records the changes in words.
class FakeAXElement final : public AXElement {
 public:
  FakeAXElement(std::string nameInJournal, std::vector<std::string>& journal, FakeAXCalls& calls)
      : name(std::move(nameInJournal)), journal_(journal), calls_(calls) {}

  void setMessagingTimeout(double seconds) override { messagingTimeout = seconds; }
  std::optional<AXValue> attribute(std::string_view attributeName) const override {
    const auto values = attributes(std::span(&attributeName, 1));
    return values ? values->front() : std::nullopt;
  }
  std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const override {
    const auto isFetched = [this](std::string_view each) { return fetched.contains(each); };
    if (!std::all_of(names.begin(), names.end(), isFetched) && !call()) return std::nullopt;
    std::vector<std::optional<AXValue>> values;
    for (const std::string_view each : names) {
      if (const auto found = fetched.find(each); found != fetched.end()) fetched.erase(found);
      values.push_back(valueAt(attributesByName, each));
    }
    return values;
  }
  bool isSettable(std::string_view attributeName) const override { return call() && settable.contains(attributeName); }
  bool setAttribute(std::string_view attributeName, const AXValue& value) override {
    if (!call()) return false;
    journal_.push_back(name + ": " + std::string(attributeName) + "=" + inWords(value));
    if (refusedActions.contains(attributeName)) return false;
    if (const auto found = attributesByName.find(attributeName); found != attributesByName.end()) found->second = value;
    return true;
  }
  bool perform(std::string_view action) override {
    if (!call()) return false;
    journal_.push_back(name + ": " + std::string(action));
    return !refusedActions.contains(action);
  }
  std::uint32_t windowNumber() const override { return number; }

  std::string name;
  std::map<std::string, AXValue, std::less<>> attributesByName;
  std::set<std::string, std::less<>> settable;
  /// Actions that fail, and attributes that cannot be written.
  std::set<std::string, std::less<>> refusedActions;
  /// Attributes whose next read takes no call.
  mutable std::set<std::string, std::less<>> fetched;
  std::uint32_t number = 0;
  double messagingTimeout = 0;
  /// Each call takes the whole messaging timeout and fails.
  bool hangs = false;

 private:
  static constexpr double kDefaultTimeout = 6;
  static constexpr double kLate = 1e-9;  // no time-out ends early

  bool call() const {
    const double timeout = messagingTimeout > 0 ? messagingTimeout : kDefaultTimeout;
    calls_.charge(hangs ? timeout + kLate : calls_.seconds);
    return !hangs;
  }
  static std::string inWords(const AXValue& value) {
    const auto pair = [](double a, double b) { return std::to_string(int(a)) + "," + std::to_string(int(b)); };
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "1" : "0";
    if (const auto* point = std::get_if<Point>(&value)) return pair(point->x, point->y);
    if (const auto* size = std::get_if<Size>(&value)) return pair(size->width, size->height);
    return "…";
  }

  std::vector<std::string>& journal_;
  FakeAXCalls& calls_;
};

class FakeAccessibility final : public Accessibility {
 public:
  using Element = std::shared_ptr<FakeAXElement>;

  Element makeElement(const std::string& name) { return std::make_shared<FakeAXElement>(name, journal, calls); }
  /// A window at the end of the application's list.
  Element addWindow(std::int32_t processIdentifier, const std::string& name, std::uint32_t number,
                    std::optional<bool> isMinimized, const std::string& subrole = "AXStandardWindow") {
    const Element window = makeWindow(name, number, isMinimized, subrole);
    const Element owner = applicationElement(processIdentifier);
    auto& windows = owner->attributesByName.try_emplace("AXWindows", std::vector<AXElementRef>()).first->second;
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
    if (!element) element = makeElement("application");
    return element;
  }

  AXElementRef application(std::int32_t processIdentifier) override { return applicationElement(processIdentifier); }
  AXElementRef windowByRemoteToken(std::int32_t /*ownerPID*/, std::uint32_t number) override {
    return valueAt(unlisted_, number).value_or(nullptr);
  }
  void prepareToRead(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                     double seconds) override {
    if (calls.elementsAtOnce == 0) return;
    for (std::size_t i = 0; i < elements.size() && seconds >= calls.seconds; seconds -= calls.seconds) {
      calls.charge(calls.seconds);
      for (const std::size_t end = std::min(i + calls.elementsAtOnce, elements.size()); i < end; ++i) {
        auto& element = dynamic_cast<FakeAXElement&>(*elements[i]);
        if (!element.hangs) element.fetched.insert(attributes.begin(), attributes.end());
      }
    }
  }

  std::vector<std::string> journal;
  FakeAXCalls calls;

 private:
  Element makeWindow(const std::string& name, std::uint32_t number, std::optional<bool> isMinimized,
                     const std::string& subrole) {
    auto window = makeElement(name);
    window->number = number;
    window->attributesByName["AXSubrole"] = subrole;
    if (isMinimized) window->attributesByName["AXMinimized"] = *isMinimized;
    return window;
  }

  std::map<std::int32_t, Element> applications_;
  std::map<std::uint32_t, Element> unlisted_;
};

}  // namespace rondora
