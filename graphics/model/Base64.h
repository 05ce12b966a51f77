#pragma once

#include <wx/string.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace graphics {

/// Standard base64 without padding: n bytes give (8 n + 5) / 6 characters.
std::string EncodeBase64(std::span<const unsigned char> bytes);

/// White space at the end is cut off. Every other character gives six bits, and so the result has length times 6 / 8
/// bytes, rounded down. Nothing stops it: a character that is no letter of the alphabet, padding included, counts as
/// 128, of which bits reach the bytes as shifts leave them.
std::vector<unsigned char> DecodeBase64(std::string_view text);

/// The same of the text in the process's default encoding; empty if it has none there.
std::vector<unsigned char> DecodeBase64Text(const wxString& text);

}  // namespace graphics
