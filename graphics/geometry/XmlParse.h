#pragma once

#include <wx/xml/xml.h>

#include <memory>
#include <span>
#include <string>

namespace graphics::xml {

/// What a document may have. Trees are walked and freed by recursion, so that their depth must be bounded. Entities of
/// its own it may never have, nor attributes that it gives elements by default.
struct CParseLimits {
  int depth;
  int elements;
};

/// A document, or none and what is wrong, with its line.
struct CParsed {
  std::unique_ptr<wxXmlDocument> document;
  std::string problem;
  /// The text is refused for what it asks for, not for being no XML.
  bool beyondLimit = false;
};

/// The tree of elements, texts and CDATA sections. Text that is white space only is left out, as are line breaks with
/// their indentation before a text. Takes time in proportion to the size, which the toolkit's own reader does not: it
/// copies a text again for every piece that it gets.
CParsed Parse(std::span<const unsigned char> text, const CParseLimits& limits);

}  // namespace graphics::xml
