// Writes a PNG with every icon that the program draws itself, each with its name, at a scale. Further arguments are
// icon texts of items to show instead.

#include <QImage>
#include <QPainter>
#include <optional>
#include <string>
#include <vector>

#include "icons/icon_reference.h"
#include "probe_application.h"
#include "ui/qt/painting/icon_images.h"
#include "ui/qt/painting/picture_decoding.h"
#include "ui/qt/painting/symbol_table.h"

namespace {

using namespace rondora;

constexpr int kColumns = 8;
constexpr QSize kCell(150, 84);
constexpr int kIconSide = 42;

class ThemeIcons : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override {
    ApplicationIconSource source;
    source.themeName = std::string(bundleIdentifier);
    return source;
  }
  std::optional<ApplicationIconSource> windowIconSource(std::string_view) const override { return std::nullopt; }
};

std::vector<std::string> everySymbol() {
  std::vector<std::string> names;
  for (const SymbolEntry& entry : symbolTable()) names.emplace_back(entry.name);
  names.emplace_back("no.such.symbol");
  return names;
}

void drawCell(QPainter& painter, const QRect& cell, const std::string& text, double scale, IconImages& icons) {
  const IconReference reference = IconReference::parse(text);
  const int side = qRound(kIconSide * scale);
  const QImage image = icons.image({reference.kind, reference.name, {}, {1, 1, 1, 1}}, side);
  painter.drawImage(cell.center().x() - image.width() / 2, cell.top() + qRound(10 * scale), image);
  painter.setPen(Qt::lightGray);
  painter.drawText(cell.adjusted(2, qRound(58 * scale), -2, 0), Qt::AlignHCenter | Qt::AlignTop,
                   painter.fontMetrics().elidedText(QString::fromStdString(text), Qt::ElideMiddle, cell.width() - 6));
}

QImage draw(const std::vector<std::string>& texts, double scale) {
  const int rows = (static_cast<int>(texts.size()) + kColumns - 1) / kColumns;
  const QSize cell = kCell * scale;
  QImage sheet(cell.width() * kColumns, cell.height() * rows, QImage::Format_RGB32);
  sheet.fill(QColor(40, 44, 54));
  QPainter painter(&sheet);
  QFont font = painter.font();
  font.setPixelSize(qRound(11 * scale));
  painter.setFont(font);
  const ThemeIcons applications;
  IconImages icons(applications, {.sitePicture = {}, .decode = decodeAtOnce});
  for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
    const QPoint corner((i % kColumns) * cell.width(), (i / kColumns) * cell.height());
    drawCell(painter, {corner, cell}, texts[static_cast<std::size_t>(i)], scale, icons);
  }
  return sheet;
}

}  // namespace

int main(int argc, char** argv) {
  ProbeApplication application(argc, argv, "offscreen");
  QCommandLineParser& parser = application.parser;
  parser.addPositionalArgument("file", "The PNG to write.");
  parser.addPositionalArgument("icons", "Icon texts to show instead of the symbols.", "[icon ...]");
  parser.addOption({"scale", "Pixels a point.", "factor", "1"});
  application.parse();
  const QStringList arguments = parser.positionalArguments();
  if (arguments.isEmpty()) parser.showHelp(2);
  std::vector<std::string> texts;
  for (const QString& argument : arguments.mid(1)) texts.push_back(argument.toStdString());
  return draw(texts.empty() ? everySymbol() : texts, parser.value("scale").toDouble()).save(arguments.front()) ? 0 : 1;
}
