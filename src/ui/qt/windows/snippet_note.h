#pragma once

#include <QTextDocument>
#include <QWidget>

namespace rondora {

/// The window of a snippet's preview: the beginning of the snippet and below it a hint what becomes of it. Looks like a
/// part of the ring whatever the desktop's colours are. Paragraphs follow their own direction.
class SnippetNote : public QWidget {
 public:
  SnippetNote();

  /// Takes the size that the texts need; long snippets are cut off.
  void setTexts(const QString& snippet, const QString& hint);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void cutCorners();
  int hintTop() const;

  QTextDocument snippet_;
  QTextDocument hint_;
};

}  // namespace rondora
