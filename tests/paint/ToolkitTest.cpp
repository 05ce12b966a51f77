#include "graphics/paint/Toolkit.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <thread>
#include <vector>

namespace graphics::test {

TEST(Toolkit, StartsAnyNumberOfTimesFromAnyThread) {
  StartToolkit();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back([] { StartToolkit(); });
  for (std::thread& thread : threads) thread.join();
  EXPECT_NE(wxAppConsole::GetInstance(), nullptr);
}

TEST(Toolkit, HasItsStockFontsWithoutADisplay) {
  const CToolkitLock lock;
  for (const auto item :
       {wxStockGDI::FONT_NORMAL, wxStockGDI::FONT_ITALIC, wxStockGDI::FONT_SMALL, wxStockGDI::FONT_SWISS}) {
    const wxFont* const font = wxStockGDI::instance().GetFont(item);
    ASSERT_NE(font, nullptr);
    EXPECT_TRUE(font->IsOk());
  }
}

TEST(Toolkit, FourThreadsDrawAtOnceBehindItsLock) {
  constexpr int kRounds = 25;
  std::vector<std::thread> threads;
  std::vector<int> ink(4);
  for (std::size_t number = 0; number < ink.size(); ++number) {
    threads.emplace_back([&ink, number] {
      for (int round = 0; round < kRounds; ++round) {
        CCanvas canvas;
        canvas.dc.SetPen(*wxBLACK_PEN);
        canvas.dc.SetBrush(*wxRED_BRUSH);
        canvas.dc.DrawCircle(20, 20, 10);
        canvas.dc.SetFont(*wxNORMAL_FONT);
        canvas.dc.DrawText("Thread", 5, 5);
        CSmoothEffectDC smooth(canvas.dc);
        smooth.DrawBitmap(canvas.bitmap, 20, 0);
        smooth.Flush();
        ink[number] = canvas.Ink().count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const int count : ink) {
    EXPECT_GT(count, 100);
    EXPECT_EQ(count, ink.front());
  }
}

}  // namespace graphics::test
