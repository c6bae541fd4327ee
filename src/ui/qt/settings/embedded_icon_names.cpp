#include "ui/qt/settings/embedded_icon_names.h"

#include <QResource>

#include "platform/qt/qt_text.h"

// In the global namespace, like the resource compiler's names.
static void initializeIconNames() { Q_INIT_RESOURCE(rondora_icon_names); }

namespace rondora {

std::string embeddedIconNames(std::string_view part) {
  initializeIconNames();
  return QResource(":/icon-names/" + toQString(part) + ".txt").uncompressedData().toStdString();
}

}  // namespace rondora
