#pragma once

#include "platform/windows.h"
#include "ui/qt/windows/snippet_note.h"

namespace rondora {

class QtSnippetPreviewPopover : public SnippetPreviewPopover {
 public:
  void show(const SnippetPreview& preview, const Place& place) override;
  void hide() override { note_.hide(); }

 private:
  SnippetNote note_;
};

}  // namespace rondora
