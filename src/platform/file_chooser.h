#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace rondora {

/// Files that a chooser offers; patterns such as "*.json".
struct FileKind {
  std::string name;
  std::vector<std::string> patterns;
  friend bool operator==(const FileKind&, const FileKind&) = default;
};

struct FileChoice {
  enum class Purpose { open, save };
  Purpose purpose = Purpose::open;
  std::string title;
  /// All files without any. The first is chosen at the beginning.
  std::vector<FileKind> kinds;
  /// For a file to be saved: its name, and the extension (without a dot) for a name that the user types without one.
  std::string suggestedName;
  std::string extension;
  /// Where to begin; empty for the folder of the last choice.
  std::string folder;
  friend bool operator==(const FileChoice&, const FileChoice&) = default;
};

/// Lets the user choose a file in a dialog of the system. Main thread.
class FileChooser {
 public:
  /// An absolute path; nothing when the user cancels.
  using Completion = std::function<void(std::optional<std::string> path)>;

  virtual ~FileChooser() = default;

  /// Shows the dialog above the program's active window and asks before an existing file would be replaced. Calls
  /// `completion` once, after it has returned: also when the dialog is closed with its window, but not when the chooser
  /// itself is destroyed. While one dialog is open another request only brings it forward: false.
  virtual bool choose(const FileChoice& choice, Completion completion) = 0;
};

}  // namespace rondora
