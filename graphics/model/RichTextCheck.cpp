#include "graphics/model/RichTextCheck.h"

#include "graphics/model/Picture.h"
#include "graphics/model/PictureHeader.h"

#include <wx/richtext/richtextbuffer.h>
#include <wx/xml/xml.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace graphics {

namespace {

constexpr std::size_t kMaxLetters = 100'000;
constexpr std::size_t kMaxElements = 10'000;
/// The font library goes through all fonts of the machine for each new size.
constexpr std::size_t kMaxFonts = 100;
/// A box is laid out several times for each of the boxes that it stands in.
constexpr int kMaxBoxes = 4;
/// The pictures of one text, as they are and as they are shown.
constexpr double kMaxShownPixels = 16.0 * 1024 * 1024;
/// Indents, margins and sizes, in tenths of a millimetre or pixels.
constexpr long kLargestNumber = 65'535;
constexpr long kLargestFont = 1'000;
constexpr long kLargestPicture = 4'096;
constexpr long kLargestTable = 1'000;
constexpr std::size_t kLongestName = 256;
constexpr std::size_t kMostTabs = 64;

bool IsBox(const wxString& name) {
  return name == "textbox" || name == "table" || name == "cell" || name == "field";
}

/// The whole number that a value starts with.
std::optional<long> NumberOf(const wxString& value) {
  long long number = 0;
  const wxString digits = value.BeforeFirst(',').BeforeFirst('.');
  if (digits.empty() || digits.length() > 18 || !digits.ToLongLong(&number)) return std::nullopt;
  return static_cast<long>(number);
}

bool IsNumeric(const wxString& value) {
  return !value.empty() && (wxIsdigit(value[0]) || ((value[0] == '-' || value[0] == '+') && value.length() > 1));
}

wxString ClampedNumber(const wxString& value, long smallest, long largest) {
  const std::optional<long> number = NumberOf(value);
  if (number && *number >= smallest && *number <= largest) return value;
  const long tooFar = value.StartsWith("-") ? smallest : largest;
  const wxString rest = value.Find(',') == wxNOT_FOUND ? wxString() : "," + value.AfterFirst(',');
  return wxString() << std::clamp(number.value_or(tooFar), smallest, largest) << rest;
}

/// Today's number of a font weight; files of the older toolkit count normal, light and bold from 90.
wxString WeightOf(const wxString& value) {
  constexpr std::array<std::pair<const char*, const char*>, 3> kWeights{{{"90", "400"}, {"91", "300"}, {"92", "700"}}};
  for (const auto& [old, today] : kWeights)
    if (value == old) return today;
  return ClampedNumber(value, 1, 1000);
}

wxString TabsOf(const wxString& value) {
  wxString tabs;
  wxString rest = value;
  for (std::size_t count = 0; count < kMostTabs && !rest.empty(); ++count) {
    const wxString tab = rest.BeforeFirst(',');
    rest = rest.AfterFirst(',');
    if (IsNumeric(tab)) tabs << (tabs.empty() ? "" : ",") << ClampedNumber(tab, 0, kLargestNumber);
  }
  return tabs;
}

/// Values that may begin with a digit and are no numbers all the same.
bool IsText(const wxString& name) {
  constexpr std::array kTexts{"url",      "bullettext", "bulletname", "characterstyle", "parstyle", "liststyle",
                              "boxstyle", "name",       "id"};
  return std::any_of(kTexts.begin(), kTexts.end(), [&](const char* text) { return name == text; });
}

void PrepareAttribute(wxXmlAttribute& attribute) {
  const wxString& name = attribute.GetName();
  const wxString& value = attribute.GetValue();
  if (name == "fontweight")
    attribute.SetValue(WeightOf(value));
  else if (name == "fontpointsize" || name == "fontsize")
    attribute.SetValue(ClampedNumber(value, 1, kLargestFont));
  else if (name == "linespacing")
    attribute.SetValue(ClampedNumber(value, 1, 1000));
  else if (name == "tabs")
    attribute.SetValue(TabsOf(value));
  else if (name.EndsWith("color"))
    // The toolkit knows no other digits.
    attribute.SetValue(value.Upper());
  else if (name == "fontface" || name == "bulletfont")
    attribute.SetValue(value.Left(kLongestName));
  else if (IsNumeric(value) && !IsText(name))
    attribute.SetValue(ClampedNumber(value, -kLargestNumber, kLargestNumber));
}

/// The toolkit makes fonts of a size in pixels with the help of a display, and crashes without one.
void PreparePixelSize(wxXmlNode& node) {
  wxString pixels;
  if (!node.GetAttribute("fontpixelsize", &pixels)) return;
  for (const char* const name : {"fontpixelsize", "fontpointsize", "fontsize"})
    while (node.DeleteAttribute(name)) continue;
  const long size = NumberOf(ClampedNumber(pixels, 1, kLargestFont)).value_or(1);
  // Three quarters of a point each, rounded.
  node.AddAttribute("fontpointsize", wxString() << (size * 3 + 2) / 4);
}

std::vector<unsigned char> BytesOfHex(const wxString& text) {
  std::vector<unsigned char> bytes;
  bytes.reserve(text.length() / 2);
  int high = -1;
  for (const wxUniChar letter : text) {
    if (!letter.IsAscii() || !wxIsxdigit(letter)) return {};
    const int digit = wxIsdigit(letter) ? static_cast<int>(letter) - '0' : (static_cast<int>(letter) | 0x20) - 'a' + 10;
    if (high >= 0) bytes.push_back(static_cast<unsigned char>(high * 16 + digit));
    high = high >= 0 ? -1 : digit;
  }
  return bytes;
}

/// What an element has from those that it stands in.
struct CInherited {
  CInherited() = default;
  CInherited(const CInherited& outer, const wxXmlNode& node) : font(outer.font), boxes(outer.boxes) {
    constexpr std::array kAttributes{"fontface", "fontpointsize", "fontsize", "fontweight", "fontstyle"};
    for (std::size_t index = 0; index < font.size(); ++index) node.GetAttribute(kAttributes[index], &font[index]);
    boxes += IsBox(node.GetName());
  }

  using CFont = std::array<wxString, 5>;
  CFont font;
  int boxes = 0;
};

class CPreparation {
public:
  /// False beyond a limit.
  bool Prepare(wxXmlNode& node, const CInherited& outer) {
    for (wxXmlNode* child = node.GetChildren(); child;) {
      wxXmlNode* const next = child->GetNext();
      if (!Keeps(*child)) {
        node.RemoveChild(child);
        delete child;
      } else if (!PrepareChild(*child, outer)) {
        return false;
      }
      child = next;
    }
    return true;
  }

private:
  /// The toolkit leaks style sheets and believes what tables and pictures say of themselves.
  bool Keeps(wxXmlNode& node) {
    if (node.GetType() != wxXML_ELEMENT_NODE) return true;
    const wxString& name = node.GetName();
    if (name == "stylesheet") return false;
    if (name == "symbol") return IsLetter(NumberOf(node.GetNodeContent()).value_or(0));
    if (name == "table") return IsWhole(node);
    if (name == "image") return KeepsPicture(node);
    return true;
  }

  bool PrepareChild(wxXmlNode& node, const CInherited& outer) {
    if (node.GetType() != wxXML_ELEMENT_NODE) return true;
    if (node.GetName() == "text" || node.GetName() == "symbol") letters_ += node.GetNodeContent().length();
    PreparePixelSize(node);
    for (wxXmlAttribute* at = node.GetAttributes(); at; at = at->GetNext()) PrepareAttribute(*at);
    const CInherited inner(outer, node);
    fonts_.insert(inner.font);
    return ++elements_ <= kMaxElements && letters_ <= kMaxLetters && inner.boxes <= kMaxBoxes &&
           fonts_.size() <= kMaxFonts && Prepare(node, inner);
  }

  static bool IsLetter(long code) {
    return code >= 32 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF) && (code & 0xFFFE) != 0xFFFE;
  }

  /// The toolkit takes every child of a table for a cell.
  static bool IsWhole(wxXmlNode& table) {
    const long rows = NumberOf(table.GetAttribute("rows")).value_or(0);
    const long columns = NumberOf(table.GetAttribute("cols")).value_or(0);
    if (rows < 1 || columns < 1 || rows > kLargestTable || columns > kLargestTable) return false;
    long cells = 0;
    for (wxXmlNode* child = table.GetChildren(); child;) {
      wxXmlNode* const next = child->GetNext();
      if (child->GetType() == wxXML_ELEMENT_NODE && child->GetName() == "cell") {
        ++cells;
      } else {
        table.RemoveChild(child);
        delete child;
      }
      child = next;
    }
    return cells == rows * columns;
  }

  static wxBitmapType PictureTypeOfNumber(long number) {
    for (const wxBitmapType type : {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_BMP})
      if (number == type) return type;
    return wxBITMAP_TYPE_INVALID;
  }

  bool KeepsPicture(wxXmlNode& picture) {
    const wxXmlNode* data = nullptr;
    for (const wxXmlNode* child = picture.GetChildren(); child; child = child->GetNext()) {
      if (child->GetType() != wxXML_ELEMENT_NODE) continue;
      if (data || child->GetName() != "data") return false;
      data = child;
    }
    if (!data || !data->GetChildren() || data->GetChildren()->GetNext()) return false;
    const std::vector<unsigned char> bytes = BytesOfHex(data->GetNodeContent());
    const wxBitmapType type = PictureTypeOfNumber(NumberOf(picture.GetAttribute("imagetype", "15")).value_or(0));
    const auto header = FindPictureHeader(bytes);
    if (type == wxBITMAP_TYPE_INVALID || !header) return false;
    const auto ownWidth = static_cast<double>(header->width);
    const auto ownHeight = static_cast<double>(header->height);
    const long width = ShownLength(picture, "width", ownWidth);
    const long height = ShownLength(picture, "height", ownHeight);
    pixels_ += std::max(ownWidth * ownHeight, static_cast<double>(width) * static_cast<double>(height));
    return pixels_ <= kMaxShownPixels && LoadPicture(bytes, type).IsOk();
  }

  /// A share of the frame is no size that can be counted on.
  static long ShownLength(wxXmlNode& picture, const wxString& name, double own) {
    const wxString value = picture.GetAttribute(name);
    const long flags = NumberOf(value.AfterFirst(',')).value_or(0);
    const bool usable = IsNumeric(value) && (flags & wxTEXT_ATTR_UNITS_MASK) == wxTEXT_ATTR_UNITS_PIXELS;
    picture.DeleteAttribute(name);
    if (!usable) return static_cast<long>(own);
    picture.AddAttribute(name, ClampedNumber(value, 1, kLargestPicture));
    return std::clamp(NumberOf(value).value_or(kLargestPicture), 1L, kLargestPicture);
  }

  std::set<CInherited::CFont> fonts_;
  std::size_t elements_ = 0;
  std::size_t letters_ = 0;
  double pixels_ = 0;
};

}  // namespace

bool PrepareRichText(wxXmlNode& root) {
  return CPreparation().Prepare(root, {});
}

}  // namespace graphics
