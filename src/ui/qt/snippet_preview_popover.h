#pragma once

#include <QLabel>

#include "platform/windows.h"

namespace rondora {

/// A note beside the pointer that takes neither focus nor clicks.
class QtSnippetPreviewPopover : public SnippetPreviewPopover {
 public:
  QtSnippetPreviewPopover();

  void show(std::string_view text) override;
  void hide() override;

 private:
  void moveToPointer();

  QLabel note_;
};

}  // namespace rondora
