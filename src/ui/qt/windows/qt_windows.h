#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "model/app_language.h"
#include "platform/windows.h"
#include "ui/qt/windows/window_texts.h"

namespace rondora {

/// What the windows show, asked for each time that one is shown.
struct WindowContents {
  std::function<WindowTexts()> texts;
  /// Calls back after the texts have changed, which windows that are up follow.
  std::function<Subscription(std::function<void()>)> onTextsChanged;
  /// Absolute path of the configuration document.
  std::string documentPath;
  std::function<void()> openDocumentFolder;
  std::function<AppLanguage()> language;
  std::function<void(AppLanguage)> chooseLanguage;
  std::function<void()> quit;
  /// What is true of the session at the moment; asked for again and again while a window shows it.
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
