#pragma once

#include <AppKit/AppKit.h>

#include "platform/windows.h"

@class RondoraOverlayWindow;
@class RondoraSnippetNoteView;

namespace rondora::appkit {

class AppKitSnippetPreviewPopover final : public SnippetPreviewPopover {
 public:
  AppKitSnippetPreviewPopover();
  ~AppKitSnippetPreviewPopover() override;
  AppKitSnippetPreviewPopover(const AppKitSnippetPreviewPopover&) = delete;
  AppKitSnippetPreviewPopover& operator=(const AppKitSnippetPreviewPopover&) = delete;

  void show(const SnippetPreview& preview, const Place& place) override;
  void hide() override;

 private:
  RondoraOverlayWindow* window_;
  RondoraSnippetNoteView* view_;
};

}  // namespace rondora::appkit
