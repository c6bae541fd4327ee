#include "ui/qt/settings/notice_bar.h"

#include <QAccessible>
#include <QHBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

NoticeBar::NoticeBar(const SettingsModels& models, const ItemIcons& icons)
    : models_(models),
      text_(settings_look::makeNote()),
      undo_(new QPushButton),
      dismiss_(new IconButton(icons, "xmark", [this] { models_.navigation.dismissNotice(); })) {
  setBackgroundRole(QPalette::AlternateBase);
  setAutoFillBackground(true);
  undo_->setAutoDefault(false);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(settings_look::kPageMargin, settings_look::kSmallGap, settings_look::kPageMargin,
                          settings_look::kSmallGap);
  row->addWidget(text_, 1);
  row->addWidget(undo_);
  row->addWidget(dismiss_);
  connect(
      undo_, &QPushButton::clicked, this, [this] { models_.history.undo(); }, Qt::QueuedConnection);
  hide();
}

void NoticeBar::refresh() {
  const QString notice = toQString(models_.navigation.notice());
  const bool isNew = !notice.isEmpty() && notice != text_->text();
  text_->setText(notice);
  undo_->setText(toQString(models_.localization.text(StringKey::settingsUndo)));
  dismiss_->setName(toQString(models_.localization.text(StringKey::settingsClose)));
  setVisible(!notice.isEmpty());
  if (!isNew) return;
  setAccessibleName(notice);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace rondora
