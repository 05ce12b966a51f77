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
constexpr std::ptrdiff_t longestTag = std::ptrdiff_t{4} << 20;
constexpr std::size_t maxProblems = 20;
constexpr std::size_t blockSize = 16384;
// Texts up to this size are read again in one piece if they are no XML: the library tells more problems then.
constexpr std::size_t mostReadAgain = 262'144;

struct Reading {
  std::vector<XmlProblem>& problems;
  int elements = 0;
  bool stopped = false;

  // What comes after the first problem of a line is mostly its consequence.
  void add(long line, const std::string& text) {
    if (problems.size() >= maxProblems || (!problems.empty() && problems.back().line == line)) return;
    problems.push_back({line, oneLine(text)});
  }
  void stop(xmlParserCtxt& context, const std::string& text) {
    add(xmlSAX2GetLineNumber(&context), text);
    stopped = true;
    xmlStopParser(&context);
  }
};

Reading& readingOf(xmlParserCtxt& context) {
  return *static_cast<Reading*>(context._private);
}

// Read in blocks, a document that ends too early gets the message for one that does not end.
std::string messageOf(const xmlError& error, const xmlParserCtxt& context) {
  const bool ended = error.code == XML_ERR_DOCUMENT_END;
  if (ended && context.node) {
    const auto* name = reinterpret_cast<const char*>(context.node->name);
    return "the document ends before <" + std::string(name) + "> of line " + std::to_string(lineOf(*context.node)) +
           " is closed";
  }
  const bool noRoot = ended && !(context.myDoc && xmlDocGetRootElement(context.myDoc));
  if (noRoot || error.code == XML_ERR_DOCUMENT_EMPTY) return "Start tag expected, '<' not found";
  return error.message ? error.message : "";
}

void onError(void* userData, xmlErrorPtr error) {
  auto* context = static_cast<xmlParserCtxt*>(userData);
  if (error->level < XML_ERR_ERROR || !context || error->domain == XML_FROM_NAMESPACE) return;
  readingOf(*context).add(error->line, messageOf(*error, *context));
}

void onEntity(void* userData, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*) {
  auto& context = *static_cast<xmlParserCtxt*>(userData);
  readingOf(context).stop(context,
                          "entities are not allowed: '" + std::string(reinterpret_cast<const char*>(name)) + "'");
}

void onAttribute(void* userData, const xmlChar*, const xmlChar* name, int, int, const xmlChar*,
                 xmlEnumerationPtr values) {
  auto& context = *static_cast<xmlParserCtxt*>(userData);
  xmlFreeEnumeration(values);
  readingOf(context).stop(context,
                          "attributes cannot be declared: '" + std::string(reinterpret_cast<const char*>(name)) + "'");
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

// Counts the properties of a tag while its end is waited for; only what has come since the last block.
class TagWatch {
public:
  bool isTooLong(xmlParserCtxt& context) {
    const xmlParserInput* input = context.input;
    if (!input) return false;
    const auto start = static_cast<std::int64_t>(input->consumed) + (input->cur - input->base);
    if (start != start_) {
      start_ = start;
      seen_ = 0;
      properties_ = 0;
    }
    const std::ptrdiff_t pending = input->end - input->cur;
    if (pending < 2 || *input->cur != '<' || input->cur[1] == '!' || input->cur[1] == '?') return false;
    properties_ += std::count(input->cur + seen_, input->end, '=');
    seen_ = pending;
    return properties_ > maxAttributes || seen_ > longestTag;
  }

private:
  std::int64_t start_ = -1;
  std::ptrdiff_t seen_ = 0;
  std::ptrdiff_t properties_ = 0;
};

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

using Context = std::unique_ptr<xmlParserCtxt, ContextDeleter>;

constexpr int parseOptions = XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_COMPACT;

Context prepared(Context context, Reading& reading) {
  if (!context) throw std::bad_alloc();
  context->_private = &reading;
  context->sax->serror = onError;
  context->sax->entityDecl = onEntity;
  context->sax->attributeDecl = onAttribute;
  context->sax->startElementNs = onStart;
  return context;
}

XmlDocument parseInBlocks(std::string_view xml, Reading& reading) {
  const Context context = prepared(Context(xmlCreatePushParserCtxt(nullptr, nullptr, nullptr, 0, nullptr)), reading);
  // The limit of 10 MB on a text, which XML_PARSE_HUGE lifts, is too low for pictures; the file's own limit holds.
  xmlCtxtUseOptions(context.get(), parseOptions | XML_PARSE_HUGE);
  TagWatch watch;
  for (std::size_t start = 0; start < xml.size() && context->instate != XML_PARSER_EOF; start += blockSize) {
    const std::string_view block = xml.substr(start, blockSize);
    xmlParseChunk(context.get(), block.data(), static_cast<int>(block.size()), 0);
    if (watch.isTooLong(*context))
      reading.stop(*context, "a tag has more than " + std::to_string(maxAttributes) + " properties or 4 MB");
  }
  if (context->instate != XML_PARSER_EOF) xmlParseChunk(context.get(), nullptr, 0, 1);
  XmlDocument document(context->myDoc);
  context->myDoc = nullptr;
  return document;
}

void findProblems(std::string_view xml, Reading& reading) {
  const Context context = prepared(Context(xmlNewParserCtxt()), reading);
  const XmlDocument document(
      xmlCtxtReadMemory(context.get(), xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, parseOptions));
}

}  // namespace

XmlDocument readXml(std::string_view xml, std::vector<XmlProblem>& problems) {
  if (xml.empty()) {
    problems.push_back({1, "Document is empty"});
    return nullptr;
  }
  Reading reading{problems};
  XmlDocument document = parseInBlocks(xml, reading);
  if (problems.empty() && document && xmlDocGetRootElement(document.get())) return document;
  if (!reading.stopped && xml.size() <= mostReadAgain) {
    Reading again{problems};
    problems.clear();
    findProblems(xml, again);
  }
  if (problems.empty()) problems.push_back({1, "not an XML document"});
  return nullptr;
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
