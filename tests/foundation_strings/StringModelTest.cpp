// Every family of operations on every pair of encodings, against what it means for plain sequences of code points.

#include "tests/foundation_strings/RandomTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace samples;

namespace {

int sign(int order) {
  return (order > 0) - (order < 0);
}

CStringPos positionIn(const String& text, std::size_t index) {
  return index == Model::npos ? CStringPos::end() : text.positionAt(static_cast<int>(index));
}

Model replaced(const Model& text, const Model& from, const Model& to, bool ignoreCase) {
  const Model searched = ignoreCase ? lower(text) : text;
  const Model wanted = ignoreCase ? lower(from) : from;
  if (from.empty()) return text;
  Model result;
  std::size_t rest = 0;
  for (std::size_t hit; (hit = searched.find(wanted, rest)) != Model::npos; rest = hit + from.size())
    result += text.substr(rest, hit - rest) + to;
  return result + text.substr(rest);
}

class Families : public testing::TestWithParam<std::tuple<CForm, CForm>> {
protected:
  String left(const Model& model) const { return std::get<0>(GetParam()).convert(textOf(model)); }
  String right(const Model& model) const { return std::get<1>(GetParam()).convert(textOf(model)); }
  bool canWalkBackwards() const { return std::get<0>(GetParam()).encoding()->canWalkBackwards(); }

  /// A short text of few different characters, so that there is something to be found.
  Model randomText(std::size_t longest) {
    static const Model alphabet = U"aAbéÉ\xFF";
    Model result(random_() % (longest + 1), U'\0');
    for (char32_t& codePoint : result) codePoint = alphabet[random_() % alphabet.size()];
    return result;
  }

  /// Two random texts, many times.
  template <class Check>
  void forRandomTexts(std::size_t longest, std::size_t longestOther, Check check) {
    for (int i = 0; i < 150 && !HasFailure(); ++i) {
      const Model a = randomText(longest);
      const Model b = randomText(longestOther);
      SCOPED_TRACE(testing::PrintToString(a) + " and " + testing::PrintToString(b));
      check(a, b);
    }
  }

private:
  CLocale locale_;
  std::mt19937 random_{1};
};

TEST_P(Families, Compare) {
  forRandomTexts(5, 5, [&](const Model& a, const Model& b) {
    EXPECT_EQ(left(a).compare(right(b)), sign(a.compare(b)));
    EXPECT_EQ(left(a).compareIgnoreCase(right(b)), sign(lower(a).compare(lower(b))));
    EXPECT_EQ(left(a).equals(right(b)), a == b);
    EXPECT_EQ(left(a).equalsIgnoreCase(right(b)), lower(a) == lower(b));
    EXPECT_TRUE(left(a).equals(right(a)));
    EXPECT_EQ(left(a + b).compare(right(a)), b.empty() ? 0 : 1);
  });
}

TEST_P(Families, CompareLongTexts) {
  const Model same(40, U'é');
  EXPECT_EQ(left(same).compare(right(same)), 0);
  EXPECT_EQ(left(same + U"a").compare(right(same)), 1);
  EXPECT_EQ(left(same).compare(right(same + U"a")), -1);
  EXPECT_EQ(left(same + U"A").compareIgnoreCase(right(same + U"a")), 0);
  EXPECT_EQ(left(same + U"b").compare(right(same + U"a")), 1);
}

TEST_P(Families, StartsAndEndsWith) {
  forRandomTexts(5, 2, [&](const Model& a, const Model& b) {
    EXPECT_EQ(left(a).startsWith(right(b)), a.starts_with(b));
    EXPECT_EQ(left(a).startsWithIgnoreCase(right(b)), lower(a).starts_with(lower(b)));
    EXPECT_EQ(left(a).endsWith(right(b)), a.ends_with(b));
    EXPECT_EQ(left(a).endsWithIgnoreCase(right(b)), lower(a).ends_with(lower(b)));
  });
}

TEST_P(Families, Find) {
  forRandomTexts(40, 3, [&](const Model& a, const Model& b) {
    const String text = left(a);
    const std::size_t none = a.empty() ? Model::npos : 0;
    EXPECT_EQ(text.find(right(b)), positionIn(text, b.empty() ? none : a.find(b)));
    EXPECT_EQ(text.findIgnoreCase(right(b)), positionIn(text, b.empty() ? none : lower(a).find(lower(b))));
    if (!canWalkBackwards()) return;
    const std::size_t last = a.empty() ? Model::npos : a.size() - 1;
    EXPECT_EQ(text.findLast(right(b)), positionIn(text, b.empty() ? last : a.rfind(b)));
    EXPECT_EQ(text.findLastIgnoreCase(right(b)), positionIn(text, b.empty() ? last : lower(a).rfind(lower(b))));
  });
}

TEST_P(Families, FindCharactersOfASet) {
  forRandomTexts(20, 3, [&](const Model& a, const Model& set) {
    const String text = left(a);
    const String members = right(set);
    EXPECT_EQ(text.findAnyOf(members), positionIn(text, a.find_first_of(set)));
    EXPECT_EQ(text.findNoneOf(members), positionIn(text, a.find_first_not_of(set)));
    EXPECT_EQ(text.findAnyOfIgnoreCase(members), positionIn(text, lower(a).find_first_of(lower(set))));
    EXPECT_EQ(text.findNoneOfIgnoreCase(members), positionIn(text, lower(a).find_first_not_of(lower(set))));
    if (!canWalkBackwards()) return;
    EXPECT_EQ(text.findLastAnyOf(members), positionIn(text, a.find_last_of(set)));
    EXPECT_EQ(text.findLastNoneOf(members), positionIn(text, a.find_last_not_of(set)));
    EXPECT_EQ(text.findLastAnyOfIgnoreCase(members), positionIn(text, lower(a).find_last_of(lower(set))));
    EXPECT_EQ(text.findLastNoneOfIgnoreCase(members), positionIn(text, lower(a).find_last_not_of(lower(set))));
  });
}

TEST_P(Families, LookAtThePartBetweenTwoPositions) {
  forRandomTexts(30, 2, [&](const Model& a, const Model& b) {
    const String text = left(a);
    const std::size_t from = a.size() / 4;
    const std::size_t to = a.size() - a.size() / 3;
    const CStringPos start = positionIn(text, from);
    const CStringPos end = positionIn(text, to);
    const Model part = a.substr(from, to - from);
    const auto whole = [&](std::size_t index) { return positionIn(text, index == Model::npos ? index : index + from); };

    EXPECT_EQ(text.compare(right(b), start, end), sign(part.compare(b)));
    EXPECT_EQ(text.compareIgnoreCase(right(b), start, end), sign(lower(part).compare(lower(b))));
    EXPECT_EQ(text.equals(right(b), start, end), part == b);
    EXPECT_TRUE(text.equals(right(part), start, end));
    EXPECT_TRUE(text.equalsIgnoreCase(right(lower(part)), start, end));
    EXPECT_EQ(text.startsWith(right(b), start, end), part.starts_with(b));
    EXPECT_EQ(text.startsWithIgnoreCase(right(b), start, end), lower(part).starts_with(lower(b)));
    EXPECT_EQ(text.endsWith(right(b), start, end), part.ends_with(b));
    EXPECT_EQ(text.endsWithIgnoreCase(right(b), start, end), lower(part).ends_with(lower(b)));
    EXPECT_EQ(text.findAnyOf(right(b), start, end), whole(part.find_first_of(b)));
    EXPECT_EQ(text.findNoneOf(right(b), start, end), whole(part.find_first_not_of(b)));
    if (b.empty()) return;
    EXPECT_EQ(text.find(right(b), start, end), whole(part.find(b)));
    EXPECT_EQ(text.findIgnoreCase(right(b), start, end), whole(lower(part).find(lower(b))));
    if (!canWalkBackwards()) return;
    EXPECT_EQ(text.findLast(right(b), start, end), whole(part.rfind(b)));
    EXPECT_EQ(text.findLastIgnoreCase(right(b), start, end), whole(lower(part).rfind(lower(b))));
    EXPECT_EQ(text.findLastAnyOf(right(b), start, end), whole(part.find_last_of(b)));
    EXPECT_EQ(text.findLastNoneOf(right(b), start, end), whole(part.find_last_not_of(b)));
  });
}

TEST_P(Families, Replace) {
  forRandomTexts(40, 2, [&](const Model& a, const Model& b) {
    const Model to = U"[é]";
    const String result = left(a).replace(right(b), right(to));
    EXPECT_EQ(codePoints(result), replaced(a, b, to, false));
    EXPECT_EQ(result.getEncodingId(), left(a).getEncodingId());
    EXPECT_TRUE(result.isTerminated());
    EXPECT_EQ(codePoints(left(a).replaceIgnoreCase(right(b), right(to))), replaced(a, b, to, true));
    EXPECT_EQ(codePoints(left(a).replace(right(b), right(b + b))), replaced(a, b, b + b, false));
  });
}

TEST_P(Families, Append) {
  forRandomTexts(40, 40, [&](const Model& a, const Model& b) {
    const String sum = left(a) + right(b);
    EXPECT_EQ(codePoints(sum), a + b);
    EXPECT_EQ(sum.getEncodingId(), left(a).getEncodingId());
  });
}

INSTANTIATE_TEST_SUITE_P(Of, Families, testing::Combine(testing::ValuesIn(forms()), testing::ValuesIn(forms())),
                         [](const auto& param) {
                           return std::string(std::get<0>(param.param).name) + "And" + std::get<1>(param.param).name;
                         });

}  // namespace
