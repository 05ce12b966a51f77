#include "host/PageFile.h"
#include "host/PageVocabulary.h"
#include "host/Xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

// docs/page.rng and the table of names that `check` works by say the same.
namespace {

using host::NodeForm;

const host::XmlDocument& schema() {
  static const host::XmlDocument document = host::parseXml(host::readPage(PAGE_SCHEMA));
  return document;
}

std::string nameProperty(const xmlNode& node) {
  return host::findProperty(node, "name").value_or("");
}

const xmlNode& definition(const std::string& name) {
  const xmlNode* root = xmlDocGetRootElement(schema().get());
  for (const xmlNode* child = host::firstElement(*root); child; child = host::nextElement(*child))
    if (host::nameOf(*child) == "define" && nameProperty(*child) == name) return *child;
  throw std::runtime_error("the schema defines no " + name);
}

// What the schema or the table lets stand in a node. A name of "*" stands for any.
template <typename Child>
struct Pattern {
  std::map<std::string, std::string> properties;  // with the name of their value's definition; empty for a fixed value
  std::map<std::string, std::vector<const Child*>> children;  // several if the type of the child chooses one
  std::set<std::string> repeated;
};

void collect(const xmlNode& node, bool repeats, Pattern<xmlNode>& pattern) {
  for (const xmlNode* child = host::firstElement(node); child; child = host::nextElement(*child)) {
    const std::string name = host::nameOf(*child);
    if (name == "ref") {
      collect(definition(nameProperty(*child)), repeats, pattern);
    } else if (name == "attribute") {
      const xmlNode* value = host::firstElement(*child);
      ASSERT_TRUE(value) << nameProperty(*child);
      pattern.properties[nameProperty(*child)] = host::nameOf(*value) == "ref" ? nameProperty(*value) : "";
    } else if (name == "element") {
      const std::string childName = nameProperty(*child).empty() ? "*" : nameProperty(*child);
      pattern.children[childName].push_back(child);
      if (repeats) pattern.repeated.insert(childName);
    } else {
      collect(*child, repeats || name == "zeroOrMore", pattern);
    }
  }
}

// What the table lets stand in a node.
void collect(const NodeForm& form, Pattern<NodeForm>& pattern) {
  if (form.base) collect(*form.base, pattern);
  for (const auto& property : form.properties)
    pattern.properties[std::string(property.name)] = std::string(property.value->name);
  const auto add = [&](const std::string& name, const NodeForm* child, bool repeated) {
    for (const host::Variant& variant : child->variants) pattern.children[name].push_back(variant.form);
    if (child->variants.empty()) pattern.children[name].push_back(child);
    if (repeated) pattern.repeated.insert(name);
  };
  for (const auto& child : form.children) add(std::string(child.name), child.form, child.repeated);
  if (form.anyChild) add("*", form.anyChild, true);
  if (form.holdsElements)
    for (const auto& kind : host::elementKinds()) add(std::string(kind.node), kind.form, true);
}

std::set<std::string> namesOf(const auto& entries) {
  std::set<std::string> names;
  for (const auto& [name, value] : entries) names.insert(name);
  return names;
}

void compare(const xmlNode& element, const NodeForm& form, const std::string& path,
             std::set<std::pair<const xmlNode*, const NodeForm*>>& done) {
  if (!done.insert({&element, &form}).second) return;
  Pattern<xmlNode> inSchema;
  Pattern<NodeForm> inTable;
  collect(element, false, inSchema);
  collect(form, inTable);

  EXPECT_EQ(namesOf(inSchema.properties), namesOf(inTable.properties)) << path;
  EXPECT_EQ(namesOf(inSchema.children), namesOf(inTable.children)) << path;
  EXPECT_EQ(inSchema.repeated, inTable.repeated) << path;
  for (const auto& [name, value] : inSchema.properties) {
    if (value.empty() || &form == &host::dataForm) continue;
    EXPECT_EQ(value, inTable.properties[name]) << path << " " << name;
  }
  for (const auto& [name, children] : inSchema.children) {
    const std::vector<const NodeForm*>& forms = inTable.children[name];
    EXPECT_EQ(children.size(), forms.size()) << path << "/" << name;
    for (std::size_t i = 0; i < std::min(children.size(), forms.size()); ++i)
      compare(*children[i], *forms[i], path + "/" + name, done);
  }
}

TEST(PageVocabulary, SaysWhatTheSchemaSays) {
  const xmlNode* start = host::findChild(*xmlDocGetRootElement(schema().get()), "start");
  ASSERT_TRUE(start);
  std::set<std::pair<const xmlNode*, const NodeForm*>> done;
  compare(*host::findChild(*start, "element"), host::documentForm, "page", done);
  EXPECT_GT(done.size(), 40u);
}

// The words of a choice of values.
std::set<std::string> wordsOf(const xmlNode& node) {
  std::set<std::string> words;
  const xmlNode* choice = host::findChild(node, "choice");
  for (const xmlNode* value = choice ? host::firstElement(*choice) : nullptr; value; value = host::nextElement(*value))
    if (value->children) words.insert(std::string(host::textOf(*value->children)));
  return words;
}

void compareValues(const NodeForm& form, std::set<const void*>& done, int& compared) {
  if (!done.insert(&form).second) return;
  if (form.base) compareValues(*form.base, done, compared);
  for (const auto& property : form.properties) {
    const std::string name(property.value->name);
    const bool isFixed =
        name == "data-type" || name == "animation-type" || name == "movie-type";  // a group of the schema for each word
    if (property.value->words.empty() || isFixed || !done.insert(property.value).second) continue;
    EXPECT_EQ(wordsOf(definition(name)),
              std::set<std::string>(property.value->words.begin(), property.value->words.end()))
        << name;
    ++compared;
  }
  for (const auto& child : form.children) compareValues(*child.form, done, compared);
  if (form.holdsElements)
    for (const auto& kind : host::elementKinds()) compareValues(*kind.form, done, compared);
}

TEST(PageVocabulary, HasTheWordsOfTheSchema) {
  std::set<const void*> done;
  int compared = 0;
  compareValues(host::documentForm, done, compared);
  EXPECT_EQ(compared, 13);
}

}  // namespace
