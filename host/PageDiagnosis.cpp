#include "host/PageDiagnosis.h"

#include "host/Errors.h"
#include "host/Xml.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace host {

namespace {

// Kinds that the module makes from their name alone.
constexpr std::array drawnKinds = {"paper",     "line",  "point",        "circle", "rectangle", "arrow",
                                   "dimension", "dummy", "state-button", "mirror", "label"};
// Kinds that the module may refuse.
constexpr std::array otherKinds = {"base", "image", "text", "text-circle", "table", "shape", "custom", "animation"};
// What can stand as "type-name" beside the kinds.
constexpr std::array typeNames = {"animation-image", "movie-image", "authed-state-button-action"};
constexpr std::array nonElements = {"bounding-box", "content-box", "xdata"};

template <typename Names>
bool contains(const Names& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(), [&](const char* known) { return sameName(known, name); });
}

bool isKind(const std::string& name) {
  return contains(drawnKinds, name) || contains(otherKinds, name);
}

struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  void include(const Box& other) {
    if (other.left < left) left = other.left;
    if (other.top < top) top = other.top;
    if (other.right > right) right = other.right;
    if (other.bottom > bottom) bottom = other.bottom;
  }
};

Box boundsOf(const xmlNode& element) {
  double x = 0, y = 0, width = 0, height = 0;
  if (const xmlNode* center = findChild(element, "center")) {
    x = numberOf(*center, "x");
    y = numberOf(*center, "y");
  }
  if (const xmlNode* size = findChild(element, "size")) {
    width = numberOf(*size, "width");
    height = numberOf(*size, "height");
  }
  const double angle = numberOf(element, "rotation") * 0.017453292519943295;
  const double boundWidth = std::abs(width * std::cos(angle)) + std::abs(height * std::sin(angle));
  const double boundHeight = std::abs(width * std::sin(angle)) + std::abs(height * std::cos(angle));
  const double left = x - boundWidth * 0.5;
  const double top = y - boundHeight * 0.5;
  return {left, top, left + boundWidth, top + boundHeight};
}

long long uniqueNumberOf(const xmlNode& element) {
  const std::string text = findProperty(element, "unique").value_or("");
  char* end = nullptr;
  const long long number = std::strtoll(text.c_str(), &end, 10);
  return end != text.c_str() && *end == '\0' ? number : -1;
}

class Walk {
public:
  explicit Walk(const PageFile& page) : page_(page) {}

  // The union of the elements' bounds; nothing without elements.
  std::optional<Box> document(const xmlNode& node) {
    std::optional<Box> bounds;
    for (const xmlNode* child = firstElement(node); child; child = nextElement(*child)) {
      const std::string name = nameOf(*child);
      if (contains(nonElements, name)) continue;
      const Box box = element(*child, name);
      if (bounds) {
        bounds->include(box);
      } else {
        bounds = box;
      }
    }
    return bounds;
  }

  long doubtfulLine() const { return doubtfulLine_; }

private:
  struct Shared {
    std::string type;
    Box bounds;
  };

  Box element(const xmlNode& node, const std::string& name) {
    if (!isKind(name)) unknown(node, name);

    const std::string storedType = findProperty(node, "type").value_or("");
    std::string typeName = findProperty(node, "type-name").value_or("");
    if (typeName.empty()) typeName = storedType;
    const std::string& kind = typeName.empty() ? name : typeName;
    if (!contains(drawnKinds, kind)) {
      if (!isKind(kind) && !contains(typeNames, kind)) unknown(node, kind);
      doubt(node);
    }

    const long long unique = uniqueNumberOf(node);
    const std::string& type = storedType.empty() ? typeName : storedType;
    if (const auto known = shared_.find(unique); unique > 0 && known != shared_.end()) {
      if (!known->second.type.empty() && !sameName(known->second.type, type)) doubt(node);
      return known->second.bounds;
    }
    const Box bounds = boundsOf(node);
    if (unique > 0) shared_[unique] = {type, bounds};
    if (sameName(kind, "mirror")) {
      if (const xmlNode* nested = findChild(node, "graphic-document")) document(*nested);
    }
    return bounds;
  }

  void doubt(const xmlNode& node) {
    if (doubtfulLine_ == 0) doubtfulLine_ = lineOf(node);
  }

  [[noreturn]] void unknown(const xmlNode& node, const std::string& kind) const {
    throw InputError(located(page_.path, lineOf(node), oneLine("unknown element type '" + kind + "'")));
  }

  const PageFile& page_;
  std::map<long long, Shared> shared_;
  long doubtfulLine_ = 0;
};

int evenAtLeastTwo(double value) {
  return std::max(2, static_cast<int>(std::lround(value / 2)) * 2);
}

}  // namespace

Size PageDiagnosis::suggestSize(int lines) const {
  constexpr double widest = 4096;
  const int rows = evenAtLeastTwo(std::min<double>(lines, widest / aspect()));
  return {evenAtLeastTwo(std::min(aspect() * rows, widest)), rows};
}

bool PageDiagnosis::fits(Size size) const {
  return std::abs(aspect() - size.aspect()) <= 0.2;
}

PageDiagnosis diagnose(const PageFile& page) {
  const XmlDocument document = parseXml(page);
  const xmlNode& root = *xmlDocGetRootElement(document.get());
  Walk walk(page);
  const std::optional<Box> bounds = walk.document(root);

  PageDiagnosis result;
  result.doubtfulLine = walk.doubtfulLine();
  const xmlNode* contentBox = findChild(root, "content-box");
  if (contentBox) {
    result.width = numberOf(*contentBox, "width");
    result.height = numberOf(*contentBox, "height");
  } else if (bounds) {
    result.width = bounds->right - bounds->left;
    result.height = bounds->bottom - bounds->top;
  }
  if (!(result.width > 0) || !(result.height > 0) || !std::isfinite(result.aspect()) || result.aspect() <= 0) {
    throw InputError(located(page.path, lineOf(contentBox ? *contentBox : root),
                             contentBox ? "the content-box has no size"
                                        : "the page has no size: neither a content-box nor elements give it one"));
  }
  return result;
}

}  // namespace host
