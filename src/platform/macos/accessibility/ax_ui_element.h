#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include "platform/accessibility.h"
#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// An element as the system's accessibility interface knows it. Each call is a message to the other application.
class AXUIElement final : public AXElement {
 public:
  explicit AXUIElement(CFRef<AXUIElementRef> element) : element_(std::move(element)) {}

  AXUIElementRef get() const { return element_.get(); }

  void setMessagingTimeout(double seconds) override;
  std::optional<AXValue> attribute(std::string_view name) const override;
  std::optional<std::vector<std::optional<AXValue>>> attributes(std::span<const std::string_view> names) const override;
  bool isSettable(std::string_view name) const override;
  bool setAttribute(std::string_view name, const AXValue& value) override;
  bool perform(std::string_view action) override;
  std::uint32_t windowNumber() const override;

 private:
  CFRef<AXUIElementRef> element_;
};

}  // namespace rondora::macos
