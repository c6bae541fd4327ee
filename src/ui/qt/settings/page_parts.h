#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QScrollArea>
#include <QString>
#include <QVBoxLayout>
#include <QWidget>

// The parts that the pages of the settings share, so that all have one look. Lengths are points.

namespace rondora::settings_look {

inline constexpr int kPageMargin = 24;
/// Between sections of a page.
inline constexpr int kSectionGap = 20;
/// Between rows of a section.
inline constexpr int kRowGap = 8;
/// Between a control and what belongs to it.
inline constexpr int kSmallGap = 4;
/// The side of an icon in a list.
inline constexpr int kListIcon = 20;
/// Pages stay readable in wide windows.
inline constexpr int kMaxPageWidth = 760;

/// The title of a page.
QLabel* makeTitle(const QString& text = {});
/// The title of a section.
QLabel* makeHeading(const QString& text = {});
/// An explanation in smaller, quieter letters that wraps.
QLabel* makeNote(const QString& text = {});
/// What is wrong with the entry above it; hidden while its text is empty.
QLabel* makeProblem();
/// Shows the text in a note or problem, and hides the label when there is none.
void showText(QLabel& label, const QString& text);
/// Shows a state without a signal. `toggled` then tells what the user did; assistive technology toggles a button
/// without a click.
void showChecked(QAbstractButton& button, bool isChecked);
/// The label of a control, its buddy; the control gets the label's text as its accessible name.
QLabel* makeLabelFor(QWidget& control, const QString& text = {});
/// Sets the text of a label made by `makeLabelFor`, and with it the control's accessible name.
void nameControl(QLabel& label, const QString& text);
/// An area in which the content scrolls up and down, never narrower than it.
QScrollArea* makeScrolling(QWidget& content);
/// A scrolling page; the column is its content's layout.
QWidget* makeScrollingPage(QVBoxLayout*& column);
/// A line between sections.
QWidget* makeRule();

}  // namespace rondora::settings_look
