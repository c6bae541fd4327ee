#pragma once

#include <functional>
#include <optional>
#include <string>

#include "localization/localization_store.h"
#include "platform/workspace.h"
#include "settings/findings_watch.h"
#include "storage/config_manager.h"
#include "storage/kept_documents.h"

namespace rondora {

/// The findings about the files that the program writes: the configuration, the defaults and the icons of sites, with
/// buttons to mend what happened to them. Main thread.
class DocumentFindings {
 public:
  /// The references must outlive the object.
  struct Services {
    ConfigManager& config;
    KeptDocuments& kept;
    const UserDefaults& defaults;
    Workspace& workspace;
    const LocalizationStore& localization;
    /// Why icons of web sites are not on disk; nothing when they are.
    std::function<FileError()> sitePictureProblem;
  };

  explicit DocumentFindings(const Services& services) : services_(services) {}

  /// What cannot be saved, then kept documents, newest first. All of them fail.
  SessionFindings findings() const;
  /// That edits cannot be saved; nothing while they can.
  std::optional<SessionFinding> notSaved() const;
  /// Carries out the command of a button of these findings. What it could not do is part of the finding afterwards.
  void press(const FindingButton& button);

 private:
  /// What the last command could not do with its file.
  struct Failure {
    std::string file;
    StringKey message = StringKey::importRefused;
    std::string problem;
  };

  std::optional<SessionFinding> sitePicturesNotSaved() const;
  SessionFinding finding(const KeptDocument& document) const;
  std::string remedy(const KeptDocument& document) const;
  std::vector<FindingButton> buttons(const KeptDocument& document) const;
  FindingButton button(FindingCommand command, StringKey title, const KeptDocument& document) const;
  void open(const std::string& file);
  void import(const std::string& file);

  Services services_;
  std::optional<Failure> failure_;
};

}  // namespace rondora
