#include "host/Base64.h"
#include "tests/host/CheckedPage.h"
#include "tests/host/Media.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// What `mfilter check` says of movies and of the buttons that show them.
namespace {

using test::check;
using test::errors;
using test::Folder;
using test::page;
using test::place;
using test::warnings;
using testing::EndsWith;
using testing::HasSubstr;

std::string movieImage(const std::string& movie, const std::string& properties = {}) {
  return "<animation type-name=\"movie-image\" name=\"Trailer\"" + properties + ">" + place + movie + "</animation>";
}

const std::string chapters = "<chapters><chapter timestamp=\"0\"/><chapter timestamp=\"8\" name=\"Storm\"/></chapters>";

std::string movieFile(const std::string& properties, const std::string& name, const std::string& nodes = {}) {
  return "<movie type=\"movie-file\" title=\"Sea\"" + properties + "><filename path=\"\" name=\"" + name + "\"/>" +
         nodes + "</movie>";
}

TEST(CheckMovies, TellsWhatMoviesAPageHolds) {
  const Folder folder;
  folder.write("sea.mp4", "");
  folder.write("wall.xml", "");
  folder.write("page.xml", page(movieImage(movieFile(" unique=\"7\" duration=\"12.5\"", "sea.mp4", chapters)) + "\n" +
                                movieImage("<movie type=\"movie-file\" unique=\"7\"/>", " chapter=\"2\"") + "\n" +
                                movieImage("<movie type=\"theme\" src=\"wall.xml\"><movies>\n"
                                           "<movie type=\"movie-file\" unique=\"7\"/></movies></movie>")));
  const test::Outcome outcome = check(folder, "page.xml");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_THAT(outcome.output, HasSubstr("page.xml: no errors, no warnings\n"));
  EXPECT_THAT(outcome.output, HasSubstr("  elements  3: 3 movie-image\n  shared    1 movie, used 3 times\n"));
  EXPECT_THAT(outcome.output,
              EndsWith("  movies    2\n"
                       "    line 4: <movie> 'Sea': movie-file sea.mp4, 12.5 s, 2 chapters, used 3 times\n"
                       "    line 6: <movie>: theme wall.xml, 1 movie\n"));
}

TEST(CheckMovies, TellsMovieFilesThatAreMissing) {
  EXPECT_EQ(
      errors(movieImage(movieFile("", "sea.mp4"))),
      "page.xml:4: error: <movie> 'Sea' \"sea.mp4\": there is no such file, looked for from the current folder; the "
      "movie does not play\n");
  EXPECT_EQ(errors(movieImage("<movie type=\"movie-file\"><filename path=\"/nowhere\" name=\"sea.mp4\"/></movie>")),
            "page.xml:4: error: <movie> \"/nowhere/sea.mp4\": there is no such file; the movie does not play\n");
}

TEST(CheckMovies, LooksForThemesInTheirFolder) {
  const Folder folder;
  folder.write("page.xml", page(movieImage("<movie type=\"theme\" title=\"Wall\" src=\"wall.xml\"/>")));
  EXPECT_THAT(
      check(folder, "page.xml").output,
      HasSubstr("<movie> 'Wall' \"wall.xml\": there is no such file, looked for from the current folder; --themes "
                "names another one; the movie does not play\n"));
  const Folder themes;
  const auto checked = [&] {
    return test::run({MFILTER_COMMAND, "check", "page.xml", "--themes", themes.path()}, folder.path()).output;
  };
  EXPECT_THAT(checked(), HasSubstr("there is no such file, looked for in "));
  themes.write("wall.xml", "");
  EXPECT_THAT(checked(), HasSubstr("page.xml: no errors, no warnings\n"));
}

TEST(CheckMovies, TellsMoviesThatShowNothing) {
  EXPECT_EQ(warnings("<mirror><size width=\"16\" height=\"9\"/><graphic-document>" + movieImage("") +
                     "</graphic-document></mirror>"),
            "page.xml:4: warning: <animation> 'Trailer' has no <movie> and shows nothing\n");
  EXPECT_EQ(warnings(movieImage("<movie type=\"movie-file\"/>")),
            "page.xml:4: warning: <movie> has no <filename> with a \"name\" and shows nothing\n");
  EXPECT_EQ(warnings(movieImage("<movie type=\"edited-movie\"/>")),
            "page.xml:4: warning: <movie> has no <vantra.xml> and shows nothing\n");
  EXPECT_EQ(warnings(movieImage("<movie type=\"theme\"/>")),
            "page.xml:4: warning: <movie> has no \"src\", the file of its description, and shows nothing\n");
  EXPECT_EQ(
      errors(
          movieImage("<movie type=\"slideshow\"><vantra.xml>" + host::toBase64("<film/>") + "</vantra.xml></movie>")),
      "page.xml:4: error: <vantra.xml> of <animation> 'Trailer' is no timeline: its root is <film>, not <infile>\n");
}

TEST(CheckMovies, RefusesImagesWithoutAMovieToPlay) {
  const std::string refused =
      "page.xml:4: error: <animation> 'Trailer' has no <movie> to play; the module refuses the page\n";
  EXPECT_EQ(errors(movieImage("")), refused);
  EXPECT_THAT(errors(movieImage("<movie type=\"custom\"/>")), HasSubstr(refused));
  EXPECT_THAT(errors("<state-button type-name=\"authed-state-button-action\"><element>" + movieImage("") +
                     "</element></state-button>"),
              HasSubstr(refused));
}

TEST(CheckMovies, TellsMoviesInButtonsWithinButtons) {
  const Folder folder;
  folder.write("sea.mp4", "");
  const std::string start = "<state-button type-name=\"authed-state-button-action\"><element>";
  const std::string end = "</element></state-button>";
  const std::string trailer = movieImage("<movie type=\"movie-file\"><filename path=\"\" name=\"sea.mp4\"/></movie>");
  const std::string told = "'Trailer' does not play in a button that lies in another one\n";
  folder.write("one.xml", page(start + trailer + end));
  folder.write("two.xml", page(start + start + trailer + end + end));
  EXPECT_EQ(check(folder, "one.xml").output.find(told), std::string::npos);
  EXPECT_THAT(check(folder, "two.xml").output, HasSubstr("two.xml:4: warning: <animation> " + told));
}

TEST(CheckMovies, RefusesMoviesOfUnknownTypes) {
  EXPECT_EQ(errors(movieImage("<movie/>")),
            "page.xml:4: error: <movie> has no \"type\"; the module refuses the page\n");
  EXPECT_EQ(
      errors(movieImage("<movie type=\"film\"/>")),
      "page.xml:4: error: <movie> type=\"film\": must be movie-file, slideshow, edited-movie, theme or custom; the "
      "module refuses the page\n");
  EXPECT_EQ(
      errors(
          movieImage("<movie type=\"slideshow\"><vantra.xml>" + host::toBase64("<infile/>") + "</vantra.xml></movie>",
                     " scale-mode=\"fit\"")),
      "page.xml:4: error: <animation> scale-mode=\"fit\": must be scale-width, scale-height or scale-fitting; the "
      "module refuses the page\n");
  EXPECT_EQ(errors("<movie-image/>"),
            "page.xml:4: error: unknown element type 'movie-image'; write <animation type-name=\"movie-image\">\n");
}

TEST(CheckMovies, TellsChaptersThatAMovieLacks) {
  const Folder folder;
  folder.write("sea.mp4", "");
  folder.write("page.xml", page(movieImage(movieFile(" unique=\"7\"", "sea.mp4", chapters), " chapter=\"3\"") + "\n" +
                                movieImage("<movie type=\"movie-file\" unique=\"7\"/>", " chapter=\"4\"")));
  const std::string output = check(folder, "page.xml").output;
  EXPECT_THAT(output, HasSubstr("page.xml:4: warning: <animation> 'Trailer' begins with chapter 3, but its movie has 2 "
                                "chapters: it begins with the movie\n"));
  EXPECT_THAT(output, HasSubstr("page.xml:5: warning: <animation> 'Trailer' begins with chapter 4, "));
}

TEST(CheckMovies, TellsMoviesOfAThemeWithOneId) {
  const std::string entry =
      "\n<movie type=\"slideshow\" id=\"2\"><vantra.xml>" + host::toBase64("<infile/>") + "</vantra.xml></movie>";
  EXPECT_THAT(
      errors(movieImage("<movie type=\"theme\" src=\"wall.xml\"><movies>" + entry + entry + "</movies></movie>")),
      HasSubstr("page.xml:6: warning: <movie> has the id 2 of another one of the theme, which is shown instead\n"));
}

std::string actionButton(const std::string& nodes, const std::string& layers = "<custom/>") {
  return "<state-button type-name=\"authed-state-button-action\" name=\"Play\"><skin "
         "type=\"buttonskin\"><states><normal>"
         "<layers>" +
         layers + "</layers></normal></states></skin>" + nodes + "</state-button>";
}

TEST(CheckMovies, KnowsActionButtons) {
  EXPECT_EQ(warnings(actionButton("<action type=\"play\" movie-id=\"1\" chapter=\"2\" change-page=\"\"/><element>"
                                  "<rectangle/></element>")),
            "");
  EXPECT_EQ(errors(actionButton("<action/>")),
            "page.xml:4: error: <action> has no \"type\"; the module refuses the page\n");
  EXPECT_EQ(errors(actionButton("<action type=\"PLAY\" change-page=\"away\"/>")),
            "page.xml:4: error: <action> type=\"PLAY\": must be undefined, change-page, play or play-all; the module "
            "refuses the page\n"
            "page.xml:4: error: <action> change-page=\"away\": must be goto-mainpage, go-back or goto-page; the module "
            "refuses the page\n");
}

TEST(CheckMovies, TellsElementsThatButtonsDoNotShow) {
  const std::string start = "page.xml:4: warning: <state-button> 'Play'";
  EXPECT_EQ(warnings(actionButton("<element/>")), start + " has nothing in its <element>\n");
  EXPECT_EQ(warnings(actionButton("<element><rectangle/><circle/></element>")),
            start + " has 2 elements in its <element>: only the first one is shown\n");
  EXPECT_EQ(warnings(actionButton("<element><rectangle/></element>", "<text/>")),
            start + ": its <element> is not shown, as the state <normal> of its skin has no <custom> layer\n");
  EXPECT_EQ(warnings("<state-button name=\"Play\"><action type=\"play\"/></state-button>"),
            start + " has no type-name=\"authed-state-button-action\": its <action> is ignored\n");
}

}  // namespace
