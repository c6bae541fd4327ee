#pragma once

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/unicode.h"
#include "platform/file_chooser.h"
#include "platform/text_order.h"

// What the program's windows ask of the desktop.

namespace rondora {

class FakeFileChooser final : public FileChooser {
 public:
  bool choose(const FileChoice& choice, Completion completion) override {
    if (completion_) return false;
    asked = choice;
    completion_ = std::move(completion);
    return true;
  }

  bool isOpen() const { return static_cast<bool>(completion_); }
  /// The user chooses the file, or cancels without one; no effect while nothing is asked.
  void answer(std::optional<std::string> path) {
    if (auto completion = std::exchange(completion_, nullptr)) completion(std::move(path));
  }

  /// The latest request.
  FileChoice asked;

 private:
  Completion completion_;
};

/// By the code points of the lower-case texts.
class FakeTextOrder final : public TextOrder {
 public:
  std::vector<std::size_t> order(const std::vector<std::string>& texts, std::string_view) const override {
    std::vector<std::size_t> places(texts.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::ranges::stable_sort(places, {}, [&texts](std::size_t place) { return lowerCased(texts[place]); });
    return places;
  }
};

}  // namespace rondora
