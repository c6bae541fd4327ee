#include "ui/qt/settings/session_page.h"

#include <QVBoxLayout>
#include <string>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

using namespace settings_look;

SessionPage::SessionPage(FindingsList::Watch watch, FindingsList::Press press, const LocalizationStore& localization)
    : localization_(localization),
      title_(makeTitle()),
      introduction_(makeNote()),
      findings_(new FindingsList(std::move(watch), std::move(press))) {
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  QVBoxLayout* column = nullptr;
  whole->addWidget(makeScrollingPage(column));
  column->addWidget(title_);
  column->addWidget(introduction_);
  column->addSpacing(kRowGap);
  column->addWidget(findings_);
  column->addStretch(1);
  refresh();
}

void SessionPage::refresh() {
  const auto text = [this](StringKey key) { return std::string(localization_.text(key)); };
  title_->setText(toQString(text(StringKey::pageSession)));
  introduction_->setText(toQString(text(StringKey::sessionIntroduction)));
  findings_->setMarkNames(text(StringKey::sessionWorks), text(StringKey::sessionFails));
  findings_->setAccessibleName(toQString(text(StringKey::pageSession)));
  findings_->refresh();
}

}  // namespace rondora
