// Every operation on random texts, valid and not, whole and sliced, against what a walk over the characters gives.

#include "tests/foundation_strings/RandomTexts.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace samples;

namespace {

constexpr CStringPos kEnd = CStringPos::end();

int sign(int order) {
  return (order > 0) - (order < 0);
}

class RandomTexts : public testing::TestWithParam<CForm> {
protected:
  /// The check gets a text of the encoding, another text of any encoding that is likely to be found in it, and the
  /// source of both.
  template <class Check>
  void forMany(int longest, int longestOther, Check check) {
    CRandomTexts random(1);
    for (int round = 0; round < 1500 && !HasFailure(); ++round) {
      const CRandomText text = random.text(GetParam().encoding(), longest);
      const CRandomText other = random.partOf(text, longestOther);
      SCOPED_TRACE(testing::PrintToString(content(text.text)) + " and " + testing::PrintToString(content(other.text)));
      check(text, other, random);
    }
  }
  bool canWalkBackwards() const { return GetParam().encoding()->canWalkBackwards(); }

private:
  CLocale locale_;
};

TEST_P(RandomTexts, AreWalked) {
  forMany(70, 0, [&](const CRandomText& text, const CRandomText&, CRandomTexts& random) {
    ASSERT_EQ(text.text.length(), text.size());
    ASSERT_EQ(codePoints(text.text), text.model);
    for (int i = 0; i < 5; ++i) {
      const int index = random.below(text.size() + 2);
      const int target = random.below(text.size() + 4) - 2;
      const CStringPos from = text.at(static_cast<std::size_t>(index));
      const CStringPos to = text.at(static_cast<std::size_t>(target));
      EXPECT_EQ(text.text.positionAt(index), from);
      if (index > text.size()) continue;
      if (target >= index || canWalkBackwards()) {
        EXPECT_EQ(text.text.advance(from, target - index), to);
      }
      if (index == 0 || !canWalkBackwards()) continue;
      CStringPos pos = from;
      EXPECT_EQ(text.text.previous(pos), text.model[static_cast<std::size_t>(index - 1)]);
      EXPECT_EQ(pos, text.at(static_cast<std::size_t>(index - 1)));
    }
  });
}

TEST_P(RandomTexts, AreSliced) {
  forMany(70, 0, [&](const CRandomText& text, const CRandomText&, CRandomTexts& random) {
    const int from = random.below(text.size() + 2);
    const int count = random.below(text.size() + 2);
    const Model expected =
        from > text.size() ? U"" : text.model.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count));
    const CRandomText byIndex(text.text.substring(from, count));
    EXPECT_EQ(byIndex.model, expected);
    EXPECT_EQ(byIndex.text.length(), byIndex.size());
    const CRandomText byPosition(
        text.text.substring(text.at(static_cast<std::size_t>(from)), text.at(static_cast<std::size_t>(from + count))));
    EXPECT_EQ(byPosition.model, expected);
    EXPECT_EQ(byPosition.text.length(), byPosition.size());
    EXPECT_EQ(CRandomText(byIndex.text.toTerminated()).model, expected);
    EXPECT_TRUE(byIndex.text.toTerminated().isTerminated());
  });
}

TEST_P(RandomTexts, AreStripped) {
  forMany(40, 3, [&](const CRandomText& text, const CRandomText& set, CRandomTexts& random) {
    const bool left = random.below(2) == 0;
    const bool right = random.below(2) == 0;
    for (const bool ignoreCase : {false, true}) {
      const Model searched = ignoreCase ? lower(text.model) : text.model;
      const Model members = ignoreCase ? lower(set.model) : set.model;
      const std::size_t first = searched.find_first_not_of(members);
      const std::size_t from = !left ? 0 : first == Model::npos ? searched.size() : first;
      const std::size_t to = right ? searched.find_last_not_of(members) + 1 : searched.size();
      const Model expected = from < to ? text.model.substr(from, to - from) : U"";
      const String result = text.text.strip(set.text, left, right, ignoreCase);
      EXPECT_EQ(codePoints(result), expected);
      const IString& root = expected.empty() ? String().getText() : text.text.getText().getRoot();
      EXPECT_EQ(&result.getText().getRoot(), &root);
    }
  });
}

TEST_P(RandomTexts, AreCompared) {
  forMany(40, 40, [&](const CRandomText& text, const CRandomText& other, CRandomTexts& random) {
    const CRandomText same(forms()[static_cast<std::size_t>(random.below(5))].convert(textOf(text.model)));
    for (const CRandomText* candidate : {&other, &same, &text}) {
      const Model& a = text.model;
      const Model& b = candidate->model;
      const String& right = candidate->text;
      EXPECT_EQ(text.text.compare(right), sign(a.compare(b)));
      EXPECT_EQ(text.text.compareIgnoreCase(right), sign(lower(a).compare(lower(b))));
      EXPECT_EQ(text.text.equals(right), a == b);
      EXPECT_EQ(text.text.equalsIgnoreCase(right), lower(a) == lower(b));
      EXPECT_EQ(text.text.startsWith(right), a.starts_with(b));
      EXPECT_EQ(text.text.startsWithIgnoreCase(right), lower(a).starts_with(lower(b)));
      EXPECT_EQ(text.text.endsWith(right), a.ends_with(b));
      EXPECT_EQ(text.text.endsWithIgnoreCase(right), lower(a).ends_with(lower(b)));
      if (a == b) {
        EXPECT_EQ(text.text.getHash(), right.getHash());
      }
      const int most = random.below(20);
      EXPECT_EQ(text::compare(text.text, right, text::Case::sensitive, most),
                sign(a.substr(0, static_cast<std::size_t>(most)).compare(b.substr(0, static_cast<std::size_t>(most)))));
    }
    std::int64_t hash = 0;
    for (const char32_t c : text.model) hash = ((hash & 0x0FFFFFFF) << 3) ^ (((hash >> 2) ^ c) & 0x7FFFFFFF);
    EXPECT_EQ(text.text.getHash(), hash);
  });
}

TEST_P(RandomTexts, AreSearchedForTexts) {
  forMany(70, 5, [&](const CRandomText& text, const CRandomText& what, CRandomTexts& random) {
    const std::size_t from = static_cast<std::size_t>(random.below(text.size() + 1));
    const std::size_t to = from + static_cast<std::size_t>(random.below(text.size() + 1));
    const CStringPos start = text.at(from);
    const CStringPos end = text.at(to);
    for (const bool ignoreCase : {false, true}) {
      const Model whole = ignoreCase ? lower(text.model) : text.model;
      const Model part = whole.substr(from, to - from);
      const Model wanted = ignoreCase ? lower(what.model) : what.model;
      // The empty text stands at characters only, not at the end.
      const auto first = [&](const Model& in) { return wanted.empty() && in.empty() ? Model::npos : in.find(wanted); };
      const auto last = [&](const Model& in) { return wanted.empty() ? in.size() - 1 : in.rfind(wanted); };
      const auto inWhole = [&](std::size_t index) { return index == Model::npos ? kEnd : text.at(from + index); };
      const String& t = text.text;
      EXPECT_EQ(ignoreCase ? t.findIgnoreCase(what.text) : t.find(what.text), text.at(first(whole)));
      EXPECT_EQ(ignoreCase ? t.findIgnoreCase(what.text, start, end) : t.find(what.text, start, end),
                inWhole(first(part)));
      if (!canWalkBackwards()) continue;
      EXPECT_EQ(ignoreCase ? t.findLastIgnoreCase(what.text) : t.findLast(what.text), text.at(last(whole)));
      EXPECT_EQ(ignoreCase ? t.findLastIgnoreCase(what.text, start, end) : t.findLast(what.text, start, end),
                inWhole(last(part)));
    }
  });
}

TEST_P(RandomTexts, AreSearchedForMembersOfASet) {
  forMany(70, 4, [&](const CRandomText& text, const CRandomText& set, CRandomTexts&) {
    const String& t = text.text;
    const Model& model = text.model;
    EXPECT_EQ(t.findAnyOf(set.text), text.at(model.find_first_of(set.model)));
    EXPECT_EQ(t.findNoneOf(set.text), text.at(model.find_first_not_of(set.model)));
    EXPECT_EQ(t.findAnyOfIgnoreCase(set.text), text.at(lower(model).find_first_of(lower(set.model))));
    EXPECT_EQ(t.findNoneOfIgnoreCase(set.text), text.at(lower(model).find_first_not_of(lower(set.model))));
    if (!canWalkBackwards()) return;
    EXPECT_EQ(t.findLastAnyOf(set.text), text.at(model.find_last_of(set.model)));
    EXPECT_EQ(t.findLastNoneOf(set.text), text.at(model.find_last_not_of(set.model)));
    EXPECT_EQ(t.findLastAnyOfIgnoreCase(set.text), text.at(lower(model).find_last_of(lower(set.model))));
    EXPECT_EQ(t.findLastNoneOfIgnoreCase(set.text), text.at(lower(model).find_last_not_of(lower(set.model))));
  });
}

TEST_P(RandomTexts, AreChanged) {
  forMany(40, 3, [&](const CRandomText& text, const CRandomText& other, CRandomTexts& random) {
    const CRandomText to = random.text(3);
    for (const bool ignoreCase : {false, true}) {
      const Model searched = ignoreCase ? lower(text.model) : text.model;
      const Model wanted = ignoreCase ? lower(other.model) : other.model;
      Model expected;
      std::size_t rest = 0;
      for (std::size_t hit; !wanted.empty() && (hit = searched.find(wanted, rest)) != Model::npos;
           rest = hit + wanted.size())
        expected += text.model.substr(rest, hit - rest) + to.model;
      expected += text.model.substr(rest);
      const String result =
          ignoreCase ? text.text.replaceIgnoreCase(other.text, to.text) : text.text.replace(other.text, to.text);
      EXPECT_EQ(CRandomText(result).model, text.held(expected));
    }
    EXPECT_EQ(CRandomText(text.text + other.text).model, text.held(text.model + other.model));
    for (const CForm& form : forms()) {
      const CRandomText converted(form.convert(text.text));
      if (form.encoding() != text.text.getEncoding()) {
        EXPECT_EQ(converted.model, converted.held(text.model));
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(In, RandomTexts, testing::ValuesIn(forms()),
                         [](const auto& param) { return param.param.name; });

}  // namespace
