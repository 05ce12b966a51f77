#include "host/RichTextLimits.h"

#include "host/Xml.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>

namespace host {

namespace {

constexpr std::size_t maxLetters = 100'000;
constexpr std::size_t maxNodes = 10'000;
constexpr std::size_t maxFonts = 100;
constexpr std::size_t maxBoxes = 4;

constexpr std::array fontProperties{"fontface", "fontpointsize", "fontpixelsize",
                                    "fontsize", "fontweight",    "fontstyle"};
using Font = std::array<std::string, fontProperties.size()>;

bool isBox(const std::string& name) {
  return name == "textbox" || name == "table" || name == "cell" || name == "field";
}

std::size_t countLetters(const xmlNode& node) {
  const auto startsLetter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
  std::size_t count = 0;
  for (const xmlNode* child = node.children; child; child = child->next) {
    const std::string_view text = textOf(*child);
    count += static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsLetter));
  }
  return count;
}

struct Counts {
  // Fonts and boxes hold for what stands in a node too. The reader has bounded how deep nodes nest.
  void add(const xmlNode& parent, const Font& outerFont, std::size_t outerBoxes) {
    for (const xmlNode* child = firstElement(parent); child; child = nextElement(*child)) {
      const std::string name = nameOf(*child);
      if (name == "stylesheet") continue;
      ++nodes;
      if (name == "text" || name == "symbol") letters += countLetters(*child);
      Font font = outerFont;
      for (std::size_t i = 0; i < font.size(); ++i)
        if (const auto value = findProperty(*child, fontProperties[i])) font[i] = *value;
      if (fonts.size() <= maxFonts) fonts.insert(font);
      const std::size_t inBoxes = outerBoxes + (isBox(name) ? 1 : 0);
      boxes = std::max(boxes, inBoxes);
      add(*child, font, inBoxes);
    }
  }

  std::size_t letters = 0;
  std::size_t nodes = 0;
  std::set<Font> fonts;
  std::size_t boxes = 0;
};

}  // namespace

std::string beyondLimits(const xmlNode& richText) {
  Counts counts;
  counts.add(richText, {}, 0);
  const auto moreThan = [](std::size_t limit, const std::string& what) {
    return "is not shown: it has more than " + std::to_string(limit) + " " + what;
  };
  if (counts.letters > maxLetters) return moreThan(maxLetters, "letters");
  if (counts.nodes > maxNodes) return moreThan(maxNodes, "nodes");
  if (counts.fonts.size() > maxFonts) return moreThan(maxFonts, "fonts");
  if (counts.boxes > maxBoxes) return moreThan(maxBoxes, "boxes in one another");
  return {};
}

}  // namespace host
