// A process that drew with the module ends as it wants to, whatever the module still keeps.

#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <thread>

namespace {

using test::Instance;
using test::Module;

/// An element that shows a hint, since it has no text yet.
std::string pageWithAHint() {
  return test::page(R"(<text><center x="80" y="45"/><size width="160" height="90"/></text>)");
}

void drawHint(const Module& module) {
  Instance instance(module, pageWithAHint());
  instance.open();
  const test::Pixels pixels = instance.frame();
  for (int x = 0; x < Instance::width; ++x)
    for (int y = 0; y < Instance::height; ++y)
      if (test::pixelAt(pixels, x, y) != test::pixelAt(pixels, 0, 0)) return;
  std::cerr << "no hint\n";
  std::exit(1);
}

class ProcessEndDeathTest : public testing::Test {
protected:
  // A new process each, which loads the module itself.
  ProcessEndDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ProcessEndDeathTest, IsCleanWhileTheModuleIsLoaded) {
  EXPECT_EXIT(
      {
        static const Module module;
        drawHint(module);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(ProcessEndDeathTest, IsCleanAfterTheModuleWasClosed) {
  EXPECT_EXIT(
      {
        {
          const Module module;
          drawHint(module);
        }
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(ProcessEndDeathTest, IsCleanWithAnInstanceThatNobodyReleased) {
  EXPECT_EXIT(
      {
        static const Module module;
        drawHint(module);
        static Instance* const forgotten = new Instance(module, pageWithAHint());
        forgotten->open();
        forgotten->frame();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(ProcessEndDeathTest, IsCleanOnAnotherThreadThanTheOneThatDrew) {
  EXPECT_EXIT(
      {
        static const Module module;
        std::thread([] { drawHint(module); }).join();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

}  // namespace
