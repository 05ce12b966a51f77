#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <exception>

// Pages that no author writes. They may be refused, or drawn in any way, but the host goes on.
namespace {

using test::Instance;
using test::page;

void survives(const std::string& content) {
  const test::Module module;
  Instance instance(module, content);
  try {
    instance.open();
    instance.input(test::noise(1));
    instance.frame();
    instance.frame();
  } catch (const std::exception& error) {
    EXPECT_STRNE(error.what(), "");
  }
  module.close(instance.handle);
}

std::string repeat(const std::string& text, int times) {
  std::string result;
  while (times-- > 0) result += text;
  return result;
}

const std::string look =
    "<brush style=\"100\"><color red=\"9\" green=\"9\" blue=\"9\" alpha=\"99\"/></brush>"
    "<pen style=\"100\" width=\"2\"><color red=\"9\" green=\"9\" blue=\"9\" alpha=\"255\"/></pen>"
    "<font name=\"DejaVu Sans\" pointsize=\"9\" style=\"90\" weight=\"90\"/><color alpha=\"255\"/>";

const std::string kinds[] = {"line",  "arrow", "point", "dimension",    "circle", "rectangle",
                             "label", "paper", "dummy", "state-button", "mirror"};

std::string element(const std::string& kind, const std::string& number, const std::string& other) {
  return "<" + kind + " text=\"text\" label=\"label\" rotation=\"" + other + "\"><center x=\"" + number + "\" y=\"" +
         other + "\"/><size width=\"" + number + "\" height=\"" + other + "\"/><start x=\"" + number + "\" y=\"" +
         other + "\"/><end x=\"" + other + "\" y=\"" + number + "\"/>" + look + "<graphic-document>" +
         test::rectangle(0, 0, 9, 9, "alpha=\"255\"") + "</graphic-document></" + kind + ">";
}

TEST(HostilePage, NumbersOfEveryMagnitude) {
  const std::string numbers[] = {"nan",    "inf",        "-inf",        "1e308", "-1e308",
                                 "1e-308", "2147483648", "-2147483649", "1e19"};
  for (const std::string& kind : kinds) {
    for (const std::string& number : numbers) {
      SCOPED_TRACE(kind + " " + number);
      survives(page(element(kind, number, "10") + element(kind, "10", number) + element(kind, number, number)));
    }
  }
}

TEST(HostilePage, NegativeSizes) {
  for (const std::string& kind : kinds) survives(page(element(kind, "-20", "-30")));
}

TEST(HostilePage, PensBrushesAndFontsOfEveryMagnitude) {
  for (const std::string number : {"-1", "0", "2147483647", "-2147483648", "99999999999", "x", ""}) {
    std::string content;
    for (const std::string& kind : kinds) {
      content += "<" + kind +
                 " text=\"text\"><center x=\"80\" y=\"45\"/><size width=\"50\" height=\"50\"/><end x=\"40\" y=\"40\"/>"
                 "<pen style=\"" +
                 number + "\" width=\"" + number + "\"><color red=\"" + number + "\" alpha=\"" + number +
                 "\"/></pen><brush style=\"" + number + "\"><color green=\"" + number +
                 "\" alpha=\"255\"/></brush>"
                 "<font name=\"\" pointsize=\"" +
                 number + "\" style=\"" + number + "\" weight=\"" + number + "\" underlined=\"" + number +
                 "\"/><color alpha=\"255\"/></" + kind + ">";
    }
    SCOPED_TRACE(number);
    survives(page(content));
  }
}

TEST(HostilePage, APageRectangleOfAnyKind) {
  for (const std::string number : {"nan", "inf", "1e308", "1e-308", "-1", "0"}) {
    survives("<p><content-box x=\"" + number + "\" y=\"" + number + "\" width=\"" + number + "\" height=\"" + number +
             "\"/>" + element("circle", "10", "10") + "</p>");
    survives("<p><content-box width=\"1.6e-300\" height=\"9e-301\"/>" + element("label", "10", "10") + "</p>");
  }
}

TEST(HostilePage, DeepNesting) {
  survives(repeat("<p>", 200000) + repeat("</p>", 200000));
  survives(
      page(repeat("<mirror><center x=\"50\" y=\"50\"/><size width=\"40\" height=\"40\"/><graphic-document>", 3000) +
           repeat("</graphic-document></mirror>", 3000)));
}

TEST(HostilePage, MirrorsInMirrors) {
  survives(page(repeat("<mirror><center x=\"50\" y=\"50\"/><size width=\"40\" height=\"40\"/><graphic-document>", 20) +
                element("circle", "10", "10") + repeat("</graphic-document></mirror>", 20)));
}

TEST(HostilePage, AMirrorThatShowsItself) {
  survives(
      page("<mirror unique=\"1\"><center x=\"50\" y=\"50\"/><size width=\"40\" height=\"40\"/><graphic-document>"
           "<mirror unique=\"1\"/></graphic-document></mirror>"));
}

TEST(HostilePage, MirrorsThatMultiply) {
  std::string content = element("circle", "10", "10");
  for (int level = 1; level <= 40; ++level) {
    const std::string inner = level == 1 ? "" : "<mirror unique=\"" + std::to_string(level - 1) + "\"/>";
    content += "<mirror visible=\"" + std::string(level == 40 ? "true" : "false") + "\" unique=\"" +
               std::to_string(level) +
               "\"><center x=\"50\" y=\"50\"/><size width=\"40\" height=\"40\"/><graphic-document>" + inner + inner +
               "</graphic-document></mirror>";
  }
  survives(page(content));
}

TEST(HostilePage, SharedNumbersOfDifferentTypes) {
  survives(page("<label unique=\"1\" type=\"label\"/><circle unique=\"1\" type=\"circle\"/>"));
  survives(
      page("<label unique=\"9223372036854775807\"/><circle unique=\"99999999999999999999\"/><line unique=\"x\"/>"));
}

TEST(HostilePage, LongTexts) {
  survives(page("<label text=\"" + std::string(1000000, 'x') + "\">" + look + "</label>"));
  survives(page("<label text=\"" + repeat("&#10;", 100000) + "\">" + look + "</label>"));
  survives(page("<state-button label=\"" + std::string(1000000, 'x') + "\"/>"));
}

TEST(HostilePage, EntitiesThatMultiply) {
  std::string declarations = "<!ENTITY e0 \"xxxxxxxxxx\">";
  for (int level = 1; level < 12; ++level) {
    declarations +=
        "<!ENTITY e" + std::to_string(level) + " \"" + repeat("&e" + std::to_string(level - 1) + ";", 10) + "\">";
  }
  survives("<!DOCTYPE p [" + declarations + "]><p><label text=\"&e11;\"/>&e11;</p>");
}

TEST(HostilePage, BytesThatAreNoText) {
  survives(page("<label text=\"\xFF\xFE\"/>"));
  survives("\xFF\xFE<\0p\0/\0>\0");
  survives("<?xml version=\"1.0\" encoding=\"UTF-7\"?><p/>");
}

}  // namespace
