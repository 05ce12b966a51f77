#pragma once

#include <wx/string.h>

#include <exception>
#include <string>

namespace orlo {
class CError;
}
namespace rop {
class IError;
}
namespace sul {
class IError;
}
namespace vantra {
class IError;
namespace wx::handler {
class CVantraError;
}
}  // namespace vantra

namespace authed::data {

/// The one error that callers of the authoring code have to know: an error of the backend or of the libraries below it,
/// in plain texts.
class CError : public std::exception {
public:
  /// The error that is being handled. To be called in a catch block.
  static CError OfCurrent();

  explicit CError(const vantra::wx::handler::CVantraError& error);
  explicit CError(const vantra::IError& error);
  explicit CError(const rop::IError& error);
  explicit CError(const sul::IError& error);
  explicit CError(const orlo::CError& error);
  explicit CError(const std::exception& error);
  /// Of an exception that nobody knows.
  CError();

  const char* what() const noexcept override { return what_.c_str(); }
  /// The name of the foreign error's class.
  const wxString& GetKind() const { return kind_; }
  /// Labels and values, each on a line of its own.
  const wxString& GetDetails() const { return details_; }
  /// For the user.
  const wxString& GetMessage() const { return message_; }

private:
  CError(const wxString& kind, const wxString& details, const wxString& message);

  wxString kind_;
  wxString details_;
  wxString message_;
  std::string what_;
};

/// What the call throws ends the call and nothing else.
template <class Call>
void Quietly(Call call) noexcept {
  try {
    call();
  } catch (...) {
    static_cast<void>(CError::OfCurrent());
  }
}

}  // namespace authed::data
