// Opens the real ring on the X server of DISPLAY, over several backgrounds, in every variant and direction, and saves
// the screen: FOLDER/VARIANT-BACKGROUND-DIRECTION.png. Waits for a still screen, not for a fixed time.

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QTextStream>
#include <QThread>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

#include "overlay_stage.h"
#include "pie/controller/pie_view.h"
#include "probe_application.h"

namespace {

using namespace rondora;

constexpr int kPatience = 8000;  // milliseconds
constexpr int kGlance = 20;

class NoSink : public OverlayPanelSink {
  void pointerMoved(Point) override {}
  void pointerEntered() override {}
  void pointerExited() override {}
  void mouseDown(Point) override {}
  void panelLost() override {}
};

/// The background of the ring: one window that fills the screen.
class Wallpaper : public QWidget {
 public:
  Wallpaper() : QWidget(nullptr, Qt::BypassWindowManagerHint | Qt::FramelessWindowHint) {
    setGeometry(QGuiApplication::primaryScreen()->geometry());
  }
  void setImage(QImage image) {
    image_ = std::move(image);
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, image_); }

 private:
  QImage image_;
};

QImage look(const QRect& area) {
  return QGuiApplication::primaryScreen()
      ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

void letTimePass() {
  QCoreApplication::processEvents();
  QThread::msleep(kGlance);
}

/// Returns once three captures in a row are equal and satisfy `wanted`.
std::optional<QImage> settled(const QRect& area, const std::function<bool(const QImage&)>& wanted) {
  QElapsedTimer clock;
  clock.start();
  QImage last;
  for (int still = 0; clock.elapsed() < kPatience; letTimePass()) {
    const QImage now = look(area);
    still = now == last ? still + 1 : 0;
    last = now;
    if (still >= 8 && wanted(now)) return now;
  }
  return std::nullopt;
}

class Stage {
 public:
  Stage(const QtX11Access& access, double scale, QDir folder)
      : overlay_(access, scale), scale_(scale), folder_(std::move(folder)) {
    wallpaper_.show();
  }

  bool shoot(const QString& variant, const QString& background, bool rightToLeft, std::size_t highlighted) {
    PieMenu menu = sampleMenu(6, rightToLeft);
    setAppearance(menu, "variant=" + variant);
    const SampleRing ring = SampleRing::make(std::move(menu));
    const QRect area = areaOf(ring);
    showBackground(background, area);
    const auto empty = settled(area, [](const QImage&) { return true; });
    if (!empty) return false;
    auto panel = open(ring, area, highlighted);
    const auto shown = settled(area, [&](const QImage& image) { return image != *empty; });
    panel.reset();
    const QString name = QString("%1-%2-%3.png").arg(variant, background, rightToLeft ? "rtl" : "ltr");
    return shown && shown->save(folder_.filePath(name)) &&
           settled(area, [&](const QImage& now) { return now == *empty; });
  }

 private:
  /// At most half a pixel from the middle of the screen.
  QRect areaOf(const SampleRing& ring) const {
    const auto side = static_cast<int>(std::ceil(ring.picture.size.width * scale_));
    return {600 - side / 2, 450 - side / 2, side, side};
  }

  void showBackground(const QString& name, const QRect& area) {
    QImage image(wallpaper_.size(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    QPainter(&image).drawImage(area.topLeft(), sampleBackground(name, area.size()));
    wallpaper_.setImage(image);
  }

  std::unique_ptr<OverlayPanel> open(const SampleRing& ring, const QRect& area, std::size_t highlighted) {
    const double halfSide = ring.picture.size.width / 2;
    const Point center{(area.x() + area.width() / 2.0) / scale_, (area.y() + area.height() / 2.0) / scale_};
    auto panel = overlay_.panels.makePanel(PieView::kPanelStyle, squareAround(center, halfSide), sink_);
    panel->setPicture(ring.picture);
    const std::vector<double> states = ring.states(highlighted);
    for (std::size_t i = 0; i < states.size(); ++i) panel->setLayerState(i, states[i]);
    panel->display();
    panel->orderFrontRegardless();
    panel->makeKey();
    overlay_.sync();
    return panel;
  }

  NoSink sink_;
  OverlayStage overlay_;
  double scale_;
  QDir folder_;
  Wallpaper wallpaper_;
};

}  // namespace

int main(int argc, char** argv) {
  ProbeApplication application(argc, argv, "xcb");
  QCommandLineParser& parser = application.parser;
  parser.addPositionalArgument("folder", "Where the pictures go.");
  parser.addOption({"scale", "Pixels a point.", "factor", "1"});
  application.parse();
  const auto access = qtX11Access();
  if (parser.positionalArguments().size() != 1 || !access) parser.showHelp(2);
  const QDir folder(parser.positionalArguments().front());
  folder.mkpath(".");
  Stage stage(*access, parser.value("scale").toDouble(), folder);
  for (const char* variant : {"regular", "clear"}) {
    for (const char* background : {"white", "black", "busy"}) {
      for (const bool rightToLeft : {false, true}) {
        if (stage.shoot(variant, background, rightToLeft, rightToLeft ? 5 : 1)) continue;
        QTextStream(stderr) << "The screen did not settle: " << variant << ' ' << background << '\n';
        return 1;
      }
    }
  }
  return 0;
}
