#pragma once

#include "host/Findings.h"
#include "host/PageFile.h"
#include "host/Size.h"

namespace host {

// What the command finds out about a page by itself, to say what the module does not say and where.
struct PageDiagnosis {
  // The page rectangle: the content box, else what the elements cover. Page units.
  double width = 0;
  double height = 0;
  // Line of the first element that the module may refuse; 0 for none.
  long doubtfulLine = 0;
  // The first movie image that would play if it had a movie; line 0 for none.
  Finding movieless{};

  double aspect() const { return width / height; }
  // A size for frames in the shape of the page, even in both directions.
  Size suggestSize(int lines) const;
  // Whether the module shows the page in frames of that size.
  bool fits(Size size) const;
};

// Throws InputError for broken XML, an element of an unknown type and a page without size.
PageDiagnosis diagnose(const PageFile& page);

}  // namespace host
