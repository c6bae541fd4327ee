#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/user_defaults.h"

namespace rondora {

/// A document in whose place the program wrote another.
struct KeptDocument {
  /// Not readable at the start, or edited by hand while the program ran.
  enum class Cause { unreadable, edited };
  /// How its bytes were kept: in a copy, or the file itself got another name, or not at all.
  enum class Keeping { copied, renamed, failed };

  Cause cause = Cause::unreadable;
  Keeping keeping = Keeping::copied;
  /// Where its bytes are now, an absolute path; the document's own path when keeping failed.
  std::string file = {};
  /// Why the program could not read it, in English; empty for other causes.
  std::string problem = {};
  /// Why keeping failed, as the system's message.
  std::string keepingError = {};
  friend bool operator==(const KeptDocument&, const KeptDocument&) = default;
};

/// The kept documents that the user has not dismissed, across restarts. Main thread.
class KeptDocuments {
 public:
  static constexpr std::string_view kKey = "pie.keptDocuments";
  /// Beyond this number the oldest is no longer listed; its file stays.
  static constexpr std::size_t kMaxDocuments = 20;

  explicit KeptDocuments(UserDefaults& defaults);

  /// Oldest first.
  const std::vector<KeptDocument>& documents() const { return documents_; }
  void add(KeptDocument document);
  /// Removes those at this path from the list, not from the disk.
  void dismiss(std::string_view file);
  /// Writes the list again, after the defaults could not be written.
  void store();

 private:
  UserDefaults& defaults_;
  std::vector<KeptDocument> documents_;
};

}  // namespace rondora
