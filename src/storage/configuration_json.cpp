#include "storage/configuration_json.h"

#include <cstddef>
#include <functional>
#include <utility>

#include "storage/configuration_decoder.h"

namespace rondora {
namespace {

/// Bytes. The smallest item, "{}" and a comma, is written as some ten values in 300 bytes, so this stays far below the
/// limits.
constexpr std::size_t kSmallDocument = 64 << 10;

template <class T>
CodingResult<T> decoded(std::string_view bytes, RandomSource& random,
                        T (ConfigurationDecoder::*decode)(const JsonReader&) const) {
  const auto parsed = parseJson(bytes);
  if (const auto* error = std::get_if<JsonSyntaxError>(&parsed)) return CodingError{error->description};
  try {
    return std::invoke(decode, ConfigurationDecoder(random), JsonReader(std::get<JsonValue>(parsed)));
  } catch (const DecodingError& error) {
    return CodingError{error.description};
  }
}

}  // namespace

// What the program writes it must be able to read, and defaults may make a document many times as large.
CodingResult<PieConfiguration> decodeConfiguration(std::string_view bytes, RandomSource& random) {
  auto result = decoded(bytes, random, &ConfigurationDecoder::configuration);
  const auto* configuration = std::get_if<PieConfiguration>(&result);
  if (configuration == nullptr || bytes.size() <= kSmallDocument) return result;
  auto written = encodeConfiguration(*configuration);
  if (auto* error = std::get_if<CodingError>(&written)) return std::move(*error);
  return result;
}

CodingResult<PieMenuItem> decodeMenuItem(std::string_view bytes, RandomSource& random) {
  return decoded(bytes, random, &ConfigurationDecoder::item);
}

}  // namespace rondora
