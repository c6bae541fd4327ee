#include "ui/qt/settings/item_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/choice_box.h"
#include "ui/qt/settings/color_field.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/picture_button.h"

namespace rondora {
namespace {

constexpr int kIcon = 24;
constexpr int kSnippetLines = 5;
constexpr int kLabelWidth = 120;

/// Shows a value without moving the cursor of the user who is typing it.
void showValue(QLineEdit& field, const QString& value) {
  if (field.text() != value) field.setText(value);
}

}  // namespace

ItemPanel::ItemPanel(const SettingsParts& parts)
    : parts_(parts),
      item_(parts_.models.item),
      form_(new QFormLayout),
      title_(new QLineEdit),
      kind_(new ChoiceBox),
      editors_(new QStackedWidget),
      application_(new PictureButton),
      address_(new QLineEdit),
      keystroke_(new QPushButton),
      snippet_(new QPlainTextEdit),
      snippetHint_(settings_look::makeNote()),
      system_(new ChoiceBox),
      problem_(settings_look::makeProblem()),
      icon_(new PictureButton),
      color_(new ColorField(parts_.models.localization)),
      iconColor_(new ColorField(parts_.models.localization, StringKey::iconColorAutomatic)),
      label_(new QLineEdit),
      labelProblem_(settings_look::makeProblem()),
      tryIt_(new QPushButton),
      attempt_(settings_look::makeNote()) {
  for (QPushButton* button : {application_, keystroke_, icon_, tryIt_}) button->setAutoDefault(false);
  icon_->setIconSize({kIcon, kIcon});
  application_->setIconSize({kIcon, kIcon});
  label_->setMaxLength(4);
  snippet_->setTabChangesFocus(true);
  address_->setPlaceholderText(QStringLiteral("https://"));
  address_->setLayoutDirection(Qt::LeftToRight);
  keystroke_->installEventFilter(this);

  form_->setRowWrapPolicy(QFormLayout::WrapAllRows);
  form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form_->setVerticalSpacing(settings_look::kRowGap);
  addRow(titleLabel_, *title_);
  addRow(kindLabel_, *kind_);
  form_->addRow(makeActionEditors());
  form_->addRow(problem_);
  auto* attempt = new QHBoxLayout;
  attempt->addWidget(tryIt_);
  attempt->addWidget(attempt_, 1000);
  attempt->addStretch(1);
  form_->addRow(attempt);
  form_->addRow(settings_look::makeRule());
  addRow(iconLabel_, *icon_);
  addRow(colorLabel_, *color_);
  addRow(iconColorLabel_, *iconColor_);
  label_->setMaximumWidth(kLabelWidth);
  addRow(labelLabel_, *label_);
  form_->addRow(labelProblem_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(form_);
  column->addStretch(1);
  connectFields();
  itemChanged_ = item_.onChanged([this] { refresh(); });
}

void ItemPanel::addRow(QLabel*& label, QWidget& field) {
  label = settings_look::makeLabelFor(field);
  form_->addRow(label, &field);
}

QWidget* ItemPanel::makeActionEditors() {
  const auto page = [this](std::initializer_list<QWidget*> widgets) {
    auto* editor = new QWidget;
    auto* column = new QVBoxLayout(editor);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(settings_look::kSmallGap);
    for (QWidget* widget : widgets) column->addWidget(widget);
    column->addStretch(1);
    editors_->addWidget(editor);
  };
  snippet_->setFixedHeight(snippet_->fontMetrics().lineSpacing() * kSnippetLines + 12);
  page({});
  page({application_});
  page({address_});
  page({keystroke_});
  page({snippet_, snippetHint_});
  // The toolkit names a combo box by its label only, shown or not.
  systemLabel_ = settings_look::makeLabelFor(*system_);
  page({systemLabel_, system_});
  systemLabel_->hide();
  return editors_;
}

void ItemPanel::connectFields() {
  connect(title_, &QLineEdit::textEdited, this, [this](const QString& text) { item_.setTitle(text.toStdString()); });
  connect(kind_, &QComboBox::activated, this,
          [this](int index) { item_.setKind(ItemEditor::kKinds.at(static_cast<std::size_t>(index))); });
  connect(application_, &QPushButton::clicked, this, [this] { chooseApplication(); });
  connect(address_, &QLineEdit::textEdited, this,
          [this](const QString& text) { item_.setAddress(text.toStdString()); });
  connect(
      keystroke_, &QPushButton::clicked, this, [this] { item_.toggleRecording(); }, Qt::QueuedConnection);
  connect(snippet_, &QPlainTextEdit::textChanged, this,
          [this] { item_.setSnippet(snippet_->toPlainText().toStdString()); });
  connect(system_, &QComboBox::activated, this, [this](int index) {
    const auto choices = item_.systemChoices();
    if (index >= 0 && static_cast<std::size_t>(index) < choices.size()) {
      item_.setSystem(choices[static_cast<std::size_t>(index)].kind);
    }
  });
  connect(icon_, &QPushButton::clicked, this, [this] { chooseIcon(); });
  color_->onChosen = [this](const ColorField::Choice& color) {
    if (color) item_.setColor(*color);
  };
  iconColor_->onChosen = [this](const ColorField::Choice& color) { item_.setIconColor(color); };
  connect(label_, &QLineEdit::textEdited, this, [this](const QString& text) { item_.setLabel(text.toStdString()); });
  connect(label_, &QLineEdit::editingFinished, this, [this] {
    item_.setLabel(item_.label());
    showValue(*label_, toQString(item_.label()));
  });
  connect(tryIt_, &QPushButton::clicked, this, [this] { item_.tryIt(); });
}

QString ItemPanel::text(StringKey key) const { return toQString(parts_.models.localization.text(key)); }

void ItemPanel::refresh() {
  if (item_.item() == nullptr) return;
  settings_look::nameControl(*titleLabel_, text(StringKey::itemTitle));
  settings_look::nameControl(*kindLabel_, text(StringKey::itemAction));
  settings_look::nameControl(*iconLabel_, text(StringKey::itemIcon));
  settings_look::nameControl(*labelLabel_, text(StringKey::itemLabel));
  colorLabel_->setText(text(StringKey::itemColor));
  iconColorLabel_->setText(text(StringKey::itemIconColor));
  if (std::exchange(shown_, item_.item()->id) != item_.item()->id) forgetTyping();
  showValue(*title_, toQString(item_.item()->title));
  refreshAction();
  refreshLooks();
  refreshLabel();
  refreshAttempt();
}

/// The undo of a field belongs to one item.
void ItemPanel::forgetTyping() {
  const QSignalBlocker blocker(snippet_);
  snippet_->clear();
  for (QLineEdit* field : {title_, address_, label_}) field->clear();
}

void ItemPanel::refreshAction() {
  const QSignalBlocker kinds(kind_);
  kind_->clear();
  for (const ItemEditor::Kind kind : ItemEditor::kKinds) kind_->addItem(toQString(item_.kindName(kind)));
  const auto kind = std::ranges::find(ItemEditor::kKinds, item_.kind()) - ItemEditor::kKinds.begin();
  kind_->setCurrentIndex(static_cast<int>(kind));
  editors_->setCurrentIndex(static_cast<int>(kind));
  editors_->setVisible(item_.kind() != ItemEditor::Kind::none);
  for (int i = 0; i < editors_->count(); ++i) {
    const auto policy = i == editors_->currentIndex() ? QSizePolicy::Preferred : QSizePolicy::Ignored;
    editors_->widget(i)->setSizePolicy(QSizePolicy::Preferred, policy);
  }
  editors_->updateGeometry();

  const QString application = toQString(item_.applicationName());
  application_->setText(application.isEmpty() ? text(StringKey::actionChooseApplication) : application);
  application_->setIcon(application.isEmpty()
                            ? QIcon()
                            : parts_.icons.application(item_.applicationIdentifier(), kIcon, devicePixelRatioF()));
  application_->setAccessibleName(text(StringKey::actionChooseApplication));
  application_->setAccessibleDescription(application);
  application_->setToolTip(application);
  address_->setAccessibleName(text(StringKey::addressField));
  showValue(*address_, toQString(item_.address()));
  keystroke_->setText(toQString(item_.keystrokeText()));
  keystroke_->setAccessibleName(text(StringKey::keystrokeField));
  keystroke_->setAccessibleDescription(keystroke_->text());
  snippet_->setAccessibleName(text(StringKey::snippetField));
  if (snippet_->toPlainText().toStdString() != item_.snippet()) {
    const QSignalBlocker snippet(snippet_);
    snippet_->setPlainText(toQString(item_.snippet()));
  }
  snippetHint_->setText(toQString(item_.snippetHint()));
  const QSignalBlocker systems(system_);
  settings_look::nameControl(*systemLabel_, text(StringKey::systemField));
  system_->clear();
  for (const auto& choice : item_.systemChoices()) {
    system_->addItem(toQString(choice.name));
    const auto* chosen = std::get_if<SystemShortcut>(&item_.item()->action);
    if (chosen != nullptr && chosen->kind == choice.kind) system_->setCurrentIndex(system_->count() - 1);
  }
  settings_look::showText(*problem_, toQString(item_.problem()));
}

void ItemPanel::refreshLooks() {
  const PieMenuItem& item = *item_.item();
  icon_->setIcon(parts_.icons.picture(item, kIcon, palette().color(QPalette::ButtonText), devicePixelRatioF()));
  icon_->setText(text(StringKey::itemIconChange));
  color_->setName(text(StringKey::itemColor));
  color_->refresh();
  color_->setColor(item.color);
  iconColor_->setName(text(StringKey::itemIconColor));
  iconColor_->refresh();
  iconColor_->setColor(item.iconColor);
}

void ItemPanel::refreshLabel() {
  label_->setPlaceholderText(toQString(item_.automaticLabel()));
  if (item_.labelProblem().empty() || !label_->hasFocus()) showValue(*label_, toQString(item_.label()));
  settings_look::showText(*labelProblem_, toQString(item_.labelProblem()));
  label_->setAccessibleDescription(labelProblem_->text());
}

void ItemPanel::refreshAttempt() {
  tryIt_->setText(text(StringKey::itemTry));
  settings_look::showText(*attempt_, toQString(item_.attempt()));
}

void ItemPanel::editTitle() {
  title_->setFocus(Qt::OtherFocusReason);
  title_->selectAll();
}

void ItemPanel::chooseApplication() {
  if (!parts_.chooseApplication) return;
  parts_.chooseApplication(*this, [this](const std::string& id) { item_.setApplication(id); });
}

void ItemPanel::chooseIcon() {
  if (!parts_.chooseIcon || item_.item() == nullptr) return;
  parts_.chooseIcon(*this, *item_.item(), [this](const std::string& icon) { item_.setIcon(icon); });
}

void ItemPanel::hideEvent(QHideEvent* event) {
  item_.cancelRecording();
  QWidget::hideEvent(event);
}

bool ItemPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == keystroke_ && event->type() == QEvent::FocusOut && item_.isRecording()) item_.cancelRecording();
  return QWidget::eventFilter(watched, event);
}

}  // namespace rondora
