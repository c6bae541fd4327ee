#pragma once

#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <map>

#include "settings/window_contents.h"
#include "ui/qt/settings/menu_page.h"
#include "ui/qt/settings/settings_drawing.h"
#include "ui/qt/settings/settings_parts.h"

namespace rondora {

class FindingsList;
class NoticeBar;
class Sidebar;

/// The content of the settings' window: the sidebar, and the page that it chooses. Pages are made when they are first
/// shown.
class SettingsView : public QWidget {
 public:
  /// `contents` must outlive the object.
  SettingsView(const WindowContents& contents, SettingsDrawing drawing);
  ~SettingsView() override;

  /// Shows the window in front, on the screen where it was.
  void present();
  std::function<void()> onClosed;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// A page and what brings its texts and values up to date.
  struct Page {
    QWidget* widget = nullptr;
    std::function<void()> refresh;
  };

  void addShortcuts();
  void fitScreen();
  void refreshSoon();
  void fitUnsaved();
  void refresh();
  const Page& page(SettingsPage page);
  Page makePage(SettingsPage page);
  MenuPage::Panel makePanel(PieMenuKind kind);
  void chooseApplication(QWidget& parent, const std::function<void(std::string)>& chosen);
  void chooseIcon(QWidget& parent, const PieMenuItem& item, std::function<void(std::string)> chosen);

  const WindowContents& contents_;
  std::unique_ptr<PictureRasterizer> rasterizer_;
  ItemIcons icons_;
  SettingsParts parts_;
  Sidebar* sidebar_;
  NoticeBar* notice_;
  /// Shown on every page.
  FindingsList* unsaved_;
  QStackedWidget* stack_;
  std::map<SettingsPage, Page> pages_;
  std::optional<SettingsPage> shownPage_;
  bool isRefreshDue_ = false;
  Subscription navigation_;
  Subscription texts_;
  Subscription decoded_;
};

}  // namespace rondora
