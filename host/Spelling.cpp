#include "host/Spelling.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace host {

namespace {

constexpr std::size_t longestWord = 40;

char lower(char character) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

// How many letters must be put in, taken out or changed to make one word of the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = diagonal + (lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j - 1] + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string suggestion(std::string_view word, const std::vector<std::string_view>& known) {
  if (word.size() > longestWord) return {};
  std::string_view best;
  std::size_t least = word.size() < 4 ? 1 : std::min<std::size_t>(3, word.size() / 3 + 1);
  for (const std::string_view candidate : known) {
    const std::size_t changes = distance(word, candidate);
    if (changes > least || (changes == least && !best.empty())) continue;
    best = candidate;
    least = changes;
  }
  return best.empty() ? std::string() : "; did you mean '" + std::string(best) + "'?";
}

std::string alternatives(const std::vector<std::string_view>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 < words.size() ? ", " : " or ";
    text += words[i];
  }
  return text;
}

std::string inQuotes(std::string_view text, char quote) {
  std::string result(1, quote);
  std::size_t end = std::min(text.size(), longestWord);
  // Not in the middle of a character.
  while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  result.append(text.substr(0, end));
  if (end < text.size()) result.append("...");
  result.push_back(quote);
  return result;
}

}  // namespace host
