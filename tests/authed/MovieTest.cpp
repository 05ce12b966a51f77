#include "authed/data/Editable.h"
#include "authed/data/MovieFile.h"
#include "authed/data/MovieTheme.h"
#include "authed/data/PathManager.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/ZipCatalogue.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/mstream.h>
#include <wx/zipstrm.h>

namespace authed::data {

namespace {

using namespace vantra::infilexml;
using graphics::ParseXml;
using graphics::ToText;

class Movie : public testing::Test {
protected:
  Movie() { graphics::StartForTests(); }

  wxString Written(const CMovie& movie) {
    wxXmlNode node(wxXML_ELEMENT_NODE, "movie");
    movie.WriteToXml(node, *store_);
    return ToText(node);
  }
  void Read(CMovie& movie, const wxString& text) { movie.ReadFromXml(*ParseXml(text)->GetRoot(), *store_); }
  /// As its owner reads it: the store knows the type.
  orlo::P<CMovie> Shared(const wxXmlNode& node) {
    const wxString type = store_->GetResourceType(node);
    return orlo::P<CMovie>(orlo::cast<CMovie>(store_->ReadResource(node, type, CreateMovie(GetMovieType(type))).get()));
  }

private:
  graphics::CToolkitLock lock_;

protected:
  const orlo::P<graphics::CBase64Resources> store_ = orlo::makeObject<graphics::CBase64Resources>();
};

/// Each with a blank behind it.
wxString ChildNames(const wxXmlNode& node) {
  wxString names;
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext()) names += child->GetName() + " ";
  return names;
}

wxBitmap Picture() {
  return graphics::MakeAlphaBitmap(4, 3);
}

std::string stdText(const orlo::String& text) {
  return orlo::toStdString(text);
}

orlo::P<CMovieFile> TenSeconds() {
  auto movie = orlo::makeObject<CMovieFile>();
  movie->filename.Assign("/films/a b.mp4");
  movie->duration = 10;
  return movie;
}

TEST_F(Movie, ThatIsNewWritesItsDefaults) {
  EXPECT_EQ(Written(CMovieFile()),
            "<movie type=\"movie-file\" title=\"\" duration=\"-1\" menu-entry=\"true\" min-duration=\"-1\" "
            "audio-duration=\"-1\" width=\"0\" height=\"0\" id=\"0\" aspect-ratio=\"16:9\"><finished-files/>"
            "<filename path=\"\" name=\"\"/></movie>");
}

TEST_F(Movie, BringsBackWhatWasWritten) {
  const auto movie = TenSeconds();
  movie->title = "Two & \"three\"";
  movie->menuEntry = false;
  movie->minDuration = 2.5;
  movie->audioDuration = 9;
  movie->width = 720;
  movie->height = 576;
  movie->id = 12;
  movie->aspectRatio = EAspectRatio::narrow;
  const wxBitmap picture = Picture();
  movie->thumbnail.Set(&picture);
  movie->largeThumbnail.Set(&picture);
  movie->chapters.push_back(orlo::makeObject<CChapter>());
  movie->chapters.back()->SetTime(4.25);
  movie->chapters.back()->SetName("Morning");
  movie->chapters.back()->SetThumbnail(&picture);
  CMovieFile copy;
  Read(copy, Written(*movie));
  EXPECT_EQ(Written(copy), Written(*movie));
  ASSERT_EQ(copy.chapters.size(), 1U);
  EXPECT_EQ(copy.chapters[0]->GetTime(), 4.25);
  EXPECT_EQ(copy.chapters[0]->GetName(), "Morning");
  ASSERT_TRUE(copy.chapters[0]->GetThumbnail());
  EXPECT_EQ(copy.chapters[0]->GetThumbnail()->GetWidth(), 4);
}

TEST_F(Movie, LeavesTheAspectRatioForAnUnknownWord) {
  CMovieFile movie;
  movie.aspectRatio = EAspectRatio::narrow;
  Read(movie, R"(<movie aspect-ratio=""/>)");
  EXPECT_EQ(movie.aspectRatio, EAspectRatio::narrow);
  Read(movie, R"(<movie aspect-ratio="21:9"/>)");
  EXPECT_EQ(movie.aspectRatio, EAspectRatio::narrow);
  Read(movie, R"(<movie aspect-ratio="16:9"/>)");
  EXPECT_EQ(movie.aspectRatio, EAspectRatio::wide);
}

TEST_F(Movie, ReadsChaptersOfThatExactNameOnly) {
  CMovieFile movie;
  Read(movie, R"(<movie><chapters><Chapter timestamp="1"/><chapter timestamp="2"/><part/></chapters></movie>)");
  ASSERT_EQ(movie.chapters.size(), 1U);
  EXPECT_EQ(movie.chapters[0]->GetTime(), 2);
  EXPECT_EQ(movie.FindChapter(1), movie.chapters[0].get());
  EXPECT_FALSE(movie.FindChapter(0));
  EXPECT_FALSE(movie.FindChapter(2));
  EXPECT_FALSE(movie.FindChapter(-1));
}

TEST_F(Movie, OfAnUnknownScreenCannotBeWritten) {
  CMovieFile movie;
  movie.aspectRatio = static_cast<EAspectRatio>(2);
  try {
    Written(movie);
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_EQ(stdText(error.getMessage()), "Unkown Screen Type");
  }
  EXPECT_EQ(HeightOverWidth(movie.aspectRatio), 1.0);
}

TEST_F(Movie, WritesItsChildrenInOrder) {
  CSlideshow movie;
  const wxBitmap picture = Picture();
  movie.thumbnail.Set(&picture);
  movie.largeThumbnail.Set(&picture);
  movie.chapters.push_back(orlo::makeObject<CChapter>());
  movie.chapters.push_back(orlo::makeObject<CChapter>());
  movie.chapters.back()->SetThumbnail(&picture);
  movie.vantraXml = "<infile/>";
  movie.editorXml = "<editor/>";
  wxXmlNode node(wxXML_ELEMENT_NODE, "movie");
  movie.WriteToXml(node, *store_);
  EXPECT_EQ(ChildNames(node),
            "finished-files attachment-thumbnail attachment-thumbnail-large chapters editor.xml vantra.xml ");
  const wxXmlNode* const chapters = graphics::xml::FindChild(node, "chapters");
  ASSERT_TRUE(chapters);
  EXPECT_EQ(ChildNames(*chapters), "chapter chapter ");
  EXPECT_EQ(ToText(*chapters->GetChildren()), "<chapter timestamp=\"0\" name=\"\"/>");
  EXPECT_EQ(ChildNames(*chapters->GetChildren()->GetNext()), "attachment-thumbnail ");
}

TEST_F(Movie, KeepsWhatTheNodeLacks) {
  const auto movie = TenSeconds();
  movie->title = "Title";
  movie->menuEntry = false;
  movie->minDuration = 2;
  movie->audioDuration = 9;
  movie->width = movie->height = 4;
  movie->id = 5;
  movie->aspectRatio = EAspectRatio::narrow;
  const wxBitmap picture = Picture();
  movie->thumbnail.Set(&picture);
  movie->largeThumbnail.Set(&picture);
  const wxString before = Written(*movie);
  Read(*movie, "<movie/>");
  EXPECT_EQ(Written(*movie), before);
  CEditedMovie edited;
  edited.vantraXml = "<infile/>";
  edited.editorXml = "<editor/>";
  Read(edited, "<movie/>");
  EXPECT_EQ(edited.vantraXml, "<infile/>");
  EXPECT_EQ(edited.editorXml, "<editor/>");
}

TEST_F(Movie, FileLiesInTheCurrentFolderUnlessItsPathIsWhole) {
  CMovieFile movie;
  Read(movie, R"(<movie><filename path="films/../other" name="a.mp4"/></movie>)");
  EXPECT_EQ(movie.filename.GetFullPath(), wxFileName::GetCwd() + "/other/a.mp4");
  Read(movie, R"(<movie><filename path="/films" name="b.mp4"/></movie>)");
  EXPECT_EQ(movie.filename.GetFullPath(), "/films/b.mp4");
  Read(movie, R"(<movie><filename path="" name=""/></movie>)");
  EXPECT_EQ(movie.filename.GetFullPath(), "");
}

TEST_F(Movie, HasAKnownDurationFromZeroOn) {
  CMovieFile movie;
  EXPECT_TRUE(movie.IsDurationUnknown());
  movie.duration = 0;
  EXPECT_FALSE(movie.IsDurationUnknown());
  movie.minDuration = 2.5;
  EXPECT_EQ(movie.GetMinDuration(), 2.5);
}

TEST_F(Movie, ThatContainsItselfIsAnError) {
  const auto document =
      ParseXml(R"(<movie type="theme" unique="7"><movies><movie type="theme" unique="7"/></movies></movie>)");
  EXPECT_THROW(Shared(*document->GetRoot()), orlo::CException);
}

TEST_F(Movie, HasATypeWithAWordAndAName) {
  const std::pair<EMovieType, const char*> words[] = {{EMovieType::file, "movie-file"},
                                                      {EMovieType::slideshow, "slideshow"},
                                                      {EMovieType::edited, "edited-movie"},
                                                      {EMovieType::theme, "theme"},
                                                      {EMovieType::custom, "custom"}};
  for (const auto& [type, word] : words) {
    EXPECT_EQ(GetMovieTypeName(type), word);
    EXPECT_EQ(GetMovieType(wxString(word)), type);
    const orlo::P<CMovie> movie = CreateMovie(type);
    EXPECT_EQ(movie.get() == nullptr, type == EMovieType::custom);
    if (!movie) continue;
    EXPECT_EQ(movie->GetMovieType(), type);
    EXPECT_EQ(movie->IsFileBased(), type == EMovieType::file);
  }
  EXPECT_EQ(CMovieFile().GetTypeDisplayName(), "Movie File");
  EXPECT_EQ(CSlideshow().GetTypeDisplayName(), "Slideshow");
  EXPECT_EQ(CEditedMovie().GetTypeDisplayName(), "Edited Movie");
  EXPECT_EQ(CMovieTheme().GetTypeDisplayName(), "Animated Theme");
  EXPECT_EQ(GetMovieTypeDisplayName(EMovieType::custom), "Custom Movie");
}

TEST_F(Movie, IsNamedInTheLanguageOfTheUser) {
  const std::pair<EMovieType, const char*> keys[] = {{EMovieType::file, "authed.CMovie.Movie"},
                                                     {EMovieType::slideshow, "authed.CMovie.Slideshow"},
                                                     {EMovieType::edited, "authed.CMovie.EditedMovie"},
                                                     {EMovieType::theme, "authed.CMovieTheme.Theme"},
                                                     {EMovieType::custom, "authed.CMovie.Custom"}};
  for (const auto& [type, key] : keys) {
    orlo::getStringLocalizer()->setText(key, "Film");
    EXPECT_EQ(GetMovieTypeDisplayName(type), "Film") << key;
    orlo::getStringLocalizer()->clear();
  }
}

TEST_F(Movie, OfAnUnknownTypeIsAnError) {
  for (const auto make :
       {+[] { GetMovieTypeName(static_cast<EMovieType>(4)); }, +[] { GetMovieTypeName(static_cast<EMovieType>(-1)); },
        +[] { GetMovieTypeDisplayName(static_cast<EMovieType>(4)); }, +[] { GetMovieType(wxString("Theme")); },
        +[] { GetMovieType(wxString()); }}) {
    try {
      make();
      ADD_FAILURE();
    } catch (const orlo::CException& error) {
      EXPECT_EQ(stdText(error.getMessage()), "Unknown Movie type");
    }
  }
}

TEST_F(Movie, ClonedHasChaptersAndPicturesOfItsOwn) {
  const auto movie = TenSeconds();
  const wxBitmap picture = Picture();
  movie->thumbnail.Set(&picture);
  movie->chapters.push_back(orlo::makeObject<CChapter>());
  const orlo::P<CMovie> copy = movie->Clone();
  EXPECT_EQ(Written(*copy), Written(*movie));
  EXPECT_NE(copy->chapters[0], movie->chapters[0]);
  EXPECT_NE(copy->thumbnail.Get(), movie->thumbnail.Get());
}

TEST_F(Movie, EditedKeepsBothTexts) {
  CSlideshow movie;
  movie.vantraXml = wxString::FromUTF8("<infile id=\"\xC3\xA9\"/>");
  movie.editorXml = "<editor/>";
  CSlideshow copy;
  Read(copy, Written(movie));
  EXPECT_EQ(copy.vantraXml, movie.vantraXml);
  EXPECT_EQ(copy.editorXml, movie.editorXml);
  EXPECT_EQ(Written(CSlideshow()).Find("vantra.xml"), wxNOT_FOUND);
}

TEST_F(Movie, EditedTakesItsTextsFromAnArchive) {
  const std::string text = "<infile id='\xC3\xA9'/>";
  wxMemoryOutputStream archive;
  {
    wxZipOutputStream zip(archive);
    zip.PutNextEntry("v.xml");
    zip.Write(text.data(), text.size());
  }
  wxMemoryInputStream bytes(archive);
  wxZipInputStream zip(bytes);
  graphics::CZipCatalogue store(zip);
  CEditedMovie movie;
  const auto document =
      ParseXml(R"(<movie><vantra.xml name="v.xml" size="18"/><editor.xml name="e.xml" size="5"/></movie>)");
  movie.ReadFromXml(*document->GetRoot(), store);
  EXPECT_EQ(movie.vantraXml, wxString::FromUTF8(text));
  EXPECT_EQ(movie.editorXml, "");
}

TEST_F(Movie, OfADurationThatIsNotFiniteHasNoneForTheBackend) {
  for (const char* const text : {"nan", "inf", "-inf", "1e999"}) {
    CMovieFile movie;
    Read(movie, "<movie duration=\"" + wxString(text) + "\"/>");
    const auto infile = FromText(ToText(*movie.CreateInfile(25)));
    EXPECT_EQ(infile->GetVideoTracklist()->GetDuration(), 0) << text;
    EXPECT_EQ(infile->GetTrack(0)->duration, 0) << text;
  }
}

TEST_F(Movie, EditedKeepsItsTextsInACopy) {
  CEditedMovie movie;
  movie.title = "Title";
  movie.vantraXml = "<infile/>";
  movie.editorXml = "<editor/>";
  const orlo::P<CMovie> copy = movie.Clone();
  EXPECT_EQ(copy->GetMovieType(), EMovieType::edited);
  EXPECT_EQ(Written(*copy), Written(movie));
  EXPECT_EQ(Written(*movie.CreateSameKind()), Written(CEditedMovie()));
}

TEST_F(Movie, SharedByTwoElementsIsWrittenOnce) {
  const auto movie = TenSeconds();
  wxXmlNode page(wxXML_ELEMENT_NODE, "page");
  for (const char* const name : {"first", "second"})
    store_->WriteResource(graphics::xml::AppendChild(page, name), GetMovieTypeName(movie->GetMovieType()), movie.get());
  const auto first = Shared(*graphics::xml::FindChild(page, "first"));
  EXPECT_EQ(first, Shared(*graphics::xml::FindChild(page, "second")));
  EXPECT_EQ(first->duration, 10);
}

TEST_F(Movie, RequestedAsAThumbnailHasTheThreeFolders) {
  CThumbnailRequest request;
  EXPECT_TRUE(TenSeconds()->CreateThumbnailInfile(request));
  EXPECT_STREQ(request.params.themeDir, "file:///c:/");
  EXPECT_STREQ(request.params.filterDir, "file:///c:/");
  EXPECT_STREQ(request.params.animationDir, "file:///c:/");
}

TEST_F(Movie, ThemeShowsItsMoviesByTheirIds) {
  CMovieTheme theme;
  theme.SetSrc("/themes/wall.xml");
  theme.duration = 8;
  theme.AddMovie(TenSeconds());
  theme.GetMovie(0)->id = 3;
  auto edited = orlo::makeObject<CEditedMovie>();
  edited->vantraXml = R"(<infile><videotracklist><track duration="4"/></videotracklist></infile>)";
  edited->id = 4;
  theme.AddMovie(edited);
  const auto infile = theme.CreateInfile(25);
  const auto* const node = orlo::cast<CTheme>(infile->GetVideoTracklist()->GetTrack(0)->item);
  EXPECT_EQ(node->duration, 8);
  EXPECT_EQ(stdText(node->src->getDescription()), "file:///themes/wall.xml");
  ASSERT_EQ(node->GetMovieCount(), 2U);
  EXPECT_EQ(stdText(node->GetMovie(0)->infileId), "movie3");
  EXPECT_EQ(stdText(node->GetMovie(0)->src->getDescription()), "file:///films/a%20b.mp4");
  EXPECT_EQ(stdText(node->GetMovie(1)->infileId), "movie4");
  EXPECT_TRUE(stdText(node->GetMovie(1)->src->getDescription()).starts_with("data:text/xml,%3Cinfile"));
  EXPECT_TRUE(orlo::cast<CAudio>(infile->GetAudioTracklist()->GetTrack(0)->item)->IsSilent());
}

TEST_F(Movie, ThemeBringsBackItsMovies) {
  CMovieTheme theme;
  EXPECT_EQ(theme.title, "Animated Theme");
  EXPECT_NE(Written(theme).Find("<movies/>"), wxNOT_FOUND);
  theme.SetSrc("wall.xml");
  theme.AddMovie(TenSeconds());
  theme.AddMovie(orlo::makeObject<CMovieTheme>());
  CMovieTheme copy;
  Read(copy, Written(theme));
  EXPECT_EQ(copy.GetSrc(), "wall.xml");
  ASSERT_EQ(copy.GetMovieCount(), 2U);
  EXPECT_EQ(copy.GetMovie(0)->duration, 10);
  EXPECT_EQ(copy.GetMovie(1)->GetMovieType(), EMovieType::theme);
}

TEST_F(Movie, ThemeWithAMovieOfAnUnknownTypeIsAnError) {
  CMovieTheme theme;
  EXPECT_THROW(Read(theme, R"(<movie><movies><movie type="film"/></movies></movie>)"), orlo::CException);
}

class Theme : public Movie {
protected:
  Theme() {
    folder_ = wxFileName::CreateTempFileName("theme");
    wxRemoveFile(folder_);
    wxFileName::Mkdir(folder_);
    CPathManager::GetInstance().SetPaths(wxFileName(), wxFileName(), wxFileName::DirName(folder_));
  }
  ~Theme() override {
    CPathManager::GetInstance().SetPaths(wxFileName(), wxFileName(), wxFileName());
    wxFileName::Rmdir(folder_, wxPATH_RMDIR_RECURSIVE);
  }

  wxString Describe(const wxString& text) {
    wxFFile(folder_ + "/wall.xml", "w").Write(text);
    return folder_ + "/wall.xml";
  }

private:
  wxString folder_;
};

TEST_F(Theme, RunsAsLongAsItsDescriptionSays) {
  const wxString path = Describe("<theme length=\"12.5\"/>");
  CMovieTheme theme;
  theme.minDuration = 3;
  theme.SetSrc("wall.xml");
  EXPECT_EQ(theme.GetMinDuration(), 12.5);
  theme.SetSrc(path);
  EXPECT_EQ(theme.GetMinDuration(), 12.5);
  theme.SetSrc("/elsewhere/wall.xml");
  EXPECT_EQ(theme.GetMinDuration(), 3);
}

TEST_F(Theme, RunsForItsOwnTimeIfTheDescriptionSaysNothing) {
  CMovieTheme theme;
  theme.minDuration = 3;
  theme.SetSrc("wall.xml");
  EXPECT_EQ(theme.GetMinDuration(), 3);
  for (const char* const text : {"<theme length=\"0\"/>", "<theme/>", "<theme length=\"-4\"/>", "no xml", ""}) {
    Describe(text);
    EXPECT_EQ(theme.GetMinDuration(), 3) << text;
  }
}

TEST_F(Theme, IsAsHighAsItsAspectRatioMakesIt) {
  CMovieTheme theme;
  CThumbnailRequest request;
  request.params.width = 400;
  theme.CreateThumbnailInfile(request);
  EXPECT_EQ(request.params.height, 225);
  theme.aspectRatio = EAspectRatio::narrow;
  theme.CreateThumbnailInfile(request);
  EXPECT_EQ(request.params.height, 300);
  EXPECT_TRUE(std::string(request.params.themeDir).starts_with("file:///"));
  EXPECT_NE(std::string(request.params.themeDir), "file:///c:/");
}

}  // namespace

}  // namespace authed::data
