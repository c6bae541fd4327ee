#include "storage/kept_documents.h"

#include <nlohmann/json.hpp>
#include <utility>
#include <variant>

#include "model/raw_value_table.h"
#include "storage/json_reader.h"

namespace rondora {
namespace {

constexpr RawValueTable<KeptDocument::Cause, 2> kCauses = {{"unreadable", "edited"}};
constexpr RawValueTable<KeptDocument::Keeping, 3> kKeepings = {{"copied", "renamed", "failed"}};

KeptDocument decode(const JsonReader& json) {
  return {.cause = json.at("cause").enumerator([](std::string_view text) { return kCauses.find(text); }),
          .keeping = json.at("keeping").enumerator([](std::string_view text) { return kKeepings.find(text); }),
          .file = json.at("file").string(),
          .problem = json.at("problem").string(),
          .keepingError = json.at("keepingError").string()};
}

nlohmann::json encode(const KeptDocument& document) {
  return {{"cause", kCauses.text(document.cause)},
          {"keeping", kKeepings.text(document.keeping)},
          {"file", document.file},
          {"problem", document.problem},
          {"keepingError", document.keepingError}};
}

/// Skips what another version may have stored.
std::vector<KeptDocument> decodeAll(std::string_view text) {
  const auto parsed = parseJson(text);
  const auto* root = std::get_if<JsonValue>(&parsed);
  try {
    if (root != nullptr) return JsonReader(*root).goodElements(decode);
  } catch (const DecodingError&) {  // no array
  }
  return {};
}

}  // namespace

KeptDocuments::KeptDocuments(UserDefaults& defaults)
    : defaults_(defaults), documents_(decodeAll(defaults.string(kKey).value_or("[]"))) {}

void KeptDocuments::add(KeptDocument document) {
  // It replaces the report that it could not be kept.
  std::erase_if(documents_, [&](const KeptDocument& other) {
    return other == document || (other.keeping == KeptDocument::Keeping::failed && other.cause == document.cause);
  });
  documents_.push_back(std::move(document));
  if (documents_.size() > kMaxDocuments) documents_.erase(documents_.begin());
  store();
}

void KeptDocuments::dismiss(std::string_view file) {
  if (std::erase_if(documents_, [file](const KeptDocument& document) { return document.file == file; }) > 0) store();
}

void KeptDocuments::store() {
  nlohmann::json list = nlohmann::json::array();
  for (const KeptDocument& document : documents_) list.push_back(encode(document));
  // A path may be ill-formed UTF-8.
  defaults_.setString(kKey, list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

}  // namespace rondora
