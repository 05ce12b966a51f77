#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <exception>

namespace {

using test::Instance;
using test::Module;
using test::page;
using test::Pixels;
using test::toBase64;

class Parameters : public testing::Test {
protected:
  bool widthIs160(const std::string& value) {
    Instance instance(module, page());
    instance.set("width", value);
    instance.open();
    const Instance::View view = instance.begin();
    instance.end();
    return view.pixels && view.stride == 160 * 4;
  }

  bool noalpha(const std::string& value) {
    Instance instance(module);
    instance.set("noalpha", value);
    return module.getInputCount(instance.handle) == 0;
  }

  Module module;
};

TEST_F(Parameters, AllKnownOnesAreTaken) {
  Instance instance(module);
  for (const std::string key :
       {"skinpath", "state", "noalpha", "width", "height", "duration", "frameratenum", "framerateden",
        "basedirs.filter.uri", "basedirs.animation.uri", "basedirs.theme.uri"}) {
    EXPECT_TRUE(instance.set(key, "30000")) << key;
    EXPECT_TRUE(instance.set(key, "")) << key;
  }
}

TEST_F(Parameters, UnknownOnesAreRefusedByName) {
  Instance instance(module);
  EXPECT_EQ(module.setParam(instance.handle, "colour", "red"), -1);
  EXPECT_EQ(instance.lastError(), "subtitlefilter unknown parameter colour");
  EXPECT_EQ(module.setParam(instance.handle, "", ""), -1);
  EXPECT_EQ(instance.lastError(), "subtitlefilter unknown parameter ");
}

TEST_F(Parameters, KeysCompareWithCase) {
  Instance instance(module);
  EXPECT_FALSE(instance.set("Width", "3"));
  EXPECT_EQ(instance.lastError(), "subtitlefilter unknown parameter Width");
  EXPECT_FALSE(instance.set("width ", "3"));
}

TEST_F(Parameters, SuccessLeavesTheLastMessageAndItsAddress) {
  Instance instance(module);
  const char* address = module.getLastError(instance.handle);
  instance.set("colour", "red");
  EXPECT_TRUE(instance.set("width", "3"));
  EXPECT_EQ(instance.lastError(), "subtitlefilter unknown parameter colour");
  EXPECT_EQ(module.getLastError(instance.handle), address);
}

TEST_F(Parameters, AMessageThatFillsTheBufferIsCutWithoutATerminator) {
  Instance instance(module);
  const std::string prefix = "subtitlefilter unknown parameter ";
  instance.set(std::string(600, 'k'), "");
  EXPECT_EQ(std::string(module.getLastError(instance.handle), MFILTER_ERROR_SIZE),
            prefix + std::string(MFILTER_ERROR_SIZE - prefix.size(), 'k'));
  instance.set(std::string(MFILTER_ERROR_SIZE - prefix.size() - 1, 'x'), "");
  EXPECT_EQ(instance.lastError().size(), MFILTER_ERROR_SIZE - 1u);
  instance.set(std::string(MFILTER_ERROR_SIZE - prefix.size(), 'y'), "");
  EXPECT_EQ(instance.lastError().size(), static_cast<std::size_t>(MFILTER_ERROR_SIZE));
  instance.set("z", "");
  EXPECT_EQ(instance.lastError(), prefix + "z");
}

TEST_F(Parameters, NumbersAreReadAsFarAsTheyGo) {
  EXPECT_TRUE(widthIs160("160"));
  EXPECT_TRUE(widthIs160(" \t160"));
  EXPECT_TRUE(widthIs160("+160"));
  EXPECT_TRUE(widthIs160("160.9"));
  EXPECT_TRUE(widthIs160("160px"));
  EXPECT_TRUE(widthIs160("0160"));
  EXPECT_FALSE(widthIs160("0xA0"));
  EXPECT_FALSE(widthIs160("wide"));
  EXPECT_FALSE(widthIs160(""));
  EXPECT_FALSE(widthIs160("-160"));
}

TEST_F(Parameters, NoalphaIsANumberOtherThanZero) {
  EXPECT_TRUE(noalpha("1"));
  EXPECT_TRUE(noalpha("2"));
  EXPECT_TRUE(noalpha("-1"));
  EXPECT_FALSE(noalpha("0"));
  EXPECT_FALSE(noalpha("true"));
  EXPECT_FALSE(noalpha(""));
}

TEST_F(Parameters, SizesThatNoMemoryHoldsGiveNoFrame) {
  for (const std::string size : {"2147483647", "99999999999999999999", "-2147483648"}) {
    Instance instance(module, page());
    instance.set("width", size);
    instance.set("height", size);
    try {
      instance.open();
    } catch (const std::exception& error) {
      EXPECT_STRNE(error.what(), "");
    }
    EXPECT_EQ(instance.begin().pixels, nullptr);
    instance.end();
  }
}

TEST_F(Parameters, ALaterValueReplacesAnEarlierOne) {
  Instance instance(module, page("<custom/>"));
  instance.set("width", "7");
  instance.set("width", "160");
  EXPECT_TRUE(instance.set("plugindata", toBase64(page())));
  EXPECT_NO_THROW(instance.open());
  EXPECT_EQ(instance.begin().stride, 160 * 4);
  instance.end();
}

TEST_F(Parameters, ASizeSetAfterOpenChangesNothing) {
  Instance instance(module, page());
  instance.open();
  instance.set("width", "16000");
  instance.set("height", "9000");
  const Pixels input = test::noise(1);
  instance.input(input);
  EXPECT_EQ(instance.frame(), input);
}

TEST_F(Parameters, APageThatIsNoXmlIsRefused) {
  Instance instance(module);
  for (const std::string text : {"", "no xml", "<page>", "<a/><b/>"}) {
    instance.set("colour", "");
    EXPECT_FALSE(instance.set("plugindata", toBase64(text))) << text;
    EXPECT_EQ(instance.lastError(), "could not parse xml for parameter plugindata") << text;
  }
  EXPECT_FALSE(instance.set("plugindata", "    \n"));
}

TEST_F(Parameters, ARefusedPageTakesTheFormerOneWithIt) {
  Instance instance(module, page("<custom/>"));
  EXPECT_FALSE(instance.set("plugindata", ""));
  EXPECT_NO_THROW(instance.open());
}

TEST_F(Parameters, WhiteSpaceBehindThePageIsNotPartOfIt) {
  Instance instance(module);
  EXPECT_TRUE(instance.set("plugindata", toBase64("<p/>") + " \r\n\t "));
}

}  // namespace
