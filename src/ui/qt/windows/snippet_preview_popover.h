#pragma once

#include <functional>
#include <string>

#include "platform/windows.h"
#include "ui/qt/windows/snippet_note.h"

namespace rondora {

class QtSnippetPreviewPopover : public SnippetPreviewPopover {
 public:
  /// `hint` is queried each time that a snippet is shown.
  explicit QtSnippetPreviewPopover(std::function<std::string()> hint) : hint_(std::move(hint)) {}

  void show(std::string_view text, const Place& place) override;
  void hide() override { note_.hide(); }

 private:
  std::function<std::string()> hint_;
  SnippetNote note_;
};

}  // namespace rondora
