#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// The names that stand in pages, as the module reads them: which nodes and properties a node may have, and what values
// those take. docs/page.rng says the same to other tools; a test holds the two against each other.
namespace host {

enum class ValueKind { text, boolean, number, integer, word };

struct ValueForm {
  std::string_view name;  // as the schema calls it
  ValueKind kind;
  // What an integer may be; one of the words, if there are some, written as numbers for an integer.
  std::int64_t low;
  std::int64_t high;
  std::span<const std::string_view> words;
  // What becomes of any other value, to stand after "; ".
  std::string_view otherwise;
  // The module refuses the page for any other value.
  bool refused;
  // A number beyond low or high counts as that.
  bool clamps = false;
  // Words count only as they are written here, capitals included.
  bool exact = false;
  // An empty value counts as none.
  bool mayBeEmpty = false;
};

struct NodeForm;

struct PropertyForm {
  std::string_view name;
  const ValueForm* value;
};

struct ChildForm {
  std::string_view name;
  const NodeForm* form;
  bool repeated = false;
};

enum class Content { none, picture, richText, timeline, opaque };

// A form that a node has if its property "type" says so.
struct Variant {
  std::string_view type;
  const NodeForm* form;
};

struct NodeForm {
  const NodeForm* base;  // what this one has besides its own, or null
  std::span<const PropertyForm> properties;
  std::span<const ChildForm> children;
  const NodeForm* anyChild = nullptr;  // children of any other name have this form
  bool holdsElements = false;
  Content content = Content::none;
  std::string_view numbered = {};          // the names for anyChild are this with a number behind it, from 0
  bool exactNames = false;                 // children count only if their names are written as here, capitals included
  std::span<const Variant> variants = {};  // a node whose type is none of them is read no further than its properties
};

// What an element shows nothing without.
enum class Needs { nothing, height, size, ownSizeOrNone };

struct ElementKind {
  std::string_view name;
  const NodeForm* form;
  Needs needs;
  std::string_view typeName = {};  // without which the module makes none; empty if the name is enough
  std::string_view node = name;    // what the nodes of this kind are named
};

extern const NodeForm documentForm;
extern const NodeForm elementForm;
extern const NodeForm colourForm;
extern const NodeForm skinForm;
extern const NodeForm movieForm;
extern const NodeForm actionForm;
extern const NodeForm dataForm;  // an entry of the extension data

// The kinds that the module makes.
std::span<const ElementKind> elementKinds();
// Null for a name that is none of them.
const ElementKind* findElementKind(std::string_view name);
// Whether nodes of that name can be of one of the kinds.
bool isElementNode(std::string_view name);
// The kind whose form a name has: the name itself, except for type names of kinds that extend another one.
std::string_view plainKindOf(std::string_view name);
// Kinds and type names that are known and that the module does not make.
bool isReservedKind(std::string_view name);

// The number behind a prefix, written without zeros in front; none if the name is anything else.
std::optional<long> numberBehind(std::string_view prefix, std::string_view name);

bool isSkinType(std::string_view type);

// Null for a name that the form does not have.
const PropertyForm* findProperty(const NodeForm& form, std::string_view name);
const ChildForm* findChild(const NodeForm& form, std::string_view name);
// Whether a child of this name has the form anyChild.
bool takesAnyChild(const NodeForm& form, std::string_view name);
// The variant of that type, or null.
const NodeForm* findVariant(const NodeForm& form, std::string_view type);

}  // namespace host
