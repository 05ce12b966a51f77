#include "graphics/geometry/XmlParse.h"

#include <wx/strconv.h>

#include <expat.h>
#include <limits>
#include <vector>

namespace graphics::xml {

namespace {

constexpr char kWhiteSpace[] = " \t\r\n";

/// The attributes of an element, as a list that the node takes over.
wxXmlAttribute* MakeAttributes(const XML_Char** pairs) {
  wxXmlAttribute* first = nullptr;
  wxXmlAttribute* last = nullptr;
  for (; *pairs; pairs += 2) {
    auto* attribute = new wxXmlAttribute(wxString::FromUTF8(pairs[0]), wxString::FromUTF8(pairs[1]));
    if (last)
      last->SetNext(attribute);
    else
      first = attribute;
    last = attribute;
  }
  return first;
}

class CTreeBuilder {
public:
  explicit CTreeBuilder(const CParseLimits& limits) : limits_(limits), parser_(XML_ParserCreate(nullptr)) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(
        parser_, [](void* self, const XML_Char* name, const XML_Char** pairs) { Self(self).Start(name, pairs); },
        [](void* self, const XML_Char*) { Self(self).End(); });
    XML_SetCharacterDataHandler(parser_, [](void* self, const XML_Char* text, int length) {
      Self(self).text_.append(text, static_cast<std::size_t>(length));
    });
    XML_SetCdataSectionHandler(
        parser_, [](void* self) { Self(self).EndText(); }, [](void* self) { Self(self).EndCData(); });
    XML_SetCommentHandler(parser_, [](void* self, const XML_Char*) { Self(self).EndText(); });
    XML_SetProcessingInstructionHandler(parser_,
                                        [](void* self, const XML_Char*, const XML_Char*) { Self(self).EndText(); });
    XML_SetEntityDeclHandler(
        parser_, [](void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*, const XML_Char*,
                    const XML_Char*, const XML_Char*) { Self(self).Stop("entities are not allowed"); });
    // A value that an element has by default stands in the text once, and in the tree as often as the element.
    XML_SetAttlistDeclHandler(parser_, [](void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                          const XML_Char*, int) { Self(self).Stop("attributes cannot be declared"); });
    XML_SetUnknownEncodingHandler(parser_, &CTreeBuilder::FindEncoding, nullptr);
  }
  ~CTreeBuilder() { XML_ParserFree(parser_); }
  CTreeBuilder(const CTreeBuilder&) = delete;
  CTreeBuilder& operator=(const CTreeBuilder&) = delete;

  CParsed Run(std::span<const unsigned char> text) {
    CParsed result;
    const auto* start = reinterpret_cast<const char*>(text.data());
    if (XML_Parse(parser_, start, static_cast<int>(text.size()), 1) == XML_STATUS_OK) {
      result.document = std::make_unique<wxXmlDocument>();
      result.document->SetRoot(root_.release());
    } else {
      result.problem = "line " + std::to_string(XML_GetCurrentLineNumber(parser_)) + ": " +
                       (limit_.empty() ? XML_ErrorString(XML_GetErrorCode(parser_)) : limit_);
      result.beyondLimit = !limit_.empty();
    }
    return result;
  }

private:
  struct COpenElement {
    wxXmlNode* node;
    wxXmlNode* lastChild;
  };

  static CTreeBuilder& Self(void* self) { return *static_cast<CTreeBuilder*>(self); }

  static int FindEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    const wxCSConv conversion(wxString::FromUTF8(name));
    if (!conversion.IsOk()) return XML_STATUS_ERROR;
    for (int i = 0; i < 256; ++i) {
      const char byte = static_cast<char>(i);
      wchar_t character = 0;
      const bool known = conversion.ToWChar(&character, 1, &byte, 1) == 1;
      encoding->map[i] = known ? static_cast<int>(character) : -1;
    }
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
  }

  void Start(const XML_Char* name, const XML_Char** pairs) {
    EndText();
    if (static_cast<int>(open_.size()) >= limits_.depth)
      return Stop("elements nest more than " + std::to_string(limits_.depth) + " deep");
    if (++elements_ > limits_.elements) return Stop("more than " + std::to_string(limits_.elements) + " elements");
    auto node = std::make_unique<wxXmlNode>(wxXML_ELEMENT_NODE, wxString::FromUTF8(name), wxString(),
                                            static_cast<int>(XML_GetCurrentLineNumber(parser_)));
    node->SetAttributes(MakeAttributes(pairs));
    open_.push_back({Append(std::move(node)), nullptr});
  }

  void End() {
    EndText();
    if (!open_.empty()) open_.pop_back();
  }

  void EndText() {
    const std::size_t first = text_.find_first_not_of(kWhiteSpace);
    if (first != std::string::npos) {
      const std::size_t lineBreak = text_.find_last_of('\n', first);
      const std::size_t start = lineBreak == std::string::npos ? 0 : lineBreak + 1;
      AppendText(wxXML_TEXT_NODE, "text", wxString::FromUTF8(text_.data() + start, text_.size() - start));
    }
    text_.clear();
  }

  void EndCData() {
    AppendText(wxXML_CDATA_SECTION_NODE, "cdata", wxString::FromUTF8(text_.data(), text_.size()));
    text_.clear();
  }

  void AppendText(wxXmlNodeType type, const wxString& name, const wxString& content) {
    if (open_.empty()) return;
    Append(std::make_unique<wxXmlNode>(type, name, content, static_cast<int>(XML_GetCurrentLineNumber(parser_))));
  }

  wxXmlNode* Append(std::unique_ptr<wxXmlNode> node) {
    wxXmlNode* const added = node.get();
    if (open_.empty()) {
      root_ = std::move(node);
      return added;
    }
    COpenElement& parent = open_.back();
    if (parent.lastChild)
      parent.node->InsertChildAfter(node.release(), parent.lastChild);
    else
      parent.node->AddChild(node.release());
    parent.lastChild = added;
    return added;
  }

  void Stop(const std::string& limit) {
    limit_ = limit;
    XML_StopParser(parser_, XML_FALSE);
  }

  CParseLimits limits_;
  XML_Parser parser_;
  std::unique_ptr<wxXmlNode> root_;
  std::vector<COpenElement> open_;
  std::string text_;
  int elements_ = 0;
  std::string limit_;
};

}  // namespace

CParsed Parse(std::span<const unsigned char> text, const CParseLimits& limits) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    return {nullptr, "more than 2 GiB of text", true};
  return CTreeBuilder(limits).Run(text);
}

}  // namespace graphics::xml
