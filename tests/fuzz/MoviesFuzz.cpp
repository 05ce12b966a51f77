// Reads a page whose elements may be action buttons and movie images, paints it as authors and viewers see it,
// describes its movies to the backend, clones its elements, writes it and reads what was written. From then on nothing
// changes any more.

#include "authed/data/GraphicActionButton.h"
#include "authed/data/GraphicElementFactory.h"
#include "authed/data/GraphicMovieImage.h"
#include "backend/infilexml/InfileText.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "graphics/elements/Elements.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "tests/fuzz/XmlRoundTrip.h"

#include <cairo.h>
#include <wx/image.h>
#include <wx/xml/xml.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace {

using namespace graphics;
using authed::data::CGraphicActionButton;
using authed::data::CGraphicMovieImage;

void require(bool holds) {
  if (!holds) __builtin_trap();
}

bool start() {
  wxInitAllImageHandlers();
  RegisterElements();
  RegisterFactory(orlo::makeObject<authed::data::CGraphicElementFactory>());
  RegisterFactory(orlo::makeObject<animation::CGraphicElementAnimationFactory>());
  return true;
}

orlo::P<CGraphicDocument> readPage(const wxXmlNode& root) {
  auto page = orlo::makeObject<CGraphicDocument>();
  page->ReadFromXml(root, *orlo::makeObject<fuzz::CLosslessStore>());
  return page;
}

/// With the numbers that stand for objects in the order in which they come, since elements and movies are numbered by
/// where they lie in memory.
std::string renumbered(const std::string& text) {
  const std::string property = " unique=\"";
  std::map<std::string, std::size_t> numbers;
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found = text.find(property); found != std::string::npos; found = text.find(property, begin)) {
    const std::size_t first = found + property.size();
    std::size_t end = first;
    while (std::isdigit(static_cast<unsigned char>(text[end]))) ++end;
    const std::size_t number = numbers.try_emplace(text.substr(first, end - first), numbers.size() + 1).first->second;
    result.append(text, begin, first - begin).append(std::to_string(number));
    begin = end;
  }
  return result.append(text, begin);
}

std::string writePage(CGraphicDocument& page) {
  wxXmlDocument document;
  document.SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, "page"));
  page.WriteToXml(*document.GetRoot(), *orlo::makeObject<fuzz::CLosslessStore>());
  return fuzz::textOf(document);
}

std::string writtenAgain(const std::string& text) {
  return writePage(*readPage(*fuzz::parseWritten(text)->GetRoot()));
}

/// A surface that failed shows nothing any more.
void requireSurface(wxBitmap& bitmap) {
  cairo_t* const native = bitmap.CairoCreate();
  require(cairo_surface_status(cairo_get_target(native)) == CAIRO_STATUS_SUCCESS);
  cairo_destroy(native);
}

void paint(CGraphicElement& element, std::int32_t viewMode, std::int32_t outputMode) {
  constexpr int kEdge = 40;
  wxBitmap bitmap = MakeAlphaBitmap(kEdge, kEdge);
  {
    CBitmapEffectDC dc(bitmap);
    CPaintContext context(&dc, 0);
    context.rect = context.clip = {0, 0, kEdge, kEdge};
    context.matrix = CMatrix::Scale(4, 4);
    context.viewMode = viewMode;
    context.outputMode = outputMode;
    try {
      element.Paint(context);
    } catch (const orlo::CException&) {
      // Beyond the limits of what lies within.
    }
  }
  requireSurface(bitmap);
}

/// Without a backend nothing is ever decoded.
void describe(CGraphicMovieImage& image) {
  try {
    const auto infile = image.GetMovie() ? image.GetMovie()->CreateInfile(25) : nullptr;
    if (infile) require(!ToText(*infile).empty());
    if (const auto movie = image.GetMovieAnimation(40, 0)) {
      require(!movie->Next() && !movie->GetCurrentFrame());
      static_cast<void>(movie->GetDelay());
    }
  } catch (const orlo::CException&) {
    // Beyond the limits of infiles.
  }
}

void use(CGraphicElement& element) {
  constexpr unsigned kHighlighted = 1U << 1;
  static_cast<void>(element.GetText());
  static_cast<void>(element.GetDisplayName());
  element.SetFlags(element.GetFlags() | kHighlighted);
  for (const std::int32_t viewMode : {0, 1, 2, 6}) paint(element, viewMode, 0);
  paint(element, 1, 1);
  orlo::P<CGraphicElement> inner(&element);
  while (auto* const button = orlo::tryCast<CGraphicActionButton>(inner)) {
    static_cast<void>(button->HasAnimation());
    button->StartAnimation();
    paint(*button, 0, 0);
    button->StopAnimation();
    button->SetFixedState("selected");
    inner = button->GetElement();
  }
  if (auto* const image = orlo::tryCast<CGraphicMovieImage>(inner)) describe(*image);
  paint(element, 0, 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CToolkitLock lock;
  static const bool started = start();
  static_cast<void>(started);
  const auto document = fuzz::parse(data, size);
  if (!document) return 0;
  try {
    const auto page = readPage(*document->GetRoot());
    const std::string text = writePage(*page);
    const auto copies = orlo::makeObject<CGraphicDocument>();
    for (std::size_t index = 0; index < page->GetCount(); ++index) {
      const auto element = page->GetElement(index);
      copies->Add(element->Clone());
      use(*element);
      paint(*copies->GetElement(index), 0, 0);
    }
    static_cast<void>(writePage(*copies));
    const std::string again = writtenAgain(text);
    require(renumbered(writtenAgain(again)) == renumbered(again));
  } catch (const orlo::CException&) {
    // Unknown words, and what lies beyond limits.
  }
  return 0;
}
