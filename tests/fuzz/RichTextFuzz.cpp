// Reads rich text XML, lays it out and draws it in a small text element and on a circle, writes it and reads it again.

#include "graphics/art/SkinManager.h"
#include "graphics/elements/GraphicTextCircle.h"
#include "graphics/model/RichTextXml.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace {

using namespace graphics;

constexpr int kWidth = 96;
constexpr int kHeight = 54;

void Show(CGraphicText& text, const wxRichTextBuffer& buffer, CPaintContext& context) {
  text.SetBuffer(&buffer);
  text.SetSize({20, 10});
  text.SetCenter({12, 7});
  text.Paint(context);
  text.Paint(context);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  StartToolkit();
  const CToolkitLock lock;
  static const bool started = (wxInitAllImageHandlers(), true);
  static_cast<void>(started);
  const auto buffer = LoadRichText(std::span(data, size));
  if (!buffer) return 0;

  wxBitmap bitmap = MakeAlphaBitmap(kWidth, kHeight);
  CBitmapEffectDC dc(bitmap);
  CPaintContext context(&dc, 0);
  context.matrix = CMatrix::Scale(4, 4);
  Show(*orlo::makeObject<CGraphicText>(), *buffer, context);
  Show(*orlo::makeObject<CGraphicTextCircle>(), *buffer, context);

  wxMemoryOutputStream stream;
  if (!SaveRichText(*buffer, stream)) __builtin_trap();
  const auto* const bytes = static_cast<const std::uint8_t*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  LoadRichText(std::span(bytes, stream.GetSize()));
  return 0;
}
