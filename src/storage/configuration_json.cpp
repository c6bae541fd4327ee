#include "storage/configuration_json.h"

#include <functional>

#include "storage/configuration_decoder.h"

namespace rondora {
namespace {

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

CodingResult<PieConfiguration> decodeConfiguration(std::string_view bytes, RandomSource& random) {
  return decoded(bytes, random, &ConfigurationDecoder::configuration);
}

CodingResult<PieMenuItem> decodeMenuItem(std::string_view bytes, RandomSource& random) {
  return decoded(bytes, random, &ConfigurationDecoder::item);
}

}  // namespace rondora
