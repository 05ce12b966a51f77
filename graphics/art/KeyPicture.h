#pragma once

#include <wx/bitmap.h>
#include <wx/string.h>

namespace graphics {

/// A key cap with a caption, masked outside of its round corners.
wxBitmap MakeKeyPicture(const wxString& caption);

}  // namespace graphics
