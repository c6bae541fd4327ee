#pragma once

#include <AppKit/AppKit.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "base/weak_self.h"
#include "platform/main_queue.h"
#include "platform/overlay_panel.h"
#include "platform/picture_rasterizer.h"

@class RondoraOverlayWindow;
@class RondoraTrackingView;

namespace rondora::appkit {

/// A panel that becomes the key window while another application stays active. It does not grab the pointer: entering
/// and leaving are reported, and a click elsewhere takes the keyboard away, which is the panel's loss. The screen
/// beneath is not read, for which macOS wants a permission of its own, so the glass is imitated.
class AppKitOverlayPanel final : public OverlayPanel {
 public:
  AppKitOverlayPanel(PictureRasterizer& rasterizer, MainQueue& mainQueue, const OverlayPanelStyle& style,
                     const Rect& frame, OverlayPanelSink& sink);
  ~AppKitOverlayPanel() override;
  AppKitOverlayPanel(const AppKitOverlayPanel&) = delete;
  AppKitOverlayPanel& operator=(const AppKitOverlayPanel&) = delete;

  void setPicture(Picture picture) override;
  void setLayerState(std::size_t layer, double state) override;
  void setAppearancePhase(double scale, double opacity) override;
  void display() override;
  void refreshIcons() override;
  void orderFrontRegardless() override;
  void makeKey() override;
  bool isVisible() const override;
  Point mouseLocationOutsideOfEventStream() const override;

 private:
  PixelBuffer buffer();
  void dirtyWhole();
  void addDirty(const Rect& rect);

  PictureRasterizer& rasterizer_;
  MainQueue& mainQueue_;
  OverlayPanelSink& sink_;
  /// In whole points, as windows are.
  Rect frame_;
  RondoraOverlayWindow* window_;
  RondoraTrackingView* view_;
  int width_;  // pixels
  int height_;
  std::vector<std::uint32_t> pixels_;
  std::unique_ptr<PreparedPicture> picture_;
  std::vector<Rect> layerBounds_;
  std::vector<double> layerStates_;
  /// `dirty` is everything that `display` has to paint.
  PictureView phase_;
  WeakSelf<AppKitOverlayPanel> weakSelf_{this};
};

class AppKitOverlayPanels final : public OverlayPanels {
 public:
  /// The references must outlive the object and its panels.
  AppKitOverlayPanels(PictureRasterizer& rasterizer, MainQueue& mainQueue)
      : rasterizer_(rasterizer), mainQueue_(mainQueue) {}

  std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                          OverlayPanelSink& sink) override;
  /// For the main screen.
  void prerender(Picture picture) override;

 private:
  PictureRasterizer& rasterizer_;
  MainQueue& mainQueue_;
};

}  // namespace rondora::appkit
