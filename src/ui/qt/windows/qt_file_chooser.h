#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QString>

#include "platform/file_chooser.h"

namespace rondora {

/// The dialog of the desktop where the toolkit's platform theme offers one, else the toolkit's own.
class QtFileChooser final : public FileChooser {
 public:
  QtFileChooser() = default;
  ~QtFileChooser() override;
  QtFileChooser(const QtFileChooser&) = delete;
  QtFileChooser& operator=(const QtFileChooser&) = delete;

  bool choose(const FileChoice& choice, Completion completion) override;

 private:
  QPointer<QFileDialog> dialog_;
  QString lastFolder_;
};

}  // namespace rondora
