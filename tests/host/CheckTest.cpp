#include "host/Base64.h"
#include "tests/host/CheckedPage.h"
#include "tests/host/Media.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// What `mfilter check` says of pages, line by line.
namespace {

using test::check;
using test::errors;
using test::Folder;
using test::page;
using test::place;
using test::repeat;
using test::warnings;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string rectangle(const std::string& properties, const std::string& nodes = {}) {
  return "<rectangle" + properties + ">" + place + nodes + "</rectangle>";
}

std::string image(const std::string& attachment, const std::string& extension = "png") {
  return "<image name=\"Photo\">" + place + "<attachment-bitmap extension=\"" + extension + "\">" + attachment +
         "</attachment-bitmap></image>";
}

std::string text(const std::string& richText) {
  return "<text>" + place + "<attachment-richtextbuffer>" + host::toBase64(richText) +
         "</attachment-richtextbuffer></text>";
}

std::string picture(const Folder& folder, const std::string& size, const std::string& name) {
  test::makeMedia(folder, "-f lavfi -i testsrc=s=" + size + " -frames:v 1", name);
  return folder.read(name);
}

TEST(Check, SaysWhatAPageHolds) {
  const test::Outcome outcome = check(page(rectangle(" unique=\"3\" type=\"rectangle\"") + rectangle("") +
                                           "<label text=\"a\"/><rectangle unique=\"3\" type=\"rectangle\"/>"));
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.output,
            "page.xml: no errors, no warnings\n"
            "  page      256 x 144 mm, 16:9\n"
            "  elements  3: 2 rectangle, 1 label\n"
            "  shared    1 element, used 2 times\n");
}

TEST(Check, NamesTheAspectAsPeopleKnowIt) {
  const auto aspect = [](const std::string& size) {
    const std::string output = check("<page><content-box x=\"0\" y=\"0\" " + size + "/></page>").output;
    return output.substr(output.find("mm, ") + 4, output.find('\n', output.find("mm, ")) - output.find("mm, ") - 4);
  };
  EXPECT_EQ(aspect("width=\"160\" height=\"90\""), "16:9");
  EXPECT_EQ(aspect("width=\"192\" height=\"144\""), "4:3");
  EXPECT_EQ(aspect("width=\"160.5\" height=\"90\""), "about 16:9");
  EXPECT_EQ(aspect("width=\"170\" height=\"50\""), "3.4:1");
}

TEST(Check, TellsEveryProblemOfBrokenXml) {
  const test::Outcome outcome = check("<page>\n<line x=1/>\n<line y=\"1\" y=\"2\"/>\n</pages>\n");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.output, HasSubstr("page.xml:2: error: AttValue: \" or ' expected\n"));
  EXPECT_THAT(outcome.output, HasSubstr("page.xml:3: error: Attribute y redefined\n"));
  EXPECT_THAT(outcome.output, HasSubstr("page.xml:4: error: Opening and ending tag mismatch: page line 1 and pages\n"));
  EXPECT_THAT(outcome.output, HasSubstr("page.xml: 3 errors, 0 warnings\n"));
}

TEST(Check, TellsWhereACutOffPageIsOpen) {
  const test::Outcome outcome = check("<page>\n<rectangle>\n" + repeat("<size/>", 50000));
  EXPECT_THAT(outcome.output,
              StartsWith("page.xml:3: error: the document ends before <rectangle> of line 2 is closed\n"));
}

TEST(Check, TellsEveryUnknownNameWithTheLikelyOne) {
  EXPECT_EQ(errors("<rectangel/>\n<star/>\n<rectangle type=\"circel\"/>\n"),
            "page.xml:4: error: unknown element type 'rectangel'; did you mean 'rectangle'?\n"
            "page.xml:5: error: unknown element type 'star'\n"
            "page.xml:6: error: unknown element type 'circel'; did you mean 'circle'?\n");
  EXPECT_EQ(warnings(rectangle(" colored=\"true\"", "\n<centre/>")),
            "page.xml:4: warning: unknown property 'colored' in <rectangle> is ignored; did you mean 'coloured'?\n"
            "page.xml:5: warning: unknown node <centre> in <rectangle> is ignored; did you mean 'center'?\n");
}

TEST(Check, TakesNamesInAnyCase) {
  EXPECT_EQ(warnings("<RECTANGLE VISIBLE=\"TRUE\"><Center X=\"1\"/><SIZE Width=\"1\" height=\"1,5\"/></RECTANGLE>"),
            "");
}

TEST(Check, RefusesWhatCannotBeShown) {
  for (const std::string kind : {"base", "custom"}) {
    EXPECT_EQ(errors("<" + kind + "/>"),
              "page.xml:4: error: element type '" + kind + "' cannot be shown; the module refuses the page\n");
  }
  EXPECT_EQ(errors("<animation/>"),
            "page.xml:4: error: element type 'animation' cannot be shown without type-name=\"animation-image\"; the "
            "module refuses the page\n");
}

std::string animation(const std::string& node) {
  return "<animation type-name=\"animation-image\" name=\"Reel\">" + place + node + "</animation>";
}

// A frame list or, with the frames as a GIF has them, a GIF.
std::string frames(const Folder& folder, const std::string& type, int from, int to) {
  const std::string bytes = picture(folder, "8x6", "frame.png");
  std::string nodes;
  for (int i = from; i < to; ++i) {
    const std::string name = "frame" + std::to_string(i);
    const auto node = [&](const std::string& tag) {
      return "<" + tag + " extension=\"png\">" + host::toBase64(bytes) + "</" + tag + ">";
    };
    nodes += type == "gif" ? "<" + name + " delay=\"70\">" + node("frame") + "</" + name + ">" : node(name);
  }
  return nodes;
}

std::string animation(const std::string& type, const std::string& properties, const std::string& frames) {
  return animation("<animation type=\"" + type + "\"" + properties + ">" + frames + "</animation>");
}

TEST(Check, KnowsAnimations) {
  const Folder folder;
  for (const std::string type : {"animation", "gif"}) {
    folder.write("page.xml", page(animation(type, " count=\"3\" loop=\"true\"", frames(folder, type, 0, 3))));
    const test::Outcome outcome = check(folder, "page.xml");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("page.xml: no errors, no warnings\n"));
    EXPECT_THAT(outcome.output, HasSubstr("  elements  1: 1 animation\n"));
    EXPECT_THAT(outcome.output, HasSubstr("  pictures  3, "));
    EXPECT_THAT(outcome.output, HasSubstr(", 144 pixels\n    line 4: <animation> 'Reel': 3 frames, png 8x6, "));
  }
}

TEST(Check, TellsAnimationsThatShowNothing) {
  const Folder folder;
  EXPECT_EQ(warnings(animation("")), "page.xml:4: warning: <animation> 'Reel' has no <animation> and shows nothing\n");
  EXPECT_EQ(warnings(animation("<animation/>")),
            "page.xml:4: warning: <animation> 'Reel' has an <animation> without \"type\" and shows nothing\n");
  EXPECT_EQ(warnings(animation("gif", "", "")),
            "page.xml:4: warning: <animation> 'Reel' has no \"count\" of frames and shows nothing\n");
  EXPECT_EQ(
      warnings(animation("gif", " count=\"-1\"", frames(folder, "gif", 0, 2))),
      "page.xml:4: warning: <animation> 'Reel' has a \"count\" of no frames and shows nothing, though there are 2 "
      "frames\n");
}

TEST(Check, TellsUnknownAnimations) {
  for (const std::string type : {"mng", "GIF"}) {
    EXPECT_EQ(
        errors(animation(type, " count=\"1\"", "<frame0/>")),
        "page.xml:4: error: <animation> type=\"" + type + "\": must be animation or gif; there is no animation\n");
  }
}

TEST(Check, TellsFramesThatDoNotMatchTheirCount) {
  const Folder folder;
  const auto wanted = [&](const std::string& type, const std::string& count, int from, int to) {
    return warnings(animation(type, " count=\"" + count + "\"", frames(folder, type, from, to)));
  };
  const std::string start = "page.xml:4: warning: <animation> 'Reel' has ";
  EXPECT_EQ(wanted("animation", "3", 0, 2), start + "no <frame2>, but count=\"3\": nothing is shown in its time\n");
  EXPECT_EQ(wanted("gif", "3", 1, 3), start + "no <frame0>, but count=\"3\": it is left out\n");
  EXPECT_EQ(wanted("gif", "2", 0, 4), start + "frames that its count=\"2\" leaves out, <frame2> the first of them\n");
}

TEST(Check, TellsFramesThatAreNone) {
  const Folder folder;
  EXPECT_EQ(warnings(animation("gif", " count=\"1\"", "\n<frame0/>")),
            "page.xml:5: warning: <animation> 'Reel' has no <frame> in <frame0>: nothing is shown meanwhile\n"
            "page.xml:5: warning: <animation> 'Reel' has no \"delay\" in <frame0>: it stays for one frame of the "
            "video\n");
  EXPECT_EQ(warnings(animation("animation", " count=\"1\"", frames(folder, "animation", 0, 1) + "\n<frame01/>")),
            "page.xml:5: warning: unknown node <frame01> in <animation> is ignored\n");
  EXPECT_EQ(errors(animation("animation", " count=\"1\"", "\n<frame0 extension=\"png\">SGVsbG8</frame0>")),
            "page.xml:5: error: <frame0> of <animation> 'Reel' is no PNG, JPEG or BMP picture\n");
}

TEST(Check, TellsAnimationsThatMoveTooFast) {
  const Folder folder;
  const std::string reference = "<animation type=\"animation-image\" unique=\"5\"/>";
  const std::string first = "<animation type=\"animation-image\" unique=\"5\">" + place +
                            "<animation type=\"gif\" count=\"1\">" + frames(folder, "gif", 0, 1) +
                            "</animation></animation>";
  EXPECT_EQ(warnings(first + "\n<mirror>" + place + "<graphic-document>" + reference + "</graphic-document></mirror>"),
            "");
  EXPECT_EQ(warnings(first + "\n" + reference),
            "page.xml:5: warning: unique=\"5\" of line 4 moves on for each element that shows it, so it is too fast\n");
}

TEST(Check, TellsAnimationsWithTooManyFrames) {
  EXPECT_THAT(errors(animation("gif", " count=\"100001\"", "")),
              HasSubstr("error: an animation has at most 100000 frames; the module refuses the page\n"));
}

TEST(Check, TellsWhatBecomesOfNumbersThatAreNone) {
  EXPECT_EQ(errors("<line rotation=\"45deg\">\n<center x=\"a\" y=\"\"/>\n<start x=\"nan\" y=\"1.5e3\"/></line>"),
            "page.xml:4: error: <line> rotation=\"45deg\": not a number; only its beginning counts, 45\n"
            "page.xml:5: error: <center> x=\"a\": not a number; it counts as 0\n"
            "page.xml:5: error: <center> y=\"\": not a number; it is ignored\n"
            "page.xml:6: error: <start> x=\"nan\": not a finite number\n");
}

TEST(Check, TellsColoursOutOfRange) {
  EXPECT_EQ(errors("<label text=\"a\"><color red=\"256\" green=\"-1\" blue=\"99999999999\" alpha=\"0.5\"/></label>"),
            "page.xml:4: error: <color> red=\"256\": must be 0 to 255; it counts as 255\n"
            "page.xml:4: error: <color> green=\"-1\": must be 0 to 255; it counts as 0\n"
            "page.xml:4: error: <color> blue=\"99999999999\": must be 0 to 255; it counts as 0\n"
            "page.xml:4: error: <color> alpha=\"0.5\": not a whole number; it counts as 0\n");
  EXPECT_EQ(warnings("<label text=\"a\"><color red=\"1\"/></label>"),
            "page.xml:4: warning: <color> has no \"alpha\" and is fully transparent; 255 is opaque\n");
}

TEST(Check, TellsUnknownWords) {
  EXPECT_EQ(errors(rectangle(" visible=\"yes\"", "<pen style=\"9\"/>")),
            "page.xml:4: error: <rectangle> visible=\"yes\": must be true or false; it counts as false\n"
            "page.xml:4: error: <pen> style=\"9\": must be 100, 101, 102, 103, 104, 105, 106, 111, 112, 113, 114, 115 "
            "or 116; it is ignored\n");
}

TEST(Check, RefusesWordsThatTheModuleRefuses) {
  EXPECT_EQ(errors("<shape shape=\"star\">" + place + "</shape>"),
            "page.xml:4: error: <shape> shape=\"star\": must be rectangle, rounded-rectangle, ellipse or free-form; "
            "the module refuses the page\n");
  EXPECT_EQ(
      errors("<table>" + place +
             "<rows><row/></rows><cols><col width=\"9\"/></cols>\n<cells>"
             "<cell vertical-align=\"middle\"/></cells></table>"),
      "page.xml:5: error: <cell> vertical-align=\"middle\": must be top, center or bottom; the module refuses the "
      "page\n");
}

TEST(Check, TellsElementsThatShowNothing) {
  EXPECT_EQ(
      warnings("<rectangle/>\n<circle><size width=\"0\" height=\"0\"/></circle>\n"
               "<mirror><size width=\"-1\" height=\"1\"/></mirror>\n<image>" +
               place +
               "</image>\n<label/>\n"
               "<text name=\"Title\">" +
               place + "</text>"),
      "page.xml:4: warning: <rectangle> has no size and shows nothing\n"
      "page.xml:5: warning: <circle> has the size 0 and shows nothing\n"
      "page.xml:6: warning: <mirror> has a size below 0\n"
      "page.xml:6: warning: <mirror> has no <graphic-document> and shows nothing\n"
      "page.xml:7: warning: <image> has no picture, neither \"filename\" nor <attachment-bitmap>, and shows "
      "nothing\n"
      "page.xml:8: warning: <label> has no \"text\" and shows nothing\n"
      "page.xml:9: warning: <text> 'Title' has no <attachment-richtextbuffer> and shows \"Double click to edit!\"\n");
}

TEST(Check, TellsWhatIsIgnored) {
  EXPECT_EQ(warnings(rectangle("", "\n<size/>\nstray text")),
            "page.xml:4: warning: text in <rectangle> is ignored: 'stray text'\n"
            "page.xml:5: warning: a second <size> in <rectangle> is ignored\n");
}

TEST(Check, KnowsButtonsWithSkins) {
  const auto button = [](const std::string& layers) {
    return "<state-button type-name=\"skin-button\"><skin type=\"buttonskin\"><states><normal "
           "name=\"normal\"><layers>" +
           layers + "</layers></normal></states></skin></state-button>";
  };
  EXPECT_EQ(warnings(button("<text halo-enabled=\"true\"/><animation/><custom id=\"clock\"/>")), "");
  EXPECT_EQ(warnings(button("<image/>")), "page.xml:4: warning: unknown node <image> in <layers> is ignored\n");
  EXPECT_EQ(warnings(button("<Text/>")),
            "page.xml:4: warning: unknown node <Text> in <layers> is ignored; did you mean 'text'?\n");
  EXPECT_EQ(warnings(button("<text><color red=\"1\"/></text>")), "");
}

std::string skin(const std::string& properties, const std::string& states = {}) {
  return "<state-button type-name=\"skin-button\"><skin" + properties + ">" + states + "</skin></state-button>";
}

TEST(Check, TellsButtonsWithoutSkins) {
  EXPECT_EQ(warnings("<state-button type-name=\"skin-button\" name=\"Play\"/>"),
            "page.xml:4: warning: <state-button> 'Play' has no <skin> and looks like a plain button\n");
  EXPECT_EQ(warnings("<state-button><skin type=\"shapeskin\"><states><normal><layers><text/></layers></normal></states>"
                     "</skin></state-button>"),
            "page.xml:4: warning: <state-button> has no type-name=\"skin-button\": its <skin> is ignored\n");
  EXPECT_EQ(warnings(skin("")), "page.xml:4: warning: <skin> has no \"type\": there is no skin\n");
  for (const std::string type : {"carpet", "ButtonSkin"}) {
    EXPECT_EQ(errors(skin(" type=\"" + type + "\"")),
              "page.xml:4: error: <skin> type=\"" + type + "\": must be buttonskin or shapeskin; there is no skin\n");
  }
}

TEST(Check, TellsStatesThatButtonsShowAndSkinsLack) {
  const std::string layers = "<layers><text/></layers>";
  EXPECT_EQ(warnings(skin(" type=\"buttonskin\" id=\"glass\"", "<states><hover>" + layers + "</hover></states>")),
            "page.xml:4: warning: <skin> 'glass' has no state <normal> and shows nothing\n");
  EXPECT_EQ(warnings(skin(" type=\"buttonskin\"", "<states><normal/></states>")),
            "page.xml:4: warning: <normal> of <skin> has no layers and shows nothing\n");
  EXPECT_EQ(warnings(skin(" type=\"shapeskin\"",
                          "<states><normal>" + layers + "</normal><down>" + layers + "</down></states>")),
            "page.xml:4: warning: <down> is ignored: a shapeskin has the state <normal> alone\n");
  EXPECT_EQ(warnings(skin(" type=\"buttonskin\"", "<states><normal name=\"day\">" + layers + "</normal></states>")),
            "page.xml:4: warning: <normal> is the state 'day', as its \"name\" says: nothing is left for pages to "
            "show\n");
  EXPECT_EQ(warnings(skin(" type=\"buttonskin\"", "<states><pressed/><normal>" + layers + "</normal></states>")),
            "page.xml:4: warning: unknown node <pressed> in <states> is ignored\n");
}

TEST(Check, TellsLayersThatDoNotShowWhatTheySay) {
  const Folder folder;
  const std::string bytes = host::toBase64(picture(folder, "8x6", "icon.png"));
  const auto layers = [](const std::string& nodes) {
    return warnings(skin(" type=\"buttonskin\"", "<states><normal><layers>" + nodes + "</layers></normal></states>"));
  };
  const std::string props =
      "<props>\n<star><prop-star extension=\"png\">" + bytes + "</prop-star></star></props></animation>";
  EXPECT_EQ(layers("<animation uriprop=\"star\">" + props), "");
  EXPECT_EQ(layers("<animation>" + props),
            "page.xml:4: warning: <animation> has <props> but no \"uriprop\" that chooses one of them\n");
  EXPECT_EQ(layers("<animation uriprop=\"moon\">" + props),
            "page.xml:4: warning: <animation> uriprop=\"moon\": <props> has no such picture\n");
  EXPECT_EQ(layers("<animation uriprop=\"a\"><props>\n<a/></props></animation>"),
            "page.xml:5: warning: <a> of <props> has no picture <prop-a>\n");
  EXPECT_EQ(layers("<text><shadow-rel-position x=\"-1\" y=\"-1\"/></text>"),
            "page.xml:4: warning: <shadow-rel-position> shows no shadow: neither \"x\" nor \"y\" is above 0\n");
  EXPECT_EQ(layers(repeat("<text/>", 101)),
            "page.xml:4: warning: <normal> has 101 layers: only the first 100 are read\n");
}

TEST(Check, KnowsSkinsThatButtonsShare) {
  const Folder folder;
  const std::string bytes = host::toBase64(picture(folder, "8x6", "panel.png"));
  const std::string first = skin(" type=\"buttonskin\" unique=\"7\"",
                                 "<states><normal><layers><animation><attachment-bitmap extension=\"png\">" + bytes +
                                     "</attachment-bitmap></animation></layers></normal></states>");
  folder.write("page.xml", page(first + skin(" type=\"buttonskin\" unique=\"7\"")));
  const test::Outcome outcome = check(folder, "page.xml");
  EXPECT_THAT(outcome.output, StartsWith("page.xml: no errors, no warnings\n"));
  EXPECT_THAT(outcome.output, HasSubstr("  shared    1 skin, used 2 times\n"));
  EXPECT_THAT(outcome.output, HasSubstr("    line 4: <state-button>: png 8x6, "));
  EXPECT_EQ(errors(first + "\n" + skin(" type=\"shapeskin\" unique=\"7\"")),
            "page.xml:5: error: unique=\"7\" is the type 'buttonskin' of line 4, but 'shapeskin' here; the module "
            "refuses the page\n");
  EXPECT_EQ(errors(first + "\n" + rectangle(" unique=\"7\" type=\"rectangle\"")),
            "page.xml:5: error: unique=\"7\" is the type 'buttonskin' of line 4, but 'rectangle' here; the module "
            "refuses the page\n");
}

TEST(Check, TellsSkinsThatHoldThemselves) {
  EXPECT_EQ(errors(skin(" type=\"shapeskin\" unique=\"7\"",
                        "<states><normal><layers>\n<custom><shape type=\"shapeskin\" unique=\"7\"/></custom>"
                        "</layers></normal></states>")),
            "page.xml:5: error: unique=\"7\" of line 4 contains itself; the module refuses the page\n");
}

TEST(Check, TellsNumbersSharedByDifferentTypes) {
  EXPECT_EQ(
      errors(rectangle(" unique=\"5\" type=\"rectangle\"") + "\n<circle unique=\"5\" type=\"circle\"/>"),
      "page.xml:5: error: unique=\"5\" is the type 'rectangle' of line 4, but 'circle' here; the module refuses the "
      "page\n");
}

TEST(Check, TellsElementsThatHoldThemselves) {
  EXPECT_EQ(errors("<mirror unique=\"7\" type=\"mirror\">" + place +
                   "<graphic-document>\n<mirror unique=\"7\" type=\"mirror\"/></graphic-document></mirror>"),
            "page.xml:5: error: unique=\"7\" of line 4 contains itself; the module refuses the page\n");
}

TEST(Check, TellsPagesWithoutSize) {
  const test::Outcome outcome = check("<page>\n<content-box width=\"0\" height=\"9\"/></page>");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.output, StartsWith("page.xml:2: error: the content-box has no size\n"));
  EXPECT_THAT(outcome.output, HasSubstr("  page      no size\n"));
}

TEST(Check, TellsPicturesOfThePage) {
  const Folder folder;
  const std::string bytes = picture(folder, "64x36", "photo.png");
  folder.write("page.xml", page("<image filename=\"photo.png\">" + place + "</image>\n<image filename=\"photo.png\">" +
                                place + "</image>\n" + image(host::toBase64(bytes))));
  const test::Outcome outcome = check(folder, "page.xml");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("  pictures  2, "));
  EXPECT_THAT(outcome.output, HasSubstr(", 4608 pixels\n"));
  EXPECT_THAT(outcome.output, HasSubstr("    line 6: <image> 'Photo': png 64x36, "));
  EXPECT_THAT(outcome.output, HasSubstr("    line 4: photo.png: png 64x36, "));
  EXPECT_THAT(outcome.output, EndsWith(", used 2 times\n"));
}

TEST(Check, TellsPicturesThatAreNone) {
  const Folder folder;
  const std::string bytes = picture(folder, "64x36", "photo.png");
  const std::string start = "page.xml:4: error: <attachment-bitmap> of <image> 'Photo' ";
  EXPECT_EQ(errors(image(host::toBase64("Hello"))), start + "is no PNG, JPEG or BMP picture\n");
  EXPECT_EQ(errors(image("")), start + "is empty\n");
  EXPECT_EQ(errors(image("AAA=")), start + "ends in '=': the module takes no padding, leave it out\n");
  EXPECT_EQ(errors(image("AAAA\nAAAA")),
            start + "has white space in its base64 text after 4 characters: write it in one line\n");
  EXPECT_EQ(errors(image(host::toBase64(bytes.substr(0, bytes.size() / 2)))),
            start + "is a damaged or cut off png picture of 64x36\n");
  EXPECT_EQ(errors(image(host::toBase64(bytes), "jpg")),
            start + "is not shown: it is a png picture, but its extension says 'jpg'\n");
  const std::string huge = std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x80\0\0\0\x80\0\x08\2\0\0\0", 29);
  EXPECT_EQ(errors(image(host::toBase64(huge))), start + "is not shown: 32768x32768 pixels are more than 64 Mpixel\n");
  const std::string wide = std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x80\0\0\0\0\x01\x08\2\0\0\0", 29);
  EXPECT_EQ(errors(image(host::toBase64(wide))), start + "is not shown: 32768x1 is more than 32767 pixels on a side\n");
}

TEST(Check, TellsPicturesThatTheModuleHasNoDecoderFor) {
  const std::string start = "page.xml:4: error: <attachment-bitmap> of <image> 'Photo' ";
  EXPECT_EQ(errors(image(host::toBase64("GIF89a"))), start + "is a gif picture, which is not shown; make it a PNG\n");
  std::string bmp("BM", 2);
  bmp.resize(54, '\0');
  bmp[14] = 40;
  bmp[18] = bmp[22] = 8;
  bmp[30] = 1;
  EXPECT_EQ(errors(image(host::toBase64(bmp))),
            start + "is a bmp picture in run lengths, which is not shown; make it a PNG\n");
}

TEST(Check, TellsPictureFilesThatAreMissing) {
  EXPECT_EQ(
      errors("<image filename=\"gone.png\">" + place + "</image>"),
      "page.xml:4: error: <image> filename=\"gone.png\": there is no such file, looked for from the current folder; "
      "the substitute picture is shown instead\n");
}

TEST(Check, TellsTextsThatAreNone) {
  const std::string start = "page.xml:4: error: <attachment-richtextbuffer> of <text> is ";
  EXPECT_EQ(errors(text("<html/>")), start + "no rich text: its root is <html>, not <richtext>\n");
  EXPECT_EQ(errors(text("<richtext>\n</rich>")),
            start + "no rich text: in line 2 of it: Opening and ending tag mismatch: richtext line 1 and rich\n");
  EXPECT_EQ(errors(text("<richtext/>")), start + "a rich text without a <paragraph>\n");
  EXPECT_EQ(warnings(text("<richtext><paragraphlayout><paragraph/></paragraphlayout></richtext>")), "");
}

TEST(Check, TellsTextsBeyondTheLimits) {
  const auto holding = [](const std::string& paragraphs) {
    return text("<richtext><paragraphlayout>" + paragraphs + "</paragraphlayout></richtext>");
  };
  const auto letters = [](int count) { return "<paragraph><text>" + repeat("ä", count) + "</text></paragraph>"; };
  const auto nodes = [](int count) { return repeat("<paragraph/>", count - 1); };
  const auto fonts = [](int count) {
    std::string runs;
    for (int i = 1; i < count; ++i) runs += "<text fontpointsize=\"" + std::to_string(i) + "\">a</text>";
    return "<paragraph>" + runs + "</paragraph>";
  };
  const auto boxes = [](int count) {
    return repeat("<paragraph><textbox>", count) + repeat("</textbox></paragraph>", count);
  };
  for (const std::string& most : {letters(100'000), nodes(10'000), fonts(100), boxes(4)})
    EXPECT_EQ(warnings(holding(most)), "");
  const std::string start = "page.xml:4: error: <attachment-richtextbuffer> of <text> is not shown: it has more than ";
  EXPECT_EQ(errors(holding(letters(100'001))), start + "100000 letters\n");
  EXPECT_EQ(errors(holding(nodes(10'001))), start + "10000 nodes\n");
  EXPECT_EQ(errors(holding(fonts(101))), start + "100 fonts\n");
  EXPECT_EQ(errors(holding(boxes(5))), start + "4 boxes in one another\n");
}

TEST(Check, TellsWhatTheModuleRefusesOnceOnly) {
  std::string nested = "<point/>";
  for (int i = 0; i < 10; ++i)
    nested = "<mirror>" + place + "<graphic-document>" + nested + "</graphic-document></mirror>";
  EXPECT_EQ(errors(nested), "page.xml:4: error: mirrors show mirrors more than 8 deep; the module refuses the page\n");
}

TEST(Check, StopsAtTheLimits) {
  const auto first = [](const std::string& content) {
    const std::string output = check(content).output;
    return output.substr(0, output.find('\n'));
  };
  EXPECT_EQ(first(repeat("<a>", 300) + repeat("</a>", 300)), "page.xml:1: error: elements nest more than 256 deep");
  std::string properties;
  for (int i = 0; i < 100000; ++i) properties += " a" + std::to_string(i) + "=\"\"";
  EXPECT_EQ(first("<page" + properties + "/>"), "page.xml:1: error: a tag has more than 1000 properties or 4 MB");
  EXPECT_EQ(first("<page " + std::string(6'000'000, 'x') + "/>"),
            "page.xml:1: error: a tag has more than 1000 properties or 4 MB");
}

TEST(Check, CountsWhatItDoesNotPrint) {
  const std::string output = errors(repeat("<star/>\n", 1200));
  EXPECT_THAT(output, EndsWith("page.xml: and 200 more\n"));
}

TEST(Check, StaysOneLineAProblem) {
  EXPECT_EQ(warnings("<rectangle a=\"\" name=\"x&#10;y\"><size width=\"0\" height=\"0\"/></rectangle>"),
            "page.xml:4: warning: unknown property 'a' in <rectangle> is ignored\n"
            "page.xml:4: warning: <rectangle> 'x y' has the size 0 and shows nothing\n");
}

TEST(Check, NamesAMissingFileOnStandardError) {
  const Folder folder;
  const test::Outcome outcome = check(folder, "gone.xml");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "gone.xml: No such file or directory\n");
}

TEST(Check, NeedsAPage) {
  const test::Outcome outcome = test::run({MFILTER_COMMAND, "check"});
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.errors, "mfilter: page is required\n");
}

}  // namespace
