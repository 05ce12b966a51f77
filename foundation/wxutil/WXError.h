#pragma once

#include "foundation/Error.h"

#include <wx/string.h>

namespace wxutil {

/// An error with a text of the toolkit.
class CWXError : public orlo::CError {
public:
  explicit CWXError(const wxString& message);
  orlo::P<orlo::CException> clone() const override { return copyOf(*this); }

  const wxString& getWxMessage() const { return message_; }

private:
  wxString message_;
};

}  // namespace wxutil
