#pragma once

#include "foundation/Unicode.h"
#include "tests/foundation_strings/TextSamples.h"

#include <algorithm>
#include <random>

namespace samples {

using Model = std::u32string;

/// A text and what a walk over its bytes, character by character, finds in it.
struct CRandomText {
  String text;
  Model model;
  std::vector<CStringPos> positions;

  explicit CRandomText(const String& source) : text(source) {
    const CTextView view = text.view();
    char32_t codePoint;
    for (int pos = 0, behind; (behind = view.encoding->decode(codePoint, view.data, view.byteSize, pos)) >= 0;
         pos = behind) {
      positions.push_back({size(), view.encoding->findValid(view.data, view.byteSize, pos)});
      model += codePoint;
    }
  }

  int size() const { return static_cast<int>(model.size()); }
  /// The end position if there is no such index.
  CStringPos at(std::size_t index) const { return index < positions.size() ? positions[index] : CStringPos::end(); }
  /// What is read of these code points once they stand in the encoding of this text.
  Model held(const Model& codePoints) const {
    const ICharEncoding& encoding = *text.getEncoding();
    std::string content;
    for (const char32_t codePoint : codePoints) {
      unsigned char place[16];
      const int size = encoding.encode(codePoint, place, sizeof place, 0);
      if (size > 0) content.append(reinterpret_cast<const char*>(place), static_cast<std::size_t>(size));
    }
    return CRandomText(bytes(content, text.getEncoding())).model;
  }
};

inline Model lower(Model text) {
  for (char32_t& codePoint : text) codePoint = unicode::toLower(codePoint);
  return text;
}

/// Bytes that make whole, broken and overlong sequences likely.
inline std::string randomBytes(std::mt19937& random, std::size_t unit) {
  static const unsigned char likely[] = {0x00, 0x41, 0x80, 0xBF, 0xC0, 0xC1, 0xC3, 0xD8, 0xDC, 0xDF, 0xE0,
                                         0xE2, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xF8, 0xFF, 0x10, 0x11};
  std::string result(random() % 40, '\0');
  for (char& byte : result) byte = static_cast<char>(likely[random() % sizeof likely]);
  if (unit == 4) {
    for (std::size_t i = 2; i < result.size(); i += 4) result[i] = static_cast<char>(random() % 0x12);
    for (std::size_t i = 3; i < result.size(); i += 4) result[i] = random() % 8 ? '\0' : result[i];
  }
  return result;
}

/// Short texts of few different characters, so that they have much in common: of ASCII alone, of Latin-1, of all
/// planes, with bytes that are invalid in their encoding, and slices of such texts.
class CRandomTexts {
public:
  explicit CRandomTexts(unsigned seed) : random_(seed) {}

  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  Model model(int longest) {
    static const Model alphabets[] = {
        U"aAbB ",
        U"aAb\xE9\xC9\xD7\xF7\xFF\xDF\xB5",
        U"aAkK\u212A\u0130i\u0178\xFF\u03A3\u03C3\u03C2\uFF5E",
        {U'a', U'A', U'\u0800', U'\uABCD', U'\U0001F600', U'\U00050000', U'\U00010400', U'\U00010428', 0xDE00}};
    const Model& alphabet = alphabets[below(4)];
    Model result(static_cast<std::size_t>(below(longest + 1)), U'\0');
    for (char32_t& codePoint : result)
      codePoint = alphabet[static_cast<std::size_t>(below(static_cast<int>(alphabet.size())))];
    return result;
  }

  CRandomText text(const P<ICharEncoding>& encoding, int longest) {
    const CForm& form = *std::find_if(forms().begin(), forms().end(),
                                      [&](const CForm& candidate) { return candidate.encoding() == encoding; });
    std::string content = samples::content(form.convert(textOf(model(longest))));
    if (below(3) == 0) spoil(content);
    const CRandomText whole(bytes(content, encoding));
    if (below(2) == 0) return whole;
    const CRandomText slice(whole.text.substring(below(4), below(longest + 1)));
    return below(4) == 0 ? CRandomText(slice.text.substring(below(3), longest)) : slice;
  }

  CRandomText text(int longest) { return text(forms()[static_cast<std::size_t>(below(5))].encoding(), longest); }

  /// A part of a text in an encoding that need not be the same, or a text of its own.
  CRandomText partOf(const CRandomText& whole, int longest) {
    if (whole.model.empty() || below(3) == 0) return text(longest);
    Model part =
        whole.model.substr(static_cast<std::size_t>(below(whole.size())), static_cast<std::size_t>(below(longest + 1)));
    if (below(2) == 0) part = lower(part);
    return CRandomText(forms()[static_cast<std::size_t>(below(5))].convert(textOf(part)));
  }

private:
  void spoil(std::string& content) {
    static const char likely[] = {'\xFF', '\x80', '\xC3', '\xC1', '\xE2', '\xED', '\xA0',
                                  '\xF0', '\xF4', '\xD8', '\xDC', 'a',    '\0'};
    for (int count = 1 + below(4); count > 0; --count) {
      const auto place = static_cast<std::size_t>(below(static_cast<int>(content.size()) + 1));
      content.insert(place, static_cast<std::size_t>(1 + below(4)), likely[below(sizeof likely)]);
    }
  }

  std::mt19937 random_;
};

}  // namespace samples
