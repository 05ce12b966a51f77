#include "graphics/art/ArtNames.h"
#include "graphics/art/ArtProvider.h"
#include "graphics/art/SkinManager.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/filename.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace graphics {

namespace {

class ArtPictures : public testing::Test {
protected:
  void SetUp() override {
    StartForTests();
    folder_ = std::filesystem::path(testing::TempDir()) /
              ("art_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(folder_);
    manager_.GetArtProvider()->SetPath(wxFileName::DirName(folder_.string()));
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string PathOf(const wxString& name) const { return (folder_ / name.utf8_string()).string(); }
  void SavePicture(const wxString& name, int width, int height) const {
    ASSERT_TRUE(wxImage(width, height).SaveFile(PathOf(name), wxBITMAP_TYPE_PNG));
  }
  void SaveBytes(const wxString& name, const std::string& bytes) const { std::ofstream(PathOf(name)) << bytes; }
  std::unique_ptr<wxBitmap> Provided(const wxString& name) const {
    return manager_.GetArtProvider()->GetBitmap(name, true);
  }

private:
  CToolkitLock lock_;
  std::filesystem::path folder_;

protected:
  CSkinManager manager_;
};

TEST_F(ArtPictures, ComeFromTheDirectory) {
  SavePicture(ArtName::kClickImage, 22, 20);
  const auto bitmap = Provided(ArtName::kClickImage);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->GetSize(), wxSize(22, 20));
  EXPECT_FALSE(Provided(ArtName::kClickText));
}

TEST_F(ArtPictures, ComeFromTheDirectoryThatIsSetLast) {
  const wxFileName path = manager_.GetArtProvider()->GetPath();
  SavePicture(ArtName::kSaveAs, 16, 16);
  manager_.GetArtProvider()->SetPath(wxFileName::DirName("/nowhere"));
  EXPECT_FALSE(Provided(ArtName::kSaveAs));
  manager_.GetArtProvider()->SetPath(path);
  EXPECT_TRUE(Provided(ArtName::kSaveAs));
}

TEST_F(ArtPictures, AreMissingIfDamaged) {
  SaveBytes(ArtName::kOpen, "no picture");
  EXPECT_FALSE(Provided(ArtName::kOpen));
  SaveBytes(ArtName::kOpen, "");
  EXPECT_FALSE(Provided(ArtName::kOpen));
}

TEST_F(ArtPictures, AreMissingIfTheyClaimToBeHuge) {
  constexpr std::array<unsigned char, 33> kHugePng{0x89, 'P', 'N', 'G', 13,  10, 26, 10, 0, 0, 0,
                                                   13,   'I', 'H', 'D', 'R', 0,  1,  0,  0, 0, 1,
                                                   0,    0,   8,   6,   0,   0,  0,  0,  0, 0, 0};
  SaveBytes(ArtName::kOpen, {kHugePng.begin(), kHugePng.end()});
  EXPECT_FALSE(Provided(ArtName::kOpen));
}

TEST_F(ArtPictures, AreLoadedOnceForEachKindOfView) {
  SavePicture(ArtName::kBold, 16, 16);
  wxBitmap* const coloured = manager_.GetArtBitmap(ArtName::kBold, true);
  wxBitmap* const grey = manager_.GetArtBitmap(ArtName::kBold, false);
  ASSERT_TRUE(coloured && grey);
  EXPECT_NE(coloured, grey);
  EXPECT_EQ(coloured->GetSize(), grey->GetSize());
  SavePicture(ArtName::kBold, 5, 5);
  EXPECT_EQ(manager_.GetArtBitmap(ArtName::kBold, true), coloured);
  EXPECT_EQ(manager_.GetArtBitmap(ArtName::kBold, false), grey);
  EXPECT_EQ(coloured->GetSize(), wxSize(16, 16));
}

TEST_F(ArtPictures, AreKeptUnderTheirNameAndAMinusForTheGreyOnes) {
  SavePicture("a.png", 4, 4);
  SavePicture("-a.png", 8, 8);
  EXPECT_EQ(manager_.GetArtBitmap("a.png", false), manager_.GetArtBitmap("-a.png", true));
}

TEST_F(ArtPictures, AreLookedForAgainAfterTheyWereMissing) {
  EXPECT_FALSE(manager_.GetArtBitmap(ArtName::kFrame, true));
  SavePicture(ArtName::kFrame, 9, 9);
  wxBitmap* const found = manager_.GetArtBitmap(ArtName::kFrame, true);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->GetSize(), wxSize(9, 9));
}

}  // namespace

}  // namespace graphics
