#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/status_item.h"

namespace rondora {

/// The tray, with the items of this program.
class FakeStatusBar final : public StatusBar {
 public:
  using Record = StatusItemDescription;

  std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) override {
    if (whenMade) whenMade();
    items.push_back(std::make_shared<Record>(description));
    return std::make_unique<Item>(*this, items.back());
  }
  /// The user chooses an entry of the newest item's menu.
  void choose(std::size_t index) { items.back()->menu.at(index).action(); }

  /// A tray comes, goes, or restarts.
  void change(StatusItemVisibility newVisibility) {
    visibility = newVisibility;
    changed_.send();
  }

  std::vector<std::shared_ptr<Record>> items;
  std::function<void()> whenMade;
  StatusItemVisibility visibility = StatusItemVisibility::visible;

 private:
  class Item final : public StatusItem {
   public:
    Item(FakeStatusBar& bar, std::shared_ptr<Record> record) : bar_(bar), record_(std::move(record)) {}
    void setMenuTitle(std::size_t index, const std::string& title) override { record_->menu.at(index).title = title; }
    void setToolTip(const std::string& toolTip) override { record_->toolTip = toolTip; }
    StatusItemVisibility visibility() const override { return bar_.visibility; }
    Subscription onVisibilityMayHaveChanged(std::function<void()> observer) const override {
      return bar_.changed_.subscribe(std::move(observer));
    }

   private:
    FakeStatusBar& bar_;
    std::shared_ptr<Record> record_;
  };

  Signal<> changed_;
};

}  // namespace rondora
