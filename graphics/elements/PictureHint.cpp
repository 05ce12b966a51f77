#include "graphics/elements/PictureHint.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/art/ArtNames.h"
#include "graphics/art/CentredHint.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/FrameOutline.h"

#include <wx/brush.h>

namespace graphics {

void DrawPictureHint(CPaintContext& context, const CGraphicElement& element) {
  constexpr unsigned kNoFrame = 2;
  constexpr unsigned kFrameIfEmpty = 4;
  CSkinManager& art = CSkinManager::GetInstance();
  context.dc->SetBrush(*wxTRANSPARENT_BRUSH);
  const bool noFrame = element.HasFlag(kNoFrame);
  if (!noFrame || element.HasFlag(kFrameIfEmpty))
    DrawFrameOutline(context, element, art.GetFrameColour(noFrame ? 1 : 0));
  DrawCentredHint(*context.dc, wxutil::toWxString(orlo::localize("graphics.Image.ClickMe", "Click me!")),
                  OutlineOf(element, context).BoundingRect(), false, art.GetArtBitmap(ArtName::kClickImage, true));
}

}  // namespace graphics
