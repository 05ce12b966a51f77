#include "foundation/wxutil/WXError.h"

#include "foundation/wxutil/WXString.h"

namespace wxutil {

CWXError::CWXError(const wxString& message) : CError(fromWxString(message)), message_(message) {}

}  // namespace wxutil
