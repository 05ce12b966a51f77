#include "host/Xml.h"

#include "host/Errors.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <locale.h>
#include <new>
#include <strings.h>

namespace host {

namespace {

// What the module takes.
constexpr int maxDepth = 256;
constexpr int maxElements = 4'000'000;
// The library compares every attribute of a tag with every other.
constexpr std::ptrdiff_t maxAttributes = 1000;
constexpr std::size_t maxProblems = 20;
constexpr std::size_t blockSize = 16384;

struct Reading {
  std::vector<XmlProblem>& problems;
  int elements = 0;

  void add(long line, const std::string& text) {
    if (problems.size() < maxProblems) problems.push_back({line, oneLine(text)});
  }
  void stop(xmlParserCtxt& context, const std::string& text) {
    add(xmlSAX2GetLineNumber(&context), text);
    xmlStopParser(&context);
  }
};

Reading& readingOf(xmlParserCtxt& context) {
  return *static_cast<Reading*>(context._private);
}

void onError(void* userData, xmlErrorPtr error) {
  auto* context = static_cast<xmlParserCtxt*>(userData);
  if (error->level < XML_ERR_ERROR || !context || error->domain == XML_FROM_NAMESPACE) return;
  const bool noStart = error->code == XML_ERR_DOCUMENT_EMPTY;
  readingOf(*context).add(error->line, noStart ? "Start tag expected, '<' not found" : error->message);
}

void onEntity(void* userData, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*) {
  auto& context = *static_cast<xmlParserCtxt*>(userData);
  readingOf(context).stop(context,
                          "entities are not allowed: '" + std::string(reinterpret_cast<const char*>(name)) + "'");
}

void onStart(void* userData, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri, int namespaceCount,
             const xmlChar** namespaces, int count, int defaulted, const xmlChar** attributes) {
  auto& context = *static_cast<xmlParserCtxt*>(userData);
  Reading& reading = readingOf(context);
  if (context.nodeNr >= maxDepth)
    return reading.stop(context, "elements nest more than " + std::to_string(maxDepth) + " deep");
  if (++reading.elements > maxElements)
    return reading.stop(context, "more than " + std::to_string(maxElements) + " elements");
  xmlSAX2StartElementNs(userData, name, prefix, uri, namespaceCount, namespaces, count, defaulted, attributes);
  // The library's own record of lines ends at 65535.
  if (context.node)
    context.node->_private = reinterpret_cast<void*>(static_cast<std::intptr_t>(xmlSAX2GetLineNumber(userData)));
}

// Whether a tag waits for its end that has too many attributes already. Blocks are small, so that it is seen in time.
bool tagIsTooLong(const xmlParserCtxt& context) {
  const xmlParserInput* input = context.input;
  if (!input || input->end - input->cur < static_cast<std::ptrdiff_t>(blockSize) || *input->cur != '<') return false;
  return std::count(input->cur, input->end, '=') > maxAttributes && input->cur[1] != '!' && input->cur[1] != '?';
}

struct ContextDeleter {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

struct LocaleDeleter {
  void operator()(locale_t locale) const { freelocale(locale); }
};

const xmlNode* elementFrom(const xmlNode* node) {
  while (node && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

template <typename Named>
std::string qualifiedName(const Named& named) {
  std::string name = reinterpret_cast<const char*>(named.name);
  if (named.ns && named.ns->prefix) name.insert(0, std::string(reinterpret_cast<const char*>(named.ns->prefix)) + ":");
  return name;
}

void parseInBlocks(xmlParserCtxt& context, std::string_view xml) {
  for (std::size_t start = 0; start < xml.size(); start += blockSize) {
    const std::string_view block = xml.substr(start, blockSize);
    xmlParseChunk(&context, block.data(), static_cast<int>(block.size()), 0);
    if (context.instate == XML_PARSER_EOF) return;
    if (tagIsTooLong(context))
      return readingOf(context).stop(context, "a tag has more than " + std::to_string(maxAttributes) + " properties");
  }
  xmlParseChunk(&context, nullptr, 0, 1);
}

}  // namespace

XmlDocument readXml(std::string_view xml, std::vector<XmlProblem>& problems) {
  const std::unique_ptr<xmlParserCtxt, ContextDeleter> context(
      xmlCreatePushParserCtxt(nullptr, nullptr, nullptr, 0, nullptr));
  if (!context) throw std::bad_alloc();
  // The limit of 10 MB on a text, which XML_PARSE_HUGE lifts, is too low for pictures; the file's own limit holds.
  xmlCtxtUseOptions(context.get(), XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_COMPACT | XML_PARSE_HUGE);
  Reading reading{problems};
  context->_private = &reading;
  context->sax->serror = onError;
  context->sax->entityDecl = onEntity;
  context->sax->startElementNs = onStart;

  if (xml.empty())
    reading.add(1, "Document is empty");
  else
    parseInBlocks(*context, xml);
  XmlDocument document(context->myDoc);
  context->myDoc = nullptr;
  if (problems.empty() && (!document || !xmlDocGetRootElement(document.get())))
    problems.push_back({1, "not an XML document"});
  if (!problems.empty()) document.reset();
  return document;
}

XmlDocument parseXml(const PageFile& page) {
  std::vector<XmlProblem> problems;
  XmlDocument document = readXml(page.xml, problems);
  if (!document) throw InputError(located(page.path, problems.front().line, problems.front().text));
  return document;
}

bool sameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && (a == b || strncasecmp(a.data(), b.data(), a.size()) == 0);
}

std::string nameOf(const xmlNode& node) {
  return qualifiedName(node);
}

std::string nameOf(const xmlAttr& property) {
  return qualifiedName(property);
}

std::string valueOf(const xmlAttr& property) {
  const xmlNode* text = property.children;
  return text && text->content ? reinterpret_cast<const char*>(text->content) : "";
}

long lineOf(const xmlNode& node) {
  return static_cast<long>(reinterpret_cast<std::intptr_t>(node._private));
}

const xmlNode* firstElement(const xmlNode& parent) {
  return elementFrom(parent.children);
}

const xmlNode* nextElement(const xmlNode& node) {
  return elementFrom(node.next);
}

const xmlNode* findChild(const xmlNode& parent, std::string_view name) {
  const xmlNode* child = firstElement(parent);
  while (child && !sameName(nameOf(*child), name)) child = nextElement(*child);
  return child;
}

std::optional<std::string> findProperty(const xmlNode& node, std::string_view name) {
  for (const xmlAttr* property = node.properties; property; property = property->next)
    if (sameName(nameOf(*property), name)) return valueOf(*property);
  return {};
}

std::string_view textOf(const xmlNode& node) {
  const bool isText = node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE;
  return isText && node.content ? reinterpret_cast<const char*>(node.content) : std::string_view();
}

double numberOf(const xmlNode& node, std::string_view name) {
  return leadingNumber(findProperty(node, name).value_or("")).value;
}

// As the C library reads numbers in its "C" locale, whatever the process has chosen.
LeadingNumber leadingNumber(std::string text) {
  static const std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleDeleter> plain(
      newlocale(LC_ALL_MASK, "C", nullptr));
  std::replace(text.begin(), text.end(), ',', '.');
  char* end = nullptr;
  const double value = strtod_l(text.c_str(), &end, plain.get());
  return {value, static_cast<std::size_t>(end - text.c_str())};
}

}  // namespace host
