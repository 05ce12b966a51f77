#include "backend/infilexml/InfileText.h"

#include "foundation/Error.h"

#include <algorithm>
#include <expat.h>
#include <vector>

namespace vantra::infilexml {

namespace {

/// Built by a parser that bears any text. That of the tree itself goes as deep as the text does, and takes what is no
/// XML.
class CTreeBuilder {
public:
  CTreeBuilder() : parser_(XML_ParserCreate("UTF-8")) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(
        parser_, [](void* self, const XML_Char* name, const XML_Char** pairs) { Self(self).Start(name, pairs); },
        [](void* self, const XML_Char*) { Self(self).End(); });
    // Both can make little text mean very much.
    XML_SetEntityDeclHandler(
        parser_, [](void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*, const XML_Char*,
                    const XML_Char*, const XML_Char*) { XML_StopParser(Self(self).parser_, XML_FALSE); });
    XML_SetAttlistDeclHandler(parser_, [](void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                          const XML_Char*, int) { XML_StopParser(Self(self).parser_, XML_FALSE); });
  }
  ~CTreeBuilder() { XML_ParserFree(parser_); }
  CTreeBuilder(const CTreeBuilder&) = delete;
  CTreeBuilder& operator=(const CTreeBuilder&) = delete;

  std::unique_ptr<TiXmlElement> Run(std::string_view text) {
    const bool parsed = XML_Parse(parser_, text.data(), static_cast<int>(text.size()), XML_TRUE) == XML_STATUS_OK;
    if (limit_) throw orlo::CError(limit_);
    return parsed ? std::move(root_) : nullptr;
  }

private:
  static CTreeBuilder& Self(void* self) { return *static_cast<CTreeBuilder*>(self); }

  void Start(const XML_Char* name, const XML_Char** pairs) {
    if (open_.size() >= kDeepest) return Stop("The elements of an infile may lie at most 64 deep");
    if (++count_ > kMostElements) return Stop("An infile may have at most 200000 elements");
    if (XML_GetSpecifiedAttributeCount(parser_) / 2 > kMostAttributes)
      return Stop("An element of an infile may have at most 100 attributes");
    auto element = std::make_unique<TiXmlElement>(name);
    for (; *pairs; pairs += 2) element->SetAttribute(pairs[0], pairs[1]);
    TiXmlElement* const added = element.get();
    if (open_.empty())
      root_ = std::move(element);
    else
      open_.back()->LinkEndChild(element.release());
    open_.push_back(added);
  }

  /// Also of an empty element that reading was stopped at.
  void End() {
    if (!open_.empty()) open_.pop_back();
  }

  void Stop(const char* limit) {
    limit_ = limit;
    XML_StopParser(parser_, XML_FALSE);
  }

  XML_Parser parser_;
  std::unique_ptr<TiXmlElement> root_;
  std::vector<TiXmlElement*> open_;
  std::size_t count_ = 0;
  const char* limit_ = nullptr;
};

void CheckSize(std::size_t bytes) {
  if (bytes > kMostTextBytes) throw orlo::CError("An infile may have at most 16 MB");
}

}  // namespace

std::unique_ptr<TiXmlElement> ParseElement(std::string_view text) {
  CheckSize(text.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return CTreeBuilder().Run(text);
}

std::string PrintElement(const TiXmlElement& element) {
  TiXmlPrinter printer;
  printer.SetStreamPrinting();
  element.Accept(&printer);
  CheckSize(printer.Size());
  return printer.Str();
}

}  // namespace vantra::infilexml
