#pragma once

#include "foundation/StringPos.h"
#include "foundation/TextView.h"

#include <optional>

/// What can be done with a text of any encoding. The methods of String and IString lead here and are described at
/// TTextOperations.
namespace orlo::text {

enum class Case { sensitive, ignored };

int length(const CTextView& text);
/// How many bytes each character has if that is the fewest of the encoding for all of them, else 0. Text whose length
/// is not known is not looked through.
int characterSize(const CTextView& text);
/// The text between two positions.
CTextView part(const CTextView& text, CStringPos start, CStringPos end);

CStringPos positionAt(const CTextView& text, int index);
CStringPos advance(const CTextView& text, CStringPos pos, int count);
std::optional<char32_t> next(const CTextView& text, CStringPos& pos);
std::optional<char32_t> previous(const CTextView& text, CStringPos& pos);

/// Looks at no more than maxCount characters of each unless it is -1. With prefixOnly a left text that ends first is
/// equal.
int compare(const CTextView& left, const CTextView& right, Case mode, int maxCount = -1, bool prefixOnly = false);
bool equals(const CTextView& left, const CTextView& right, Case mode);
bool startsWith(const CTextView& text, const CTextView& start, Case mode);
bool endsWith(const CTextView& text, const CTextView& end, Case mode);

CStringPos find(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end);
CStringPos findLast(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end);

/// The first or last character that is in the set, or that is not.
enum class Member { in, notIn };
CStringPos findOf(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                  CStringPos end);
CStringPos findLastOf(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                      CStringPos end);

std::int32_t hash(const CTextView& text);

String substring(const IString& text, CStringPos start, CStringPos end);
String substring(const IString& text, int index, int count);
/// Without the characters of the set at the ends that are named.
String strip(const IString& text, const CTextView& set, bool left, bool right, Case mode);

String replace(const CTextView& text, const CTextView& from, const CTextView& to, Case mode, CStringPos start,
               CStringPos end);
String toLower(const CTextView& text);
String toUpper(const CTextView& text);

}  // namespace orlo::text
