// How smoothly the ring moves on the X server of DISPLAY: opens it and sweeps over its sectors, and prints frames a
// second, and how long it was from frame to frame and how long each frame took until the server had it.

#include <QTextStream>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "overlay_stage.h"
#include "pie/pie_view.h"
#include "platform/linux/desktop/system_clock.h"
#include "probe_application.h"

namespace {

using namespace rondora;
using Time = std::chrono::steady_clock::time_point;

class NoHaptics : public Haptics {
 public:
  void perform(HapticPattern) override {}
};

struct Frame {
  Time begin;
  Time end;
};

/// A panel that notes when each frame was painted and when the server was done with it.
class TimedPanel : public OverlayPanel {
 public:
  TimedPanel(std::unique_ptr<OverlayPanel> panel, const OverlayStage& stage, std::vector<Frame>& frames)
      : panel_(std::move(panel)), stage_(stage), frames_(frames) {}

  void setPicture(Picture picture) override { panel_->setPicture(std::move(picture)); }
  void setLayerState(std::size_t layer, double state) override { panel_->setLayerState(layer, state); }
  void setAppearancePhase(double scale, double opacity) override { panel_->setAppearancePhase(scale, opacity); }
  void display() override {
    const Time begin = std::chrono::steady_clock::now();
    panel_->display();
    if (!panel_->isVisible()) return;
    stage_.sync();
    frames_.push_back({begin, std::chrono::steady_clock::now()});
  }
  void orderFrontRegardless() override { panel_->orderFrontRegardless(); }
  void makeKey() override { panel_->makeKey(); }
  bool isVisible() const override { return panel_->isVisible(); }
  Point mouseLocationOutsideOfEventStream() const override { return panel_->mouseLocationOutsideOfEventStream(); }

 private:
  std::unique_ptr<OverlayPanel> panel_;
  const OverlayStage& stage_;
  std::vector<Frame>& frames_;
};

class TimedPanels : public OverlayPanels {
 public:
  explicit TimedPanels(OverlayStage& stage) : stage_(stage) {}
  std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                          OverlayPanelSink& sink) override {
    return std::make_unique<TimedPanel>(stage_.panels.makePanel(style, frame, sink), stage_, frames);
  }

  std::vector<Frame> frames;

 private:
  OverlayStage& stage_;
};

double milliseconds(Time from, Time to) { return std::chrono::duration<double, std::milli>(to - from).count(); }

/// `share` 0.5 is the median.
double percentile(std::vector<double> values, double share) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(std::ceil(share * static_cast<double>(values.size()))) - 1];
}

/// Frames of one kind of movement, from several showings.
class Report {
 public:
  void add(const std::vector<Frame>& frames) {
    if (frames.size() < 2) return;
    for (std::size_t i = 1; i < frames.size(); ++i)
      intervals_.push_back(milliseconds(frames[i - 1].begin, frames[i].begin));
    for (const Frame& frame : frames) work_.push_back(milliseconds(frame.begin, frame.end));
    seconds_ += milliseconds(frames.front().begin, frames.back().begin) / 1000;
  }
  void print(const char* name) const {
    QTextStream(stdout) << QString("%1: %2 frames, %3 a second; frame to frame %4 ms (p99 %5); work %6 ms (p99 %7)\n")
                               .arg(name)
                               .arg(work_.size())
                               .arg(static_cast<double>(intervals_.size()) / seconds_, 0, 'f', 1)
                               .arg(percentile(intervals_, 0.5), 0, 'f', 1)
                               .arg(percentile(intervals_, 0.99), 0, 'f', 1)
                               .arg(percentile(work_, 0.5), 0, 'f', 2)
                               .arg(percentile(work_, 0.99), 0, 'f', 2);
  }

 private:
  std::vector<double> intervals_;
  std::vector<double> work_;
  double seconds_ = 0;
};

class Show {
 public:
  Show(const QtX11Access& access, double scale) : stage_(access, scale), scale_(scale) {}

  void run(int openings) {
    for (int i = 0; i < openings; ++i) {
      auto view = open();
      wait(kOpening);
      opening_.add(panels_.frames);
      panels_.frames.clear();
      sweep(*view);
      hovering_.add(panels_.frames);
      view.reset();
      wait(0.2);
    }
    opening_.print("opening");
    hovering_.print("sweeping over the sectors");
  }

 private:
  static constexpr double kOpening = 0.4;  // seconds

  std::unique_ptr<PieView> open() {
    panels_.frames.clear();
    const SampleRing ring = SampleRing::make(sampleMenu(8, false));
    count_ = ring.menu.items.size();
    const PieView::Ports ports{panels_, stage_.pointer, haptics_, stage_.mainQueue, clock_};
    auto view = std::make_unique<PieView>(ports, squareAround({600 / scale_, 450 / scale_}, ring.layout.halfSide()),
                                          count_, OpeningAnimation::lasting(kOpening));
    view->setPicture(ring.picture);
    view->open();
    return view;
  }

  /// As fast as the eye can follow: something moves all the time.
  void sweep(PieView& view) {
    for (std::size_t i = 0; i < 3 * count_; ++i) {
      view.showHighlight(i % count_);
      wait(0.06);
    }
  }

  static void wait(double seconds) {
    bool over = false;
    QTimer::singleShot(static_cast<int>(seconds * 1000), Qt::PreciseTimer, [&] { over = true; });
    while (!over) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  OverlayStage stage_;
  double scale_;
  NoHaptics haptics_;
  desktop::SystemClock clock_;
  TimedPanels panels_{stage_};
  std::size_t count_ = 0;
  Report opening_;
  Report hovering_;
};

}  // namespace

int main(int argc, char** argv) {
  ProbeApplication application(argc, argv, "xcb");
  QCommandLineParser& parser = application.parser;
  parser.addOptions({{"scale", "Pixels a point.", "factor", "1"}, {"openings", "How often.", "count", "10"}});
  application.parse();
  const auto access = qtX11Access();
  if (!access) return 1;
  Show(*access, parser.value("scale").toDouble()).run(parser.value("openings").toInt());
}
