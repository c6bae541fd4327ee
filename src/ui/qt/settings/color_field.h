#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>
#include <string>

#include "localization/localization_store.h"
#include "model/palette.h"
#include "ui/qt/settings/color_swatch.h"

namespace rondora {

/// A choice of colour: one of the items' palette, any other by its code or from the toolkit's window of colours, or
/// none where the owner offers that.
class ColorField : public QWidget {
 public:
  /// "#RRGGBB"; nothing for the automatic choice.
  using Choice = std::optional<std::string>;

  /// `automatic` is the text of the choice of none; without it there is always a colour. The store must outlive the
  /// object.
  explicit ColorField(const LocalizationStore& localization, std::optional<StringKey> automatic = std::nullopt);

  /// Called for the user's choices only.
  std::function<void(const Choice&)> onChosen;

  /// What the colour is of, for screen readers; also the title of the window of colours.
  void setName(const QString& name);
  /// Keeps what the user is writing.
  void setColor(const Choice& color);
  /// Shows the texts in the present language.
  void refresh();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void choose(const Choice& color);
  void codeEdited();
  void openWindow();
  void check(QAbstractButton* chosen);
  void showChoice();
  void showProblem(bool isShown);
  QString text(StringKey key) const;

  const LocalizationStore& localization_;
  std::optional<StringKey> automaticText_;
  QString name_;
  Choice color_;
  QRadioButton* automatic_ = nullptr;
  std::array<ColorSwatch*, kItemColorPalette.size()> swatches_{};
  QLineEdit* code_;
  QPushButton* other_;
  QLabel* problem_;
};

}  // namespace rondora
