#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

// "; did you mean 'width'?" for a word that is nearly one of the known ones, otherwise nothing.
std::string suggestion(std::string_view word, const std::vector<std::string_view>& known);

// The words with commas and an "or": "top, center or bottom".
std::string alternatives(const std::vector<std::string_view>& words);

// A text as it can stand in a message: cut off where it gets long.
std::string inQuotes(std::string_view text, char quote = '\'');

}  // namespace host
