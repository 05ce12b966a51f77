#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::Folder;
using test::Outcome;
using test::page;
using test::render;

// Of 2 x 2 green pixels.
const std::string picture =
    "<attachment-thumbnail extension=\"bmp\"><![CDATA["
    "Qk1GAAAAAAAAADYAAAAoAAAAAgAAAAIAAAABABgAAAAAABAAAAAAAAAAAAAAAAAAAAAAAAAAAP8AAP8AAAAA/wAA/wAAAA]]>"
    "</attachment-thumbnail>";

std::string movie(const std::string& file) {
  return "<animation type-name=\"movie-image\" scale-mode=\"scale-fitting\"><center x=\"128\" y=\"72\"/><size "
         "width=\"256\" height=\"144\"/>"
         "<movie type=\"movie-file\" duration=\"1\"><filename path=\"\" name=\"" +
         file + "\"/>" + picture + "</movie></animation>";
}

// The command and the module where there is no backend.
class LonelyCommand : public Folder {
public:
  LonelyCommand() {
    std::filesystem::create_directories(path() / "bin");
    std::filesystem::create_directories(path() / "lib");
    std::filesystem::copy(MFILTER_COMMAND, path() / "bin/mfilter");
    std::filesystem::copy(MFILTER_LIBRARY, path() / "lib/libmfilter.so");
  }
  Outcome render(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {(path() / "bin/mfilter").string(), "render"});
    return test::run(arguments, path());
  }
};

std::string firstPixel(const Folder& folder, const std::string& name) {
  return test::decode(folder, name, "bgra").substr(0, 4);
}

TEST(Movie, WithoutABackendIsOneLineThatOffersStillPictures) {
  const LonelyCommand command;
  command.write("page.xml", page(movie("a.mp4")));
  const Outcome outcome = command.render({"page.xml", "--size", "64x36", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "page.xml: Could not load libvantraplugin.so, so its movies cannot be played; --no-movies shows still "
            "pictures\n");
  EXPECT_FALSE(command.has("out.png"));
}

TEST(Movie, IsAStillPictureWhereNoneAreWanted) {
  const LonelyCommand command;
  command.write("page.xml", page(movie("a.mp4")));
  const Outcome outcome = command.render({"page.xml", "--size", "64x36", "--no-movies", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(firstPixel(command, "out.png"), std::string("\0\xFF\0\xFF", 4));
}

TEST(Movie, OffersNothingWhereItWouldNotHelp) {
  const LonelyCommand command;
  command.write("page.xml", page(movie("a.mp4") + "<state-button type-name=\"authed-state-button-action\">"
                                                  "<action type=\"PLAY\"/></state-button>"));
  const Outcome outcome = command.render({"page.xml", "--size", "64x36", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_NE(outcome.errors, "");
  EXPECT_EQ(outcome.errors.find("--no-movies"), std::string::npos) << outcome.errors;
}

TEST(Movie, ThatIsMissingInAnImageIsOneLineThatNamesTheImage) {
  const Folder folder;
  folder.write("page.xml", page(movie("a.mkv") + "<animation type-name=\"movie-image\" name=\"Trailer\"/>"));
  const std::vector<std::string> size = {"page.xml", "--size", "64x36", "-o", "out.png"};
  const Outcome outcome = render(folder.path(), size);
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors,
            "page.xml:4: <animation> 'Trailer' has no <movie> to play; --no-movies shows the page without it\n");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "64x36", "--no-movies", "-o", "out.png"}).exitCode, 0);
}

TEST(Movie, PlaysFromTheFolderOfThePage) {
  const Folder folder;
  test::makeMedia(folder, "-f lavfi -i color=c=0x0000ff:s=32x18:r=25,format=gbrp -frames:v 5 -c:v ffv1 -pix_fmt bgr0",
                  "a.mkv");
  folder.write("page.xml", page(movie("a.mkv")));
  const Outcome outcome = render(folder.path(), {"page.xml", "--size", "64x36", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(firstPixel(folder, "out.png"), std::string("\xFF\0\0\xFF", 4));
}

TEST(Movie, FoldersMustBeThere) {
  const test::PageFolder folder;
  for (const std::string option : {"--animations", "--themes", "--filters"}) {
    const Outcome outcome = render(folder.path(), {"page.xml", "--size", "64x36", option, "nowhere", "-o", "out.png"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "nowhere: not a folder\n");
    EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "64x36", option, ".", "-o", "out.png"}).exitCode, 0);
  }
}

}  // namespace
