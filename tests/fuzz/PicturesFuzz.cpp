// Loads a picture from a base64 store under each type that stores name, and paints it small. The first byte says how.

#include "graphics/elements/GraphicImage.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/model/Base64.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/log.h>

#include <array>
#include <cstdint>
#include <span>

namespace {

using namespace graphics;

constexpr std::array kTypes{wxBITMAP_TYPE_ANY, wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_BMP,
                            wxBITMAP_TYPE_ICO};

void paint(const wxBitmap& picture, unsigned how) {
  wxBitmap page = MakeAlphaBitmap(48, 32);
  CBitmapEffectDC dc(page);
  CPaintContext context(&dc, 0);
  context.matrix = CMatrix::Identity();
  CGraphicImage image;
  image.SetBitmap(picture);
  image.SetCenter({24, 16});
  image.SetSize({40, 24});
  if (how & 1U) image.SetColoured(false);
  if (how & 2U) image.SetRotation(30);
  if (how & 4U) image.SetScaleMargins({.top = 3, .left = 2, .right = 3, .bottom = 2});
  if (how & 8U) image.SetSize({40, 2400});
  image.Paint(context);
  dc.Flush();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CToolkitLock lock;
  static const bool once = (wxInitAllImageHandlers(), true);
  static_cast<void>(once);
  if (size < 1) return 0;
  const unsigned how = data[0];
  wxXmlNode node(wxXML_ELEMENT_NODE, "image");
  wxXmlNode& child = xml::AppendChild(node, "picture");
  child.AddChild(new wxXmlNode(wxXML_CDATA_SECTION_NODE, "base64", EncodeBase64(std::span(data, size).subspan(1))));
  const auto store = orlo::makeObject<CBase64Resources>();
  wxFileName file;
  const auto picture = store->ReadBitmapOfType(node, "picture", kTypes[(how >> 4) % kTypes.size()], file);
  if (picture) paint(*picture, how);
  return 0;
}
