#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "model/app_language.h"
#include "platform/windows.h"
#include "ui/qt/windows/window_texts.h"

namespace rondora {

/// Contents of the windows, queried each time one is shown.
struct WindowContents {
  std::function<WindowTexts()> texts;
  /// Subscribes to changes of the texts; visible windows update.
  std::function<Subscription(std::function<void()>)> onTextsChanged;
  /// Absolute path of the configuration document.
  std::string documentPath;
  std::function<void()> openDocumentFolder;
  std::function<AppLanguage()> language;
  std::function<void(AppLanguage)> chooseLanguage;
  std::function<void()> quit;
  /// The current findings about the session; polled while a window shows them.
  std::function<std::vector<SessionFinding>()> findings;
};

class QtWindows : public Windows {
 public:
  explicit QtWindows(WindowContents contents);

  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;

 private:
  WindowContents contents_;
};

}  // namespace rondora
