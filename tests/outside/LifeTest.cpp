#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <exception>

namespace {

using test::black;
using test::filled;
using test::Instance;
using test::Module;
using test::noise;
using test::page;
using test::pixelAt;
using test::Pixels;
using test::rectangle;

const std::string red = "red=\"255\" green=\"0\" blue=\"0\" alpha=\"255\"";
const std::string halfBlack = "red=\"0\" green=\"0\" blue=\"0\" alpha=\"128\"";

class Life : public testing::Test {
protected:
  Module module;
};

TEST_F(Life, GoesFromInitToReleaseWithTheResultsThatHostsExpect) {
  void* handle = nullptr;
  EXPECT_EQ(module.initInfoStore(&handle), 0);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(module.setParam(handle, "width", "16"), 0);
  EXPECT_EQ(module.setParam(handle, "height", "9"), 0);
  EXPECT_EQ(module.getInputCount(handle), 1);
  EXPECT_EQ(module.open(handle), 0);
  EXPECT_EQ(module.newThread(handle), 1);
  EXPECT_EQ(module.nextFrame(handle), 0);
  const Pixels input = filled(1, 2, 3, 4, 16, 9);
  EXPECT_EQ(module.setInputImage(handle, 0, 0, 0, 0, 0, input.data(), 64), 1);
  void* pixels = nullptr;
  std::int32_t stride = 0;
  EXPECT_EQ(module.beginReadFrame(handle, 0, 0, &pixels, &stride), 0);
  EXPECT_NE(pixels, nullptr);
  EXPECT_EQ(module.endReadFrame(handle), 0);
  EXPECT_EQ(module.close(handle), 0);
  EXPECT_EQ(module.releaseInfoStore(handle), 0);
}

TEST_F(Life, ReleaseOfNothingDoesNothing) {
  EXPECT_EQ(module.releaseInfoStore(nullptr), 0);
}

TEST_F(Life, AnInstanceMayGoAtAnyPoint) {
  { const Instance untouched(module); }
  { const Instance configured(module, page(rectangle(0, 0, 10, 10, red))); }
  {
    Instance opened(module, page(rectangle(0, 0, 10, 10, red)));
    opened.open();
  }
  {
    Instance reading(module, page(rectangle(0, 0, 10, 10, red)));
    reading.open();
    EXPECT_NE(reading.begin().pixels, nullptr);
  }
  {
    Instance closed(module, page(rectangle(0, 0, 10, 10, red)));
    closed.open();
    module.close(closed.handle);
  }
}

TEST_F(Life, BeforeOpenThereIsNoFrame) {
  Instance instance(module, page());
  EXPECT_EQ(instance.begin().pixels, nullptr);
  EXPECT_EQ(module.endReadFrame(instance.handle), 0);
  EXPECT_EQ(module.nextFrame(instance.handle), 0);
  EXPECT_EQ(module.newThread(instance.handle), 1);
  EXPECT_EQ(module.close(instance.handle), 0);
}

TEST_F(Life, AFrameOfBeforeDoesNotSpoilTheFirstOneAfterOpen) {
  Instance instance(module, page(rectangle(0, 0, 10, 10, red)));
  instance.frame();
  instance.open();
  EXPECT_EQ(pixelAt(instance.frame(), 5, 5), (Pixels{0, 0, 255, 255}));
}

TEST_F(Life, WithoutASizeItOpensWithoutAFrame) {
  for (const std::string missing : {"width", "height"}) {
    Instance instance(module, page(rectangle(0, 0, 10, 10, red)));
    instance.set(missing, "0");
    EXPECT_EQ(module.open(instance.handle), 0);
    EXPECT_EQ(instance.begin().pixels, nullptr);
    EXPECT_EQ(module.endReadFrame(instance.handle), 0);
    EXPECT_EQ(module.nextFrame(instance.handle), 0);
    EXPECT_EQ(module.newThread(instance.handle), 1);
    EXPECT_EQ(module.close(instance.handle), 0);
  }
}

TEST_F(Life, WithoutAPageItShowsTheInput) {
  Instance instance(module);
  instance.set("width", "160");
  instance.set("height", "90");
  instance.open();
  const Pixels input = noise(1);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, AnAspectTooFarOffShowsTheInputWithoutAWord) {
  Instance instance(module, page(rectangle(0, 0, 160, 90, red)));
  instance.set("height", "120");
  instance.set("nothing", "");
  EXPECT_EQ(module.open(instance.handle), 0);
  EXPECT_EQ(instance.lastError(), "subtitlefilter unknown parameter nothing");
  const Pixels input = filled(9, 8, 7, 200, 160, 120);
  instance.input(input);
  EXPECT_EQ(instance.frame(160, 120), input);
}

TEST_F(Life, AnAspectTooFarOffShowsBlackWhereNoInputIsWanted) {
  Instance instance(module, page(rectangle(0, 0, 160, 90, red)));
  instance.set("height", "120");
  instance.set("noalpha", "1");
  instance.open();
  EXPECT_EQ(instance.frame(160, 120), filled(0, 0, 0, 255, 160, 120));
}

TEST_F(Life, AnAspectThatIsNearlyRightIsStretched) {
  Instance instance(module, "<p><content-box width=\"100\" height=\"100\"/>" + rectangle(50, 0, 50, 100, red) + "</p>");
  instance.set("width", "119");
  instance.set("height", "100");
  instance.set("noalpha", "1");
  instance.open();
  const Pixels frame = instance.frame(119, 100);
  EXPECT_EQ(Pixels(frame.begin() + 118 * 4, frame.begin() + 119 * 4), (Pixels{0, 0, 255, 255}));
  EXPECT_EQ(Pixels(frame.begin() + 50 * 4, frame.begin() + 51 * 4), (Pixels{0, 0, 0, 255}));
}

TEST_F(Life, ASecondOpenDoesNothing) {
  Instance instance(module, page());
  instance.open();
  instance.set("plugindata", test::toBase64(page(rectangle(0, 0, 160, 90, red))));
  instance.open();
  const Pixels input = noise(2);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, CloseFreesNothingAndOpensNothingAnew) {
  Instance instance(module, page(rectangle(0, 0, 10, 10, red)));
  instance.set("noalpha", "1");
  instance.open();
  const Pixels before = instance.frame();
  EXPECT_EQ(module.close(instance.handle), 0);
  EXPECT_EQ(instance.frame(), before);
  instance.set("plugindata", test::toBase64(page()));
  instance.open();
  instance.input(noise(3));
  EXPECT_EQ(instance.frame(), before);
}

TEST_F(Life, ReadingTwiceWithoutAnEndIsAllowed) {
  Instance instance(module, page(rectangle(0, 0, 10, 10, red)));
  instance.open();
  const auto first = instance.begin();
  const auto second = instance.begin();
  EXPECT_EQ(first.pixels, second.pixels);
  const Pixels input = noise(4);
  instance.input(input);
  const auto third = instance.begin();
  EXPECT_EQ(first.pixels, third.pixels);
  EXPECT_TRUE(std::equal(input.end() - 64, input.end(), third.pixels + 89 * third.stride + 160 * 4 - 64));
  instance.end();
  EXPECT_EQ(module.endReadFrame(instance.handle), 0);
}

TEST_F(Life, AnUnchangedFrameIsHandedOutAgainWithNothingDrawn) {
  Instance instance(module, page(rectangle(0, 0, 10, 10, red)));
  instance.open();
  instance.input(black());
  const auto first = instance.begin();
  ASSERT_NE(first.pixels, nullptr);
  first.pixels[0] = 77;
  instance.end();
  module.nextFrame(instance.handle);
  const auto second = instance.begin();
  EXPECT_EQ(second.pixels, first.pixels);
  EXPECT_EQ(second.stride, first.stride);
  EXPECT_EQ(second.pixels[0], 77);
  instance.end();

  instance.input(black());
  const auto third = instance.begin();
  EXPECT_EQ(third.pixels, first.pixels);
  EXPECT_EQ(third.pixels[0], 0);
  instance.end();
}

TEST_F(Life, AnEmptyPageShowsItsInputByteForByte) {
  Instance instance(module, page());
  instance.open();
  for (unsigned seed = 10; seed < 13; ++seed) {
    const Pixels input = noise(seed);
    instance.input(input);
    EXPECT_EQ(instance.frame(), input);
  }
}

TEST_F(Life, AnElementThatDrawsNothingLeavesTheInputAsItIs) {
  Instance instance(module, page("<point><center x=\"9\" y=\"9\"/></point><dummy/>"));
  instance.open();
  const Pixels input = noise(14);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, APageChangesItsInputOnlyWhereItDraws) {
  Instance instance(module, page(rectangle(20, 10, 30, 20, red)));
  instance.open();
  const Pixels input = filled(40, 80, 120, 255);
  instance.input(input);
  const Pixels frame = instance.frame();
  EXPECT_EQ(pixelAt(frame, 35, 20), (Pixels{0, 0, 255, 255}));
  EXPECT_EQ(pixelAt(frame, 10, 20), (Pixels{40, 80, 120, 255}));
  EXPECT_EQ(pixelAt(frame, 60, 20), (Pixels{40, 80, 120, 255}));
}

TEST_F(Life, RowsOfTheInputMayBeFartherApartOrGoUpwards) {
  Instance instance(module, page());
  instance.open();
  const Pixels input = noise(20);
  const std::ptrdiff_t row = Instance::width * 4;
  Pixels padded, upwards;
  for (int y = 0; y < Instance::height; ++y) {
    padded.insert(padded.end(), input.begin() + y * row, input.begin() + (y + 1) * row);
    padded.insert(padded.end(), 20, 0xEE);
    upwards.insert(upwards.begin(), input.begin() + y * row, input.begin() + (y + 1) * row);
  }
  module.setInputImage(instance.handle, 0, 0, 0, 0, 0, padded.data(), Instance::width * 4 + 20);
  EXPECT_EQ(instance.frame(), input);
  instance.input(noise(21));
  instance.frame();
  module.setInputImage(instance.handle, 0, 0, 0, 0, 0, upwards.data() + (Instance::height - 1) * row,
                       -Instance::width * 4);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, TheInputIsReadAgainAtEachRepaint) {
  Instance instance(module, page());
  instance.open();
  Pixels input = noise(30);
  instance.input(input);
  instance.frame();
  input = noise(31);
  EXPECT_NE(instance.frame(), input);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, NoInputKeepsThePresentFrameAsTheBackground) {
  Instance instance(module, page(rectangle(0, 0, 160, 90, halfBlack)));
  instance.open();
  instance.input(filled(200, 200, 200, 255));
  const int once = pixelAt(instance.frame(), 80, 45)[0];
  EXPECT_NEAR(once, 100, 2);
  instance.input({});
  EXPECT_NEAR(pixelAt(instance.frame(), 80, 45)[0], once / 2, 2);
  EXPECT_NEAR(pixelAt(instance.frame(), 80, 45)[0], once / 2, 2);
}

TEST_F(Life, NoalphaCoversAnInputThatComesAllTheSame) {
  Instance instance(module, page());
  instance.set("noalpha", "1");
  EXPECT_EQ(module.getInputCount(instance.handle), 0);
  instance.open();
  instance.input(noise(40));
  EXPECT_EQ(instance.frame(), black());
}

TEST_F(Life, NoalphaTakesEffectAfterOpenToo) {
  Instance instance(module, page());
  instance.open();
  const Pixels input = noise(41);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
  instance.set("noalpha", "1");
  EXPECT_EQ(module.getInputCount(instance.handle), 0);
  EXPECT_EQ(instance.frame(), input) << "nothing asked for a repaint yet";
  instance.input(input);
  EXPECT_EQ(instance.frame(), black());
  instance.set("noalpha", "0");
  EXPECT_EQ(module.getInputCount(instance.handle), 1);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Life, AnElementThatCannotBeMadeIsAnExceptionOutOfOpen) {
  Instance instance(module, page("<custom/>"));
  std::string text;
  try {
    instance.open();
  } catch (const std::exception& error) {
    text = error.what();
  }
  EXPECT_EQ(text, "CSheetItemFormat.NewInstance unknwown type");
  EXPECT_EQ(instance.lastError(), "");
  EXPECT_EQ(module.open(instance.handle), 0) << "it counts as opened";
  const Pixels input = noise(50);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
  EXPECT_EQ(module.close(instance.handle), 0);
}

}  // namespace
