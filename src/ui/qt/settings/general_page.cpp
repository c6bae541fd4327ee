#include "ui/qt/settings/general_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

using namespace settings_look;

namespace {

constexpr int kAboutIcon = 56;

}  // namespace

// In Tab order.
GeneralPage::GeneralPage(GeneralSettings& general, const LocalizationStore& localization)
    : general_(general),
      localization_(localization),
      title_(makeTitle()),
      language_(new LanguageChooser([this](AppLanguage language) { general_.setLanguage(language); })),
      languageLabel_(makeLabelFor(*language_)),
      login_(new QCheckBox),
      loginProblem_(makeProblem()),
      haptics_(new QCheckBox),
      permissionsHeading_(makeHeading()),
      failuresHeading_(makeHeading()),
      aboutHeading_(makeHeading()),
      version_(new FocusText),
      purpose_(makeNote()),
      licence_(makeNote()) {
  const auto press = [this](const FindingButton& button) { general_.press(button); };
  statusItem_ = new FindingsList([this](auto observer) { return general_.watchStatusItem(observer); }, press);
  permissions_ = new FindingsList([this](auto observer) { return general_.watchPermissions(observer); }, press);
  failures_ = new FindingsList([this](auto observer) { return general_.watchFailures(observer); }, press);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  QVBoxLayout* column = nullptr;
  whole->addWidget(makeScrollingPage(column));
  column->addWidget(title_);
  column->addSpacing(kRowGap);
  auto* languageRow = new QHBoxLayout;
  languageRow->addWidget(languageLabel_);
  languageRow->addWidget(language_);
  languageRow->addStretch();
  column->addLayout(languageRow);
  for (QWidget* row : std::initializer_list<QWidget*>{login_, loginProblem_, haptics_, statusItem_}) {
    column->addWidget(row);
  }
  const auto addSection = [&](QLabel* heading, QWidget* content) {
    column->addSpacing(kSectionGap - kRowGap);
    column->addWidget(heading);
    column->addWidget(content);
  };
  addSection(permissionsHeading_, permissions_);
  addSection(failuresHeading_, failures_);
  addSection(aboutHeading_, makeAbout());
  column->addStretch(1);
  connect(login_, &QCheckBox::toggled, this, [this](bool opens) { switchLogin(opens); });
  connect(haptics_, &QCheckBox::toggled, this, [this](bool isOn) { general_.setHapticFeedback(isOn); });
  refresh();
}

QWidget* GeneralPage::makeAbout() {
  auto* about = new QWidget;
  auto* across = new QHBoxLayout(about);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(kPageMargin / 2);
  auto* icon = new QLabel;
  icon->setPixmap(applicationPixmap(kAboutIcon, devicePixelRatioF()));
  across->addWidget(icon, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(kSmallGap);
  for (QLabel* line : std::initializer_list<QLabel*>{version_, purpose_, licence_}) column->addWidget(line);
  column->addStretch();
  across->addLayout(column, 1);
  return about;
}

void GeneralPage::switchLogin(bool opens) {
  general_.setOpensAtLogin(opens);
  refreshValues();
}

void GeneralPage::refresh() {
  refreshTexts();
  refreshValues();
}

void GeneralPage::refreshTexts() {
  title_->setText(text(StringKey::pageGeneral));
  nameControl(*languageLabel_, text(StringKey::settingsLanguage));
  login_->setText(text(StringKey::settingsStartAtLogin));
  haptics_->setText(text(StringKey::settingsHaptics));
  permissionsHeading_->setText(text(StringKey::permissionsHeading));
  failuresHeading_->setText(text(StringKey::failuresHeading));
  aboutHeading_->setText(text(StringKey::aboutHeading));
  purpose_->setText(toQString(general_.purpose()));
  version_->setText(toQString(general_.version()));
  licence_->setText(toQString(general_.licence()));
  statusItem_->setAccessibleName(text(StringKey::pageGeneral));
  permissions_->setAccessibleName(permissionsHeading_->text());
  failures_->setAccessibleName(failuresHeading_->text());
  for (FindingsList* list : {statusItem_, permissions_, failures_}) {
    list->setMarkNames(std::string(localization_.text(StringKey::sessionWorks)),
                       std::string(localization_.text(StringKey::sessionFails)));
  }
}

void GeneralPage::refreshValues() {
  language_->setLanguage(general_.language());
  settings_look::showChecked(*login_, general_.opensAtLogin());
  login_->setAccessibleDescription(toQString(general_.loginProblem()));
  showText(*loginProblem_, toQString(general_.loginProblem()));
  haptics_->setVisible(general_.hasHaptics());
  settings_look::showChecked(*haptics_, general_.givesHapticFeedback());
  for (FindingsList* list : {statusItem_, permissions_, failures_}) list->refresh();
}

// Other programs change the state, such as the start at login.
void GeneralPage::showEvent(QShowEvent* event) {
  refreshValues();
  QWidget::showEvent(event);
}

QString GeneralPage::text(StringKey key) const { return toQString(localization_.text(key)); }

}  // namespace rondora
