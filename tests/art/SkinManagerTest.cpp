#include "graphics/art/SkinManager.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>
#include <wx/init.h>
#include <wx/richtext/richtextbuffer.h>

#include <cstdlib>
#include <thread>
#include <vector>

namespace graphics {

namespace {

void UseAll() {
  const CToolkitLock lock;
  CSkinManager& manager = CSkinManager::GetInstance();
  manager.GetStyledText("Double click to edit!", 1, 60);
  manager.GetArtBitmap("none.png", true);
  manager.CreateTextBuffer(nullptr);
}

TEST(SkinManager, IsOneForAllThreads) {
  std::vector<CSkinManager*> found(4);
  std::vector<std::thread> threads;
  for (CSkinManager*& manager : found) threads.emplace_back([&manager] { manager = &CSkinManager::GetInstance(); });
  for (std::thread& thread : threads) thread.join();
  for (CSkinManager* const manager : found) EXPECT_EQ(manager, &CSkinManager::GetInstance());
}

TEST(SkinManager, GivesFramesBlackForBothColours) {
  const CToolkitLock lock;
  EXPECT_EQ(CSkinManager::GetInstance().GetFrameColour(0), *wxBLACK);
  EXPECT_EQ(CSkinManager::GetInstance().GetFrameColour(1), *wxBLACK);
}

class SkinManagerDeathTest : public testing::Test {
protected:
  // Each in a process of its own, which starts the toolkit itself.
  SkinManagerDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(SkinManagerDeathTest, LetsTheProcessEnd) {
  EXPECT_EXIT(
      {
        UseAll();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(SkinManagerDeathTest, LetsTheProcessEndAfterTheToolkit) {
  EXPECT_EXIT(
      {
        UseAll();
        wxUninitialize();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(SkinManagerDeathTest, LetsTheProcessEndOnAnotherThread) {
  EXPECT_EXIT(
      {
        UseAll();
        std::thread([] { std::exit(0); }).join();
      },
      testing::ExitedWithCode(0), "^$");
}

}  // namespace

}  // namespace graphics
