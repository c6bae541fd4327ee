#pragma once

#include <map>
#include <optional>
#include <string>

#include "doubles/value_at.h"
#include "platform/pasteboard.h"

namespace rondora {

class FakePasteboard final : public Pasteboard {
 public:
  void clearContents() override {
    ++clearCount;
    string.reset();
    dataByType.clear();
  }
  void setString(std::string_view text) override { string = text; }
  void setData(std::string_view type, std::string_view bytes) override { dataByType[std::string(type)] = bytes; }
  std::optional<std::string> data(std::string_view type) const override { return valueAt(dataByType, type); }

  std::optional<std::string> string;
  std::map<std::string, std::string, std::less<>> dataByType;
  int clearCount = 0;
};

}  // namespace rondora
