#include "ui/painting/text_fitting.h"

#include <gtest/gtest.h>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Each character is half as wide as the font is high; lines break behind spaces and at soft breaks.
class Typewriter : public TextMeter {
 public:
  explicit Typewriter(double pointSize) : pointSize_(pointSize) {}

  double lineHeight() const override { return pointSize_; }
  double width(std::string_view text) const override { return static_cast<double>(scalarCount(text)) * pointSize_ / 2; }
  std::vector<std::size_t> breaks(std::string_view text) const override {
    std::vector<std::size_t> ends;
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (text[i - 1] == ' ' || text.substr(0, i).ends_with(kSoftBreak)) ends.push_back(i);
    }
    ends.push_back(text.size());
    return ends;
  }

 private:
  double pointSize_;
};

TextCommand label(std::string text) {
  TextCommand command;
  command.text = std::move(text);
  command.rect = {{0, 0}, {50, 20}};  // two lines of ten characters
  command.pointSize = 10;
  command.maximumLines = 2;
  return command;
}

/// The lines, separated by "|".
std::string fitted(const TextCommand& command) {
  const FittedText text = fitText(command, [](double size) { return std::make_unique<Typewriter>(size); });
  std::string lines = text.pointSize == command.pointSize ? "" : "small: ";
  for (const FittedLine& line : text.lines) lines += (&line == &text.lines.front() ? "" : "|") + line.text;
  return text.isRightToLeft ? "from the right: " + lines : lines;
}

TEST(TextFitting, TakesFewLinesThenTheSmallerSizeThenBreaksWordsThenElides) {
  TextCommand small = label("twelve chars");
  small.maximumLines = 1;
  small.smallerPointSize = 8;
  TextCommand middle = label("Report of the year two thousand.txt");
  middle.elision = TextElision::middle;
  TextCommand round = label("twelve one");
  round.disc = Disc{{25, 10}, 20};
  const std::pair<TextCommand, std::string> cases[] = {
      {label(" Text\n Edit "), "Text Edit"},
      {label("System Settings"), "System|Settings"},
      {small, "small: twelve chars"},
      {label("Anaesthesiology"), "Anaesthesi|ology"},
      {label("Anaes\u200Bthesi\u200Bology Ward"), "Anaesthesi|ology Ward"},
      {label("So\u200Bft"), "Soft"},
      {label("Report of the year two thousand"), "Report of|the year…"},
      {middle, "Report of|the…nd.txt"},
      {round, "twelve|one"},
      {label("123 שלום"), "from the right: 123 שלום"},
      {label("7 a שלום"), "7 a שלום"},
      {label(""), ""}};
  for (const auto& [command, lines] : cases) EXPECT_EQ(fitted(command), lines);
}

}  // namespace
}  // namespace rondora
