#pragma once

#include <wx/string.h>

#include <span>

namespace graphics {

/// The name of a file in an archive. Archives rarely tell its encoding: what is UTF-8 is taken as such, anything else
/// as the old code page 437.
wxString DecodeZipName(std::span<const unsigned char> bytes);

/// A path as archives write it: no separator at its ends, no "./" before it. Gives what wxZipEntry::GetInternalName
/// gives, whose time grows with the square of the name's length.
wxString InternalZipName(const wxString& name);

}  // namespace graphics
