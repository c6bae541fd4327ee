#pragma once

#include <QTextDocument>
#include <QWidget>

#include "platform/windows.h"

namespace rondora {

/// The preview window of a snippet: its beginning, and a hint that states what choosing it does. Looks like a part of
/// the ring, whatever the desktop's colours. Each paragraph has its own direction.
class SnippetNote : public QWidget {
 public:
  SnippetNote();

  /// Takes the size that the texts need.
  void setPreview(const SnippetPreview& preview);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void cutCorners();
  int hintTop() const;

  QTextDocument snippet_;
  QTextDocument hint_;
};

}  // namespace rondora
