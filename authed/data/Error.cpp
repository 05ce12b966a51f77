#include "authed/data/Error.h"

#include "backend/handler/ForeignErrors.h"
#include "backend/handler/VantraError.h"
#include "foundation/ClassName.h"
#include "foundation/Error.h"
#include "foundation/wxutil/WXString.h"

#include <cstdint>
#include <typeinfo>

namespace authed::data {

namespace {

wxString TextOf(const char* utf8) {
  return utf8 ? wxString::FromUTF8(utf8) : wxString();
}

/// Lines of labels and values.
class CReport {
public:
  CReport& Line(const wxString& text) {
    text_ += text;
    text_ += '\n';
    return *this;
  }
  CReport& Add(const char* label, const wxString& value) { return Line(label).Line(value); }
  CReport& Add(const char* label, const char* value) { return Add(label, TextOf(value)); }
  CReport& Add(const char* label, std::int32_t value) { return Add(label, wxString::Format("%d", value)); }

  operator const wxString&() const { return text_; }

private:
  wxString text_;
};

CReport ReportOf(const vantra::wx::handler::CVantraError& error) {
  CReport report;
  report.Add("e.getCode()", error.getCode())
      .Add("e.getWhat()", error.getWhat())
      .Add("e.getString()", error.getString())
      .Add("e.getXML()", error.getXML());
  if (const vantra::IError* const inner = error.getError().get())
    report.Line("CVantraError included vantra::IError")
        .Add("pError->getCode()", inner->getCode())
        .Add("pError->getString()", inner->getString())
        .Add("pError->getWhat()", inner->getWhat())
        .Add("pError->getAdditionalCode()", inner->getAdditionalCode())
        .Add("pError->getXML()", inner->getXML());
  return report;
}

CReport ReportOf(const vantra::IError& error) {
  return CReport()
      .Add("e.getCode()", error.getCode())
      .Add("e.getString()", error.getString())
      .Add("e.getWhat()", error.getWhat())
      .Add("e.getAdditionalCode()", error.getAdditionalCode())
      .Add("e.getXML()", error.getXML());
}

CReport ReportOf(const rop::IError& error) {
  return CReport()
      .Add("e.getCode()", error.getCode())
      .Add("e.getString()", error.getString())
      .Add("e.getWhat()", error.getWhat())
      .Add("e.getXML()", error.getXML());
}

CReport ReportOf(const sul::IError& error) {
  return CReport()
      .Add("e.getErrorCode()", error.getErrorCode())
      .Add("e.getErrorString()", error.getErrorString())
      .Add("e.getAdditionalErrorString()", error.getAdditionalErrorString())
      .Add("e.getYenLog()", error.getYenLog())
      .Add("e.getGraphXml()", error.getGraphXml());
}

CReport ReportOf(const orlo::CError& error) {
  return CReport()
      .Add("pErr->getType()", wxutil::toWxString(orlo::className(typeid(error))))
      .Add("pErr->getText()", wxutil::toWxString(error.getMessage()));
}

}  // namespace

CError::CError(const wxString& kind, const wxString& details, const wxString& message)
    : kind_(kind), details_(details), message_(message), what_(message.utf8_string()) {}

CError::CError(const vantra::wx::handler::CVantraError& error)
    : CError("CVantraError", ReportOf(error), wxutil::toWxString(error.getMessage())) {}

CError::CError(const vantra::IError& error) : CError("vantra::IError", ReportOf(error), TextOf(error.getString())) {}

CError::CError(const rop::IError& error) : CError("rop::IError", ReportOf(error), TextOf(error.getString())) {}

CError::CError(const sul::IError& error) : CError("sul::IError", ReportOf(error), TextOf(error.getErrorString())) {}

CError::CError(const orlo::CError& error)
    : CError("orlo::CError", ReportOf(error), wxutil::toWxString(error.getMessage())) {}

CError::CError(const std::exception& error)
    : CError("std::exception", CReport().Add("pErr->what()", error.what()), TextOf(error.what())) {}

CError::CError() : CError("unknown exception", wxString(), "unknown exception") {}

CError CError::OfCurrent() {
  try {
    throw;
  } catch (const vantra::wx::handler::CVantraError& error) {
    return CError(error);
  } catch (const vantra::IError& error) {
    return CError(error);
  } catch (const rop::IError& error) {
    return CError(error);
  } catch (const sul::IError& error) {
    return CError(error);
  } catch (const orlo::CError& error) {
    return CError(error);
  } catch (const std::exception& error) {
    return CError(error);
  } catch (...) {
    return CError();
  }
}

}  // namespace authed::data
