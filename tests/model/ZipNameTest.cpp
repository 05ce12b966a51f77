#include "graphics/model/ZipName.h"

#include <gtest/gtest.h>
#include <wx/zipstrm.h>

#include <random>
#include <string>

namespace graphics {
namespace {

wxString Decode(const std::string& bytes) {
  return DecodeZipName({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()});
}

TEST(ZipName, IsUTF8WhereItCanBe) {
  EXPECT_EQ(Decode("a/b.png"), "a/b.png");
  EXPECT_EQ(Decode("B\xC3\xA4r.png"), wxString(L"B\u00E4r.png"));
  EXPECT_EQ(Decode("\xF0\x9F\x90\xBB"), wxString(L"\U0001F43B"));
  EXPECT_EQ(Decode(""), "");
}

TEST(ZipName, IsOfTheOldCodePageOtherwise) {
  EXPECT_EQ(Decode("B\x84r.png"), wxString(L"B\u00E4r.png"));
  EXPECT_EQ(Decode("\x80\x9F\xE1\xFE\xFF"), wxString(L"\u00C7\u0192\u00DF\u25A0\u00A0"));
  EXPECT_EQ(Decode("\xC3\xA4\x84"), wxString(L"\u251C\u00F1\u00E4"));
}

TEST(ZipName, IsMadeInternalAsTheToolkitDoes) {
  std::mt19937 random(1);
  const std::string letters = "./\\a";
  for (int i = 0; i < 20'000; ++i) {
    wxString name;
    for (auto length = random() % 8; length > 0; --length) name += letters[random() % letters.size()];
    EXPECT_EQ(InternalZipName(name), wxZipEntry::GetInternalName(name)) << name;
  }
}

TEST(ZipName, IsMadeInternalInOneGo) {
  EXPECT_EQ(InternalZipName(wxString('/', 1'000'000)), "");
  wxString dots;
  for (int i = 0; i < 100'000; ++i) dots += "./";
  EXPECT_EQ(InternalZipName(dots + "a.png"), "a.png");
}

}  // namespace
}  // namespace graphics
