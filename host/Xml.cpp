#include "host/Xml.h"

#include "host/Errors.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstdlib>
#include <locale.h>
#include <new>
#include <strings.h>

namespace host {

namespace {

struct Complaint {
  long line = 0;
  std::string text;
};

void keepFirst(Complaint& complaint, long line, const std::string& text) {
  if (complaint.text.empty()) complaint = {line, oneLine(text)};
}

void onError(void* userData, xmlErrorPtr error) {
  auto* context = static_cast<xmlParserCtxt*>(userData);
  if (error->level < XML_ERR_ERROR || !context || error->domain == XML_FROM_NAMESPACE) return;
  keepFirst(*static_cast<Complaint*>(context->_private), error->line, error->message ? error->message : "");
}

void onEntity(void* userData, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*) {
  auto* context = static_cast<xmlParserCtxt*>(userData);
  keepFirst(*static_cast<Complaint*>(context->_private), xmlSAX2GetLineNumber(userData),
            "entities are not allowed: '" + std::string(reinterpret_cast<const char*>(name)) + "'");
  xmlStopParser(context);
}

struct ContextDeleter {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

struct LocaleDeleter {
  void operator()(locale_t locale) const { freelocale(locale); }
};

// As the C library reads numbers in its "C" locale, whatever the process has chosen.
double toNumber(std::string text) {
  static const std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleDeleter> plain(
      newlocale(LC_ALL_MASK, "C", nullptr));
  std::replace(text.begin(), text.end(), ',', '.');
  return strtod_l(text.c_str(), nullptr, plain.get());
}

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

}  // namespace

XmlDocument parseXml(const PageFile& page) {
  const std::unique_ptr<xmlParserCtxt, ContextDeleter> context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  Complaint complaint;
  context->_private = &complaint;
  context->sax->serror = onError;
  context->sax->entityDecl = onEntity;

  // The limit of 10 MB on a text, which XML_PARSE_HUGE lifts, is too low for pictures; the file's own limit holds.
  constexpr int options =
      XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_COMPACT | XML_PARSE_BIG_LINES | XML_PARSE_HUGE;
  XmlDocument document(
      xmlCtxtReadMemory(context.get(), page.xml.data(), static_cast<int>(page.xml.size()), nullptr, nullptr, options));
  if (!complaint.text.empty()) throw InputError(located(page.path, complaint.line, complaint.text));
  if (!document || !xmlDocGetRootElement(document.get()))
    throw InputError(located(page.path, 1, "not an XML document"));
  return document;
}

bool sameName(const std::string& a, const std::string& b) {
  return strcasecmp(a.c_str(), b.c_str()) == 0;
}

std::string nameOf(const xmlNode& node) {
  return qualifiedName(node);
}

long lineOf(const xmlNode& node) {
  return xmlGetLineNo(&node);
}

const xmlNode* firstElement(const xmlNode& parent) {
  return elementFrom(parent.children);
}

const xmlNode* nextElement(const xmlNode& node) {
  return elementFrom(node.next);
}

const xmlNode* findChild(const xmlNode& parent, const std::string& name) {
  const xmlNode* child = firstElement(parent);
  while (child && !sameName(nameOf(*child), name)) child = nextElement(*child);
  return child;
}

std::optional<std::string> findProperty(const xmlNode& node, const std::string& name) {
  for (const xmlAttr* attribute = node.properties; attribute; attribute = attribute->next) {
    if (!sameName(qualifiedName(*attribute), name)) continue;
    const xmlNode* text = attribute->children;
    return text && text->content ? reinterpret_cast<const char*>(text->content) : "";
  }
  return {};
}

double numberOf(const xmlNode& node, const std::string& name) {
  return toNumber(findProperty(node, name).value_or(""));
}

}  // namespace host
