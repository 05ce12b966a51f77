#include "filter/PageXml.h"

#include <wx/log.h>
#include <wx/mstream.h>

#include <expat.h>
#include <limits>

namespace authfilter {

namespace {

constexpr int kMaxDepth = 256;
constexpr int kMaxElements = 4'000'000;

/// Walks the text once before a tree is made of it: the tree is freed by recursion, so its depth must be known to be
/// bounded.
class CScan {
public:
  explicit CScan(const char* encoding) : parser_(XML_ParserCreate(encoding)) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, &CScan::onStart, &CScan::onEnd);
  }
  ~CScan() { XML_ParserFree(parser_); }
  CScan(const CScan&) = delete;
  CScan& operator=(const CScan&) = delete;

  bool run(std::span<const std::uint8_t> bytes) {
    return XML_Parse(parser_, reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()), 1) ==
           XML_STATUS_OK;
  }
  bool encodingUnknown() const { return XML_GetErrorCode(parser_) == XML_ERROR_UNKNOWN_ENCODING; }
  const std::string& limit() const { return limit_; }

private:
  static void onStart(void* self, const XML_Char*, const XML_Char**) { static_cast<CScan*>(self)->start(); }
  static void onEnd(void* self, const XML_Char*) { --static_cast<CScan*>(self)->depth_; }

  void start() {
    if (++depth_ > kMaxDepth) stop("elements nest more than " + std::to_string(kMaxDepth) + " deep");
    if (++elements_ > kMaxElements) stop("more than " + std::to_string(kMaxElements) + " elements");
  }
  void stop(std::string limit) {
    limit_ = std::move(limit);
    XML_StopParser(parser_, XML_FALSE);
  }

  XML_Parser parser_;
  int depth_ = 0;
  int elements_ = 0;
  std::string limit_;
};

/// True if the text is well formed and within the limits.
bool scan(std::span<const std::uint8_t> bytes, std::string& limit) {
  for (const char* encoding : {static_cast<const char*>(nullptr), "ISO-8859-1"}) {
    CScan attempt(encoding);
    const bool good = attempt.run(bytes);
    limit = attempt.limit();
    // Other one-byte encodings have their markup where Latin-1 has it, which is all that is looked at here.
    if (good || !attempt.encodingUnknown()) return good;
  }
  return false;
}

}  // namespace

CPageXml ParsePageXml(std::span<const std::uint8_t> bytes) {
  CPageXml result;
  if (bytes.empty()) return result;
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    result.limit = "more than 2 GiB of text";
    return result;
  }
  if (!scan(bytes, result.limit)) return result;

  const wxLogNull quiet;
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  auto document = std::make_unique<wxXmlDocument>();
  if (document->Load(stream, "UTF-8", 0)) result.document = std::move(document);
  return result;
}

}  // namespace authfilter
