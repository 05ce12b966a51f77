#include "graphics/model/ZipName.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace graphics {

namespace {

/// The upper half of code page 437, from 0x80 on.
constexpr std::wstring_view kCodePage437 =
    L"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    L"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(kCodePage437.size() == 128);

bool IsSeparator(wchar_t letter) {
  return letter == L'/' || letter == L'\\';
}

}  // namespace

wxString DecodeZipName(std::span<const unsigned char> bytes) {
  const wxString name = wxString::FromUTF8(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (!name.empty()) return name;
  std::wstring letters(bytes.size(), L'\0');
  std::transform(bytes.begin(), bytes.end(), letters.begin(), [](unsigned char byte) {
    return byte < 0x80 ? static_cast<wchar_t>(byte) : kCodePage437[byte - 0x80u];
  });
  return wxString(letters);
}

wxString InternalZipName(const wxString& name) {
  const std::wstring text = name.ToStdWstring();
  std::wstring_view rest = text;
  if (!rest.empty() && IsSeparator(rest.back())) rest.remove_suffix(1);
  while (!rest.empty() && IsSeparator(rest.front())) rest.remove_prefix(1);
  while (rest.size() > 1 && rest[0] == L'.' && IsSeparator(rest[1])) rest.remove_prefix(2);
  if (rest == L"." || rest == L"..") return {};
  return wxString(rest.data(), rest.size());
}

}  // namespace graphics
