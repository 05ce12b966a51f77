#include "graphics/geometry/XmlScan.h"

#include <expat.h>
#include <limits>

namespace graphics::xml {

namespace {

class CScan {
public:
  CScan(const char* encoding, const CScanLimits& limits) : parser_(XML_ParserCreate(encoding)), limits_(limits) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, &CScan::OnStart, &CScan::OnEnd);
  }
  ~CScan() { XML_ParserFree(parser_); }
  CScan(const CScan&) = delete;
  CScan& operator=(const CScan&) = delete;

  CScanResult Run(std::span<const unsigned char> document) {
    const auto* text = reinterpret_cast<const char*>(document.data());
    if (XML_Parse(parser_, text, static_cast<int>(document.size()), 1) == XML_STATUS_OK) return {};
    const std::string where = "line " + std::to_string(XML_GetCurrentLineNumber(parser_)) + ": ";
    if (!limit_.empty()) return {EScan::beyondLimit, where + limit_};
    return {EScan::malformed, where + XML_ErrorString(XML_GetErrorCode(parser_))};
  }
  bool IsEncodingUnknown() const { return XML_GetErrorCode(parser_) == XML_ERROR_UNKNOWN_ENCODING; }

private:
  static void OnStart(void* self, const XML_Char*, const XML_Char**) { static_cast<CScan*>(self)->Start(); }
  static void OnEnd(void* self, const XML_Char*) { --static_cast<CScan*>(self)->depth_; }

  void Start() {
    if (++depth_ > limits_.depth) Stop("elements nest more than " + std::to_string(limits_.depth) + " deep");
    if (++elements_ > limits_.elements) Stop("more than " + std::to_string(limits_.elements) + " elements");
  }
  void Stop(const std::string& limit) {
    limit_ = limit;
    XML_StopParser(parser_, XML_FALSE);
  }

  XML_Parser parser_;
  CScanLimits limits_;
  int depth_ = 0;
  int elements_ = 0;
  std::string limit_;
};

}  // namespace

CScanResult Scan(std::span<const unsigned char> document, const CScanLimits& limits) {
  if (document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    return {EScan::beyondLimit, "more than 2 GiB of text"};
  CScan asDeclared(nullptr, limits);
  CScanResult result = asDeclared.Run(document);
  if (!asDeclared.IsEncodingUnknown()) return result;
  // Other one-byte encodings have their markup where Latin-1 has it, which is all that is looked at here.
  return CScan("ISO-8859-1", limits).Run(document);
}

}  // namespace graphics::xml
