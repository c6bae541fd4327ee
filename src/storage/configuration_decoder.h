#pragma once

#include "model/pie_configuration.h"
#include "platform/random_source.h"
#include "storage/json_reader.h"

namespace rondora {

/// Decodes the parts of a document. Each operation throws DecodingError.
class ConfigurationDecoder {
 public:
  explicit ConfigurationDecoder(RandomSource& random) : random_(random) {}

  PieConfiguration configuration(const JsonReader& json) const;
  PieMenu menu(const JsonReader& json) const;
  PieMenuItem item(const JsonReader& json) const;
  AppSubMenu appSubMenu(const JsonReader& json) const;
  AppSubMenuEntry appSubMenuEntry(const JsonReader& json) const;

 private:
  void readPresentForm(const JsonReader& json, PieConfiguration& configuration) const;
  void readLegacySingleMenuForm(const JsonReader& json, PieConfiguration& configuration) const;
  void readLooks(const JsonReader& json, PieMenu& menu) const;
  std::vector<PieMenuItem> items(const JsonReader& json) const;
  std::vector<AppSubMenuEntry> entries(const JsonReader& json, std::string_view key) const;

  RandomSource& random_;
};

}  // namespace rondora
