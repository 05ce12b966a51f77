// Pages with movies whose pictures show their numbers, played by the backend that lies beside the module.

#include "tests/ffmpeg/Movies.h"
#include "tests/outside/Instance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace {

using test::Instance;
using test::Module;
using test::Pixels;
using testing::ElementsAre;

std::string place(int x, int y) {
  return "<center x=\"" + std::to_string(x + 40) + "\" y=\"" + std::to_string(y + 24) +
         "\"/><size width=\"80\" height=\"48\"/>";
}

std::string file(const std::string& path, const std::string& chapters = {}) {
  const auto slash = path.rfind('/');
  return "<movie type=\"movie-file\"><filename path=\"" + path.substr(0, slash) + "\" name=\"" +
         path.substr(slash + 1) + "\"/>" + chapters + "</movie>";
}

// Half as large as the movie is.
std::string movieAt(int x, int y, const std::string& content, const std::string& properties = {}) {
  return "<animation type-name=\"movie-image\" " + properties + ">" + place(x, y) + content + "</animation>";
}

// The number of the picture that is seen there, -1 if it is none.
int numberAt(const Pixels& frame, int left, int top) {
  int number = 0;
  for (int bit = 0; bit < 8; ++bit) {
    const bool upper = test::pixelAt(frame, left + bit * 10 + 5, top + 12)[2] > 128;
    const bool lower = test::pixelAt(frame, left + bit * 10 + 5, top + 36)[2] > 128;
    if (upper == lower) return -1;
    if (upper) number += 1 << bit;
  }
  return number;
}

class PlayedMovies : public testing::Test {
protected:
  void SetUp() override { SKIP_WITHOUT(movie); }

  static void open(Instance& instance, int num = 25, int den = 1) {
    instance.set("noalpha", "1");
    instance.set("frameratenum", std::to_string(num));
    instance.set("framerateden", std::to_string(den));
    instance.open();
  }
  static std::vector<int> numbers(Instance& instance, int count, int left = 0, int top = 0) {
    std::vector<int> seen;
    for (int frame = 0; frame < count; ++frame) seen.push_back(numberAt(instance.frame(), left, top));
    return seen;
  }

  const std::string movie = Movie("outside.mkv", NumberedFrames("25", 30) + " -c:v ffv1 -pix_fmt bgr0");
  const Module module;
};

TEST_F(PlayedMovies, ShowAPictureForEachFrameOfTheHost) {
  Instance instance(module, test::page(movieAt(10, 20, file(movie))));
  open(instance);
  EXPECT_THAT(numbers(instance, 6, 10, 20), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(PlayedMovies, BeginAsSoonAsTheyAreOpen) {
  Instance instance(module, test::page(movieAt(0, 0, file(movie))));
  open(instance);
  const Instance::View view = instance.begin();
  const Pixels rows(view.pixels, view.pixels + static_cast<std::ptrdiff_t>(view.stride) * Instance::height);
  ASSERT_EQ(view.stride, Instance::width * 4);
  EXPECT_EQ(numberAt(rows, 0, 0), 0);
  instance.end();
}

TEST_F(PlayedMovies, FollowTheRateOfTheHost) {
  const struct { int num, den; } rates[] = {{50, 1}, {30, 1}, {24, 1}, {10, 1}, {30000, 1001}, {60000, 1001}};
  for (const auto& [num, den] : rates) {
    Instance instance(module, test::page(movieAt(0, 0, file(movie))));
    open(instance, num, den);
    std::vector<int> expected;
    for (int frame = 1; frame <= 10; ++frame) expected.push_back(frame * den * 25 / num);
    EXPECT_EQ(numbers(instance, 10), expected) << num << '/' << den;
  }
}

TEST_F(PlayedMovies, KeepTheirLastPicture) {
  Instance instance(module, test::page(movieAt(0, 0, file(movie)) + test::rectangle(100, 0, 20, 20, "red=\"255\"")));
  open(instance);
  const std::vector<int> seen = numbers(instance, 40);
  EXPECT_EQ(seen[27], 28);
  EXPECT_EQ(std::vector<int>(seen.begin() + 28, seen.end()), std::vector<int>(12, 29));
}

TEST_F(PlayedMovies, BeginAtTheirChapters) {
  const std::string chapters = "<chapters><chapter timestamp=\"0\"/><chapter timestamp=\"0.4\"/></chapters>";
  Instance instance(module, test::page(movieAt(0, 0, file(movie, chapters), "chapter=\"2\"") +
                                       movieAt(80, 0, file(movie, chapters), "chapter=\"9\"")));
  open(instance);
  for (int frame = 1; frame <= 5; ++frame) {
    const Pixels pixels = instance.frame();
    EXPECT_EQ(numberAt(pixels, 0, 0), 10 + frame);
    EXPECT_EQ(numberAt(pixels, 80, 0), frame);
  }
}

TEST_F(PlayedMovies, GoOnWhenTheHostMovesToAnotherThread) {
  Instance instance(module, test::page(movieAt(0, 0, file(movie))));
  const auto elsewhere = [&](const std::function<void()>& call) {
    std::thread([&] {
      EXPECT_EQ(module.newThread(instance.handle), 1);
      call();
    }).join();
  };
  elsewhere([&] { open(instance); });
  for (int frame = 1; frame <= 8; ++frame) elsewhere([&] { EXPECT_EQ(numberAt(instance.frame(), 0, 0), frame); });
}

TEST_F(PlayedMovies, OfSeveralInstancesOnSeveralThreadsDoNotDisturbEachOther) {
  const auto play = [&](int rate) {
    for (int round = 0; round < 3; ++round) {
      Instance instance(module, test::page(movieAt(0, 0, file(movie)) + movieAt(80, 42, file(movie))));
      open(instance, rate);
      for (int frame = 1; frame <= 10; ++frame) {
        const Pixels pixels = instance.frame();
        EXPECT_EQ(numberAt(pixels, 0, 0), frame * 25 / rate);
        EXPECT_EQ(numberAt(pixels, 80, 42), frame * 25 / rate);
      }
      if (round == 1) module.close(instance.handle);
    }
  };
  std::vector<std::jthread> threads;
  for (const int rate : {25, 50, 12, 10}) threads.emplace_back([&play, rate] { play(rate); });
}

TEST_F(PlayedMovies, AreShownWhereTheStateOfTheirButtonSays) {
  const auto state = [](const std::string& name, const std::string& margins) {
    return "<" + name + " name=\"" + name + "\"><layers><custom id=\"a\"><content-margins " + margins +
           "/></custom></layers></" + name + ">";
  };
  const std::string page = test::page(
      "<state-button type-name=\"authed-state-button-action\"><center x=\"80\" y=\"24\"/>"
      "<size width=\"160\" height=\"48\"/><skin type=\"buttonskin\" id=\"\"><states>" +
      state("normal", R"(left="0" top="0" right="944" bottom="0")") +
      state("selected", R"(left="944" top="0" right="0" bottom="0")") +
      "</states></skin><action type=\"play\"/><element>" + movieAt(0, 0, file(movie), "scale-mode=\"scale-fitting\"") +
      "</element></state-button>");
  for (const bool selected : {false, true}) {
    Instance instance(module, page);
    if (selected) instance.set("state", "selected");
    open(instance);
    const Pixels frame = instance.frame();
    EXPECT_EQ(test::pixelAt(frame, selected ? 20 : 140, 24), (Pixels{0, 0, 0, 255}));
    EXPECT_NE(test::pixelAt(frame, selected ? 140 : 20, 24), (Pixels{0, 0, 0, 255}));
  }
}

TEST_F(PlayedMovies, ThatAreBrokenShowTheirStillPictures) {
  const std::string broken = Written("outside-broken.mkv", BytesOf(movie).substr(0, 300));
  const std::string missing = movie + ".gone";
  for (const std::string& path : {broken, missing}) {
    Instance instance(
        module, test::page(test::rectangle(0, 0, 160, 90, "red=\"255\" alpha=\"255\"") + movieAt(0, 0, file(path))));
    open(instance);
    EXPECT_EQ(test::pixelAt(instance.frame(), 20, 20), (Pixels{0, 0, 255, 255})) << path;
  }
}

TEST_F(PlayedMovies, AreNotOpenedWhereNoneAreWanted) {
  Instance instance(module, test::page(movieAt(0, 0, file(movie))));
  ASSERT_TRUE(instance.set("nomovies", "1"));
  open(instance);
  EXPECT_EQ(numbers(instance, 2), (std::vector<int>{-1, -1}));
}

class PlayedMoviesDeathTest : public PlayedMovies {
protected:
  PlayedMoviesDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(PlayedMoviesDeathTest, LetTheProcessEndWhileTheyPlay) {
  EXPECT_EXIT(
      {
        static Instance* const forgotten = new Instance(module, test::page(movieAt(0, 0, file(movie))));
        open(*forgotten);
        forgotten->frame();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST_F(PlayedMoviesDeathTest, LetTheProcessEndWhileTheyAreClosed) {
  EXPECT_EXIT(
      {
        {
          Instance instance(module, test::page(movieAt(0, 0, file(movie)) + movieAt(80, 0, file(movie))));
          open(instance);
          instance.frame();
        }
        std::exit(0);
      },
      testing::ExitedWithCode(0), "^$");
}

}  // namespace
