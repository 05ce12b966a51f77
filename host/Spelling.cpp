#include "host/Spelling.h"

#include <algorithm>
#include <cctype>

namespace host {

namespace {

constexpr std::size_t longestWord = 40;

char lower(char character) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

// How many letters must be put in, taken out, changed or swapped with the next one to make one word of the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        rows[i][j] = i + j;
        continue;
      }
      const auto same = [&](std::size_t x, std::size_t y) { return lower(a[x - 1]) == lower(b[y - 1]); };
      rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + (same(i, j) ? 0 : 1)});
      if (i > 1 && j > 1 && same(i, j - 1) && same(i - 1, j)) rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
    }
  }
  return rows[a.size()][b.size()];
}

}  // namespace

std::string suggestion(std::string_view word, const std::vector<std::string_view>& known) {
  if (word.size() > longestWord) return {};
  std::string_view best;
  std::size_t least = std::clamp<std::size_t>(word.size() / 3, 1, 3);
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
