#include "platform/qt/qt_text_order.h"

#include <QCollator>
#include <algorithm>
#include <numeric>

#include "platform/qt/qt_text.h"

namespace rondora {

std::vector<std::size_t> QtTextOrder::order(const std::vector<std::string>& texts, std::string_view language) const {
  QCollator collator{QLocale(toQString(language))};
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  collator.setNumericMode(true);
  std::vector<QCollatorSortKey> keys;
  keys.reserve(texts.size());
  for (const std::string& text : texts) keys.push_back(collator.sortKey(toQString(text)));
  std::vector<std::size_t> places(texts.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::stable_sort(places.begin(), places.end(),
                   [&keys](std::size_t one, std::size_t other) { return keys[one] < keys[other]; });
  return places;
}

}  // namespace rondora
