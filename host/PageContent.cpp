#include "host/PageContent.h"

#include "host/AnimationFaults.h"
#include "host/ElementFaults.h"
#include "host/MovieFaults.h"
#include "host/PageValues.h"
#include "host/SkinFaults.h"
#include "host/Spelling.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace host {

namespace {

// What the module takes.
constexpr int maxElementDepth = 50;
constexpr int maxMirrorDepth = 8;
constexpr long maxElements = 1'000'000;
constexpr double maxFrames = 100'000;

struct Bounds {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  void include(const Bounds& other) {
    if (other.left < left) left = other.left;
    if (other.top < top) top = other.top;
    if (other.right > right) right = other.right;
    if (other.bottom > bottom) bottom = other.bottom;
  }
};

Bounds boundsOf(const xmlNode& element) {
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
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0 ? number : 0;
}

std::vector<std::string_view> kindNames() {
  std::vector<std::string_view> names;
  for (const ElementKind& kind : elementKinds()) names.push_back(kind.name);
  return names;
}

std::vector<std::string_view> propertyNames(const NodeForm& form) {
  std::vector<std::string_view> names = form.base ? propertyNames(*form.base) : std::vector<std::string_view>();
  for (const PropertyForm& property : form.properties) names.push_back(property.name);
  return names;
}

std::vector<std::string_view> childNames(const NodeForm& form) {
  std::vector<std::string_view> names = form.base ? childNames(*form.base) : std::vector<std::string_view>();
  for (const ChildForm& child : form.children) names.push_back(child.name);
  return names;
}

// Depth is bounded by what the parser takes.
class Walk {
public:
  PageContent run(const xmlNode& root) {
    const std::string name = nameOf(root);
    if (!sameName(name, "page") && !sameName(name, "graphic-document"))
      warning(root, tagOf(root) + " is read as the page whatever its name; the usual one is <graphic-document>");
    visit(root, documentForm);
    findSize(root);
    std::stable_sort(content_.movies.begin(), content_.movies.end(),
                     [](const MovieUse& a, const MovieUse& b) { return lineOf(*a.node) < lineOf(*b.node); });
    return std::move(content_);
  }

private:
  struct Shared {
    std::string type;         // as written; empty matches every other one
    const ElementKind* kind;  // null for a skin or a movie
    const xmlNode* node;
    long line;
    long count;  // of elements, with those inside
    Bounds bounds;
    bool beingRead;
    bool onPage;  // and not only in other elements
  };
  // The element whose nodes are being read; with the number of the skin within it if that is being read.
  struct Owner {
    const xmlNode* node = nullptr;
    long long unique = 0;
    int depth = 0;
    int mirrors = 0;
    bool isAnimation = false;
  };

  void error(const xmlNode& place, const std::string& text) { content_.findings.error(lineOf(place), text); }
  void warning(const xmlNode& place, const std::string& text) { content_.findings.warning(lineOf(place), text); }
  void doubt(const xmlNode& place) {
    if (content_.refusedLine == 0) content_.refusedLine = lineOf(place);
  }
  void refused(const xmlNode& place, const std::string& text) {
    error(place, text + "; the module refuses the page");
    doubt(place);
  }

  void visit(const xmlNode& node, const NodeForm& form) {
    visitProperties(node, form);
    findNodeFaults(node, form, content_.findings);
    if (form.content != Content::none)
      content_.attachments.push_back({form.content, &node, owner_.node, owner_.unique, owner_.isAnimation});
    std::set<const ChildForm*> seen;
    for (const xmlNode* child = node.children; child && !stopped_; child = child->next) {
      if (child->type == XML_ELEMENT_NODE)
        visitChild(*child, node, form, seen);
      else if (form.content == Content::none)
        findStrayText(*child, node);
    }
  }

  void visitChild(const xmlNode& child, const xmlNode& parent, const NodeForm& form, std::set<const ChildForm*>& seen) {
    const std::string name = nameOf(child);
    if (const ChildForm* known = findChild(form, name)) {
      if (!known->repeated && !seen.insert(known).second)
        return warning(child, "a second " + tagOf(child) + " in " + tagOf(parent) + " is ignored");
      if (known->form == &skinForm) return visitSkin(child);
      if (known->form == &movieForm) return visitMovie(child);
      if (known->form == &actionForm && !findProperty(child, "type")) refused(child, tagOf(child) + " has no \"type\"");
      if (!known->form->variants.empty()) return visitVariant(child, *known->form);
      return visit(child, *known->form);
    }
    if (takesAnyChild(form, name)) return visit(child, *form.anyChild);
    if (form.holdsElements) return visitElement(child, name);
    warning(child, "unknown node " + tagOf(child) + " in " + tagOf(parent) + " is ignored" +
                       suggestion(name, childNames(form)));
  }

  void visitVariant(const xmlNode& node, const NodeForm& form) {
    const NodeForm* variant = findVariant(form, findProperty(node, "type").value_or(""));
    if (variant) return visit(node, *variant);
    visitProperties(node, form);
  }

  // A skin of a type that is none is not read.
  void visitSkin(const xmlNode& node) {
    const std::string type = findProperty(node, "type").value_or("");
    if (type.empty()) warning(node, tagOf(node) + " has no \"type\": there is no skin");
    if (!isSkinType(type)) return visitProperties(node, skinForm);
    if (visitShared(node, skinForm, type, content_.skins)) findSkinFaults(node, content_.findings);
  }

  void visitMovie(const xmlNode& node) {
    const std::string type = findProperty(node, "type").value_or("");
    if (type.empty()) refused(node, tagOf(node) + " has no \"type\"");
    if (type == "custom") warning(node, tagOf(node) + " of the type 'custom' shows nothing: nobody makes such movies");
    const NodeForm* form = findVariant(movieForm, type);
    if (!form) return visitProperties(node, movieForm);
    if (!visitShared(node, *form, type, content_.movieNumbers)) return;
    findMovieFaults(node, content_.findings);
    content_.movies.push_back({&node, owner_.node, uniqueNumberOf(node)});
  }

  // Visits a resource that elements may share by its number, which is added to those of its sort. False if it stands
  // somewhere else.
  bool visitShared(const xmlNode& node, const NodeForm& form, const std::string& type, std::set<long long>& numbers) {
    const long long unique = uniqueNumberOf(node);
    if (unique > 0) {
      ++content_.uses[unique];
      numbers.insert(unique);
      if (const auto known = shared_.find(unique); known != shared_.end()) {
        visitReference(node, nullptr, type, unique, known->second);
        return false;
      }
      shared_[unique] = {type, nullptr, &node, lineOf(node), 0, {}, true, false};
    }
    const long before = count_;
    ++count_;
    const Owner outer = owner_;
    ++owner_.depth;
    if (unique > 0) owner_.unique = unique;
    if (!isTooDeep(node)) visit(node, form);
    owner_ = outer;
    if (unique > 0) endSharing(unique, before);
    limitCount(node);
    return true;
  }

  void findStrayText(const xmlNode& text, const xmlNode& parent) {
    std::string_view content = textOf(text);
    const std::size_t first = content.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return;
    content.remove_prefix(first);
    warning(parent, "text in " + tagOf(parent) + " is ignored: " + inQuotes(content.substr(0, content.find('\n'))));
  }

  void visitProperties(const xmlNode& node, const NodeForm& form) {
    for (const xmlAttr* property = node.properties; property; property = property->next) {
      const std::string name = nameOf(*property);
      const PropertyForm* known = findProperty(form, name);
      if (!known) {
        warning(node, "unknown property " + inQuotes(name) + " in " + tagOf(node) + " is ignored" +
                          suggestion(name, propertyNames(form)));
        continue;
      }
      visitValue(node, name, *known->value, valueOf(*property));
    }
  }

  void visitValue(const xmlNode& node, const std::string& name, const ValueForm& form, const std::string& value) {
    const std::string fault = faultOf(form, value);
    if (fault.empty()) return;
    error(node, tagOf(node) + " " + name + "=" + inQuotes(value, '"') + ": " + fault);
    if (form.refused) doubt(node);
  }

  void visitElement(const xmlNode& node, const std::string& name) {
    const std::string storedType = findProperty(node, "type").value_or("");
    const std::string typeName = typeNameOf(node);
    const ElementKind* kind = kindOf(node, name, typeName);
    if (!kind) return;

    const long long unique = uniqueNumberOf(node);
    const std::string& type = storedType.empty() ? typeName : storedType;
    if (unique > 0) {
      ++content_.uses[unique];
      if (const auto known = shared_.find(unique); known != shared_.end())
        return visitReference(node, kind, type, unique, known->second);
      shared_[unique] = {type, kind, &node, lineOf(node), 0, boundsOf(node), true, !owner_.node};
    }

    const long before = count_;
    ++count_;
    visitFresh(node, *kind, unique);
    cover(unique > 0 ? shared_[unique].bounds : boundsOf(node));
    if (unique > 0) endSharing(unique, before);
    limitCount(node);
  }

  void endSharing(long long unique, long countBefore) {
    shared_[unique].count = count_ - countBefore;
    shared_[unique].beingRead = false;
  }

  // The kind that the module makes of a node; null, and an error is noted, if it makes none.
  const ElementKind* kindOf(const xmlNode& node, const std::string& name, const std::string& typeName) {
    if (!isElementNode(name) && !isReservedKind(name)) return unknown(node, name);
    const std::string& wanted = typeName.empty() ? name : typeName;
    const ElementKind* kind = findElementKind(plainKindOf(wanted));
    if (!kind && !isReservedKind(wanted)) {
      doubt(node);
      return unknown(node, wanted);
    }
    if (!kind) {
      refused(node, "element type " + inQuotes(wanted) + " cannot be shown");
      return nullptr;
    }
    if (!kind->typeName.empty() && !sameName(kind->typeName, wanted)) {
      refused(node, "element type " + inQuotes(wanted) +
                        " cannot be shown without type-name=" + inQuotes(kind->typeName, '"'));
      return nullptr;
    }
    if (!sameName(kind->node, name))
      warning(node, tagOf(node) + " is read as a " + inQuotes(wanted) + ", as its type says");
    return kind;
  }

  const ElementKind* unknown(const xmlNode& node, const std::string& type) {
    const std::string text = "unknown element type " + inQuotes(type);
    if (content_.unknown.line == 0) content_.unknown = {Finding::Level::error, lineOf(node), text};
    const ElementKind* kind = findElementKind(type);
    error(node, text + (kind ? "; write <" + std::string(kind->node) + " type-name=" + inQuotes(type, '"') + ">"
                             : suggestion(type, kindNames())));
    return nullptr;
  }

  void visitReference(const xmlNode& node, const ElementKind* kind, const std::string& type, long long unique,
                      Shared& shared) {
    const std::string number = "unique=\"" + std::to_string(unique) + "\"";
    const std::string place = " of line " + std::to_string(shared.line);
    if (!shared.type.empty() && !sameName(shared.type, type))
      return refused(node, number + " is the type " + inQuotes(shared.type) + place + ", but " +
                               (type.empty() ? "has no type" : inQuotes(type)) + " here");
    if (shared.beingRead) return refused(node, number + place + " contains itself");
    if (shared.kind != kind) {
      const std::string shown = shared.kind ? inQuotes(shared.kind->name) : "skin";
      warning(node, number + " shows the " + shown + place + " here");
    }
    if (firstElement(node))
      warning(node, tagOf(node) + " shows " + number + place + " again; the nodes in it are ignored");
    if (shared.onPage && !owner_.node && shared.kind && shared.kind->name == "animation")
      warning(node, number + place + " moves on for each element that shows it, so it is too fast");
    shared.onPage |= !owner_.node;
    cover(shared.bounds);
    count_ += shared.count;
    limitCount(node);
  }

  void visitFresh(const xmlNode& node, const ElementKind& kind, long long unique) {
    ++content_.kinds[kind.name];
    const Owner outer = owner_;
    owner_ = {&node, unique, outer.depth + 1, outer.mirrors + (kind.name == "mirror" ? 1 : 0),
              kind.name == "animation"};
    if (!isTooDeep(node)) {
      if (owner_.mirrors == maxMirrorDepth + 1)
        refused(node, "mirrors show mirrors more than " + std::to_string(maxMirrorDepth) + " deep");
      visit(node, *kind.form);
      findElementFaults(node, kind, content_.findings);
      if (kind.name == "movie-image") visitMovieImage(node);
      if (owner_.isAnimation) {
        findAnimationFaults(node, content_.findings);
        if (frameCountOf(node) > maxFrames) refused(node, "an animation has at most 100000 frames");
      }
      const std::string file = kind.name == "image" ? findProperty(node, "filename").value_or("") : "";
      if (!file.empty()) content_.files.push_back({file, &node, unique});
    }
    owner_ = outer;
  }

  // One that the page plays must have a movie.
  void visitMovieImage(const xmlNode& image) {
    const xmlNode* movie = movieOf(image);
    if (owner_.depth > 2 && owner_.mirrors == 0 && owner_.unique == 0 && isInButton(image))
      warning(image, describe(image) + " does not play in a button that lies in another one");
    if (!isPlayed(image) || (movie && findProperty(*movie, "type") != "custom"))
      return findMovieImageFaults(image, movie, content_.findings);
    const std::string text = describe(image) + " has no <movie> to play";
    error(image, text + "; the module refuses the page");
    if (content_.movieless.line == 0) content_.movieless = {Finding::Level::error, lineOf(image), text};
  }

  // It stands in the page itself, or is what an action button of the page shows.
  bool isPlayed(const xmlNode& image) const { return owner_.depth == 1 || (owner_.depth == 2 && isInButton(image)); }

  static bool isInButton(const xmlNode& element) {
    return sameName(nameOf(*element.parent), "element") && firstElement(*element.parent) == &element;
  }

  // The movie that an image shows, where it is written; null if there is none.
  const xmlNode* movieOf(const xmlNode& image) const {
    const xmlNode* movie = findChild(image, "movie");
    const auto known = movie ? shared_.find(uniqueNumberOf(*movie)) : shared_.end();
    return known == shared_.end() ? movie : known->second.node;
  }

  bool isTooDeep(const xmlNode& node) {
    if (owner_.depth <= maxElementDepth) return false;
    refused(node, "elements nest more than " + std::to_string(maxElementDepth) + " deep");
    return true;
  }

  void limitCount(const xmlNode& node) {
    if (stopped_ || count_ <= maxElements) return;
    refused(node, "more than " + std::to_string(maxElements) + " elements, each reference counting as what it shows");
    stopped_ = true;
  }

  void cover(const Bounds& bounds) {
    if (owner_.node) return;  // inside another element
    if (hasBounds_)
      bounds_.include(bounds);
    else
      bounds_ = bounds;
    hasBounds_ = true;
  }

  void findSize(const xmlNode& root) {
    const xmlNode* contentBox = findChild(root, "content-box");
    PageSize& size = content_.size;
    size.fromContentBox = contentBox != nullptr;
    size.line = lineOf(contentBox ? *contentBox : root);
    size.width = contentBox ? numberOf(*contentBox, "width") : bounds_.right - bounds_.left;
    size.height = contentBox ? numberOf(*contentBox, "height") : bounds_.bottom - bounds_.top;
    if (!size.isUsable()) return content_.findings.error(size.line, size.fault());
    if (!contentBox)
      warning(root, "no <content-box>: the page is as large as what its elements cover");
    else if (numberOf(*contentBox, "x") != 0 || numberOf(*contentBox, "y") != 0)
      warning(*contentBox, "\"x\" and \"y\" of <content-box> are ignored: the page begins at 0, 0");
  }

  PageContent content_;
  std::map<long long, Shared> shared_;
  Owner owner_;
  Bounds bounds_;
  bool hasBounds_ = false;
  long count_ = 0;
  bool stopped_ = false;
};

}  // namespace

bool PageSize::isUsable() const {
  return width > 0 && height > 0 && std::isfinite(aspect()) && aspect() > 0;
}

const char* PageSize::fault() const {
  return fromContentBox ? "the content-box has no size"
                        : "the page has no size: neither a content-box nor elements give it one";
}

PageContent readContent(const xmlNode& root) {
  return Walk().run(root);
}

}  // namespace host
