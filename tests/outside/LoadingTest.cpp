#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>

namespace {

using test::Instance;
using test::Module;
using test::page;
using test::Pixels;

std::string place(int x, int y, int width, int height) {
  return "<center x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\"/><size width=\"" +
         std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"/>";
}

// A BMP of 8 x 8 pixels, each of another colour.
std::string picture() {
  constexpr int edge = 8;
  std::string bytes = "BM";
  const auto number = [&](unsigned value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i));
  };
  for (const unsigned value : {54U + 3 * edge * edge, 0U, 54U, 40U, 8U, 8U}) number(value, 4);
  number(1, 2);
  number(24, 2);
  for (int i = 0; i < 6; ++i) number(0, 4);
  for (unsigned i = 0; i < edge * edge; ++i) number(i << 18 | i << 9 | i, 3);
  return "<attachment-bitmap extension=\"bmp\"><![CDATA[" + test::toBase64(bytes) + "]]></attachment-bitmap>";
}

std::string richText(const std::string& words) {
  return "<attachment-richtextbuffer><![CDATA[" +
         test::toBase64("<richtext version=\"1.0.0.0\"><paragraphlayout><paragraph><text fontface=\"DejaVu Sans\">" +
                        words + "</text></paragraph></paragraphlayout></richtext>") +
         "]]></attachment-richtextbuffer>";
}

// What uses most of the toolkit.
const std::string drawing =
    "<circle><center x=\"80\" y=\"45\"/><size width=\"60\" height=\"60\"/><brush style=\"100\"><color red=\"200\" "
    "green=\"40\" blue=\"10\" alpha=\"180\"/></brush><pen style=\"100\" width=\"2\"><color red=\"255\" green=\"255\" "
    "blue=\"255\" alpha=\"255\"/></pen></circle>"
    "<label text=\"Menu\"><center x=\"80\" y=\"45\"/><size width=\"60\" height=\"20\"/><font name=\"DejaVu Sans\" "
    "pointsize=\"10\" style=\"90\" weight=\"92\" underlined=\"false\"/><color red=\"255\" green=\"255\" blue=\"0\" "
    "alpha=\"255\"/></label>"
    "<state-button label=\"Play\"><center x=\"30\" y=\"75\"/><size width=\"40\" height=\"16\"/></state-button>"
    "<mirror><center x=\"120\" y=\"70\"/><size width=\"40\" height=\"30\"/><graphic-document><rectangle><center "
    "x=\"120\" y=\"40\"/><size width=\"30\" height=\"30\"/><brush style=\"100\"><color red=\"9\" green=\"200\" "
    "blue=\"90\" alpha=\"255\"/></brush><pen style=\"106\" width=\"1\"><color/></pen></rectangle></graphic-document>"
    "</mirror>"
    "<image rotation=\"10\">" +
    place(20, 20, 24, 24) + picture() + "</image><image coloured=\"false\">" + place(50, 20, 24, 24) + picture() +
    "</image><shape shape=\"ellipse\" rotation=\"30\"><gradient ok=\"true\"><start red=\"255\" alpha=\"255\"/>"
    "<end blue=\"255\" alpha=\"255\"/></gradient>" +
    place(130, 20, 40, 20) + "</shape><text rotation=\"5\">" + place(80, 60, 60, 20) + richText("Main menu") +
    "</text><text-circle>" + place(40, 60, 40, 40) + richText("Round and round") +
    "</text-circle><table><rows><row height=\"8\"/></rows><cols><col width=\"30\"/></cols><cells><cell>" +
    richText("Cell") + "</cell></cells>" + place(130, 45, 30, 10) + "</table>";

Pixels draw(const Module& module) {
  Instance instance(module, page(drawing));
  instance.open();
  const Pixels input = test::filled(90, 60, 30, 255);
  instance.input(input);
  return instance.frame();
}

// ThreadSanitizer does not see that the loader makes threads wait for each other, so this lock shows it.
Module loadModule() {
  static std::mutex loading;
  const std::lock_guard guard(loading);
  return Module();
}

void drawOnFourThreads() {
  std::array<Pixels, 4> pictures;
  {
    std::array<std::jthread, 4> threads;
    for (std::size_t i = 0; i < threads.size(); ++i) {
      threads[i] = std::jthread([&picture = pictures[i]] {
        const Module module = loadModule();
        for (int round = 0; round < 5; ++round) picture = draw(module);
      });
    }
  }
  EXPECT_NE(pictures[0], test::filled(90, 60, 30, 255));
  for (const Pixels& picture : pictures) EXPECT_TRUE(picture == pictures[0]);
}

TEST(Loading, TheModuleExportsItsTwelveFunctionsAndNothingElse) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> names(
      popen("nm -D --defined-only --format=just-symbols '" MFILTER_MODULE "'", "r"), pclose);
  ASSERT_NE(names, nullptr);
  std::set<std::string> found;
  char line[4096];
  while (std::fgets(line, sizeof line, names.get())) found.insert(std::string(line, std::string_view(line).find('\n')));
  EXPECT_EQ(found, (std::set<std::string>{"mfilter_initInfoStore", "mfilter_releaseInfoStore", "mfilter_setParam",
                                          "mfilter_open", "mfilter_getInputCount", "mfilter_setInputImage",
                                          "mfilter_nextFrame", "mfilter_beginReadFrame", "mfilter_endReadFrame",
                                          "mfilter_newThread", "mfilter_close", "mfilter_getLastError"}));
}

TEST(Loading, NoDisplayIsNeeded) {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  const Module module;
  EXPECT_NE(draw(module), test::filled(90, 60, 30, 255));
}

TEST(Loading, TheModuleCanBeLoadedAgainAndAgain) {
  Pixels first;
  {
    const Module module;
    first = draw(module);
  }
  for (int round = 0; round < 3; ++round) {
    const Module module;
    EXPECT_TRUE(draw(module) == first);
  }
}

TEST(Loading, TheModuleCanBeLoadedTwiceAtOnce) {
  const Module one;
  Pixels first = draw(one);
  {
    const Module two;
    EXPECT_TRUE(draw(two) == first);
  }
  EXPECT_TRUE(draw(one) == first);
}

TEST(Loading, TheFirstUseMayBeOnFourThreadsAtOnce) {
  drawOnFourThreads();
}

TEST(Loading, LaterUsesMayBeOnFourThreadsAtOnce) {
  const Module module;
  draw(module);
  drawOnFourThreads();
}

TEST(Loading, AThreadMayBeTheFirstUserAndEndBeforeTheNext) {
  Pixels first;
  std::thread([&] {
    const Module module;
    first = draw(module);
  }).join();
  const Module module;
  EXPECT_TRUE(draw(module) == first);
}

TEST(Loading, AnInstanceMayMoveFromThreadToThread) {
  const Module module;
  const Pixels expected = draw(module);
  const Pixels input = test::filled(90, 60, 30, 255);
  std::unique_ptr<Instance> instance;
  std::thread([&] { instance = std::make_unique<Instance>(module, page(drawing)); }).join();
  std::thread([&] {
    module.newThread(instance->handle);
    instance->open();
  }).join();
  Pixels frame;
  std::thread([&] {
    module.newThread(instance->handle);
    instance->input(input);
    frame = instance->frame();
  }).join();
  EXPECT_TRUE(frame == expected);
  std::thread([&] { instance.reset(); }).join();
}

TEST(Loading, InstancesKnowNothingOfEachOther) {
  const Module module;
  Instance one(module, page(drawing));
  Instance two(module, page());
  one.open();
  two.open();
  const Pixels input = test::noise(5);
  one.input(test::filled(90, 60, 30, 255));
  two.input(input);
  const Pixels picture = one.frame();
  EXPECT_EQ(two.frame(), input);
  EXPECT_TRUE(one.frame() == picture);
  one.set("colour", "");
  EXPECT_EQ(two.lastError(), "");
}

}  // namespace
