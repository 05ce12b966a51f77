// Reads the skins that stand below the root of an XML text, paints their states, writes them and reads what was
// written. From then on nothing changes any more.

#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/skin/CustomLayer.h"
#include "graphics/skin/CustomLayerPainter.h"
#include "graphics/skin/Skin.h"
#include "graphics/skin/StatePainter.h"
#include "graphics/skin/TextSource.h"
#include "tests/fuzz/XmlRoundTrip.h"

#include <cairo.h>
#include <wx/image.h>
#include <wx/xml/xml.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace graphics;
using CSkins = std::vector<orlo::P<skin::CSkin>>;

class CLabel : public orlo::CObject, public virtual skin::ITextSource {
public:
  wxString GetText(const wxString& key) override { return key + " Label, two words"; }
};

class CSquares : public orlo::CObject, public virtual skin::ICustomLayerPainter {
public:
  void PaintCustom(skin::CCustomLayer& /*layer*/, CPaintContext& /*context*/, TEffectGraphicsContext& target,
                   const CDoubleRect& rect, skin::ITextSource* /*texts*/,
                   skin::IAnimationSource* /*animations*/) override {
    target.context->SetBrush(*wxBLUE_BRUSH);
    target.context->DrawRectangle(rect.left, rect.top, 10, 10);
  }
};

/// In both output modes, with placeholders in the second one.
void paintStates(const CSkins& skins) {
  constexpr int kEdge = 40;
  wxBitmap bitmap = MakeAlphaBitmap(kEdge, kEdge);
  CBitmapEffectDC dc(bitmap);
  const auto painter = orlo::makeObject<skin::CStatePainter>();
  const auto label = orlo::makeObject<CLabel>();
  const auto squares = orlo::makeObject<CSquares>();
  for (const auto& skin : skins) {
    CSmoothEffectDC smooth(dc);
    const auto target = smooth.CreateEffectContext();
    skin->GetPreferredSize(*target, label.get(), nullptr);
    skin->GetPreferredSizeForWidth(*target, label.get(), nullptr, kEdge);
    for (const auto& state : skin->GetStates()) {
      CPaintContext context(&dc, 0);
      context.matrix = CMatrix::Scale(2, 2);
      painter->Paint(*state, context, *target, {1, 1, 18, 18}, label.get(), nullptr, squares.get());
      context.outputMode = 1;
      context.viewMode = 2;
      painter->Paint(*state, context, *target, {1, 1, 18, 18}, label.get(), nullptr, squares.get());
    }
  }
  // A surface that failed shows nothing any more.
  CSmoothEffectDC smooth(dc);
  smooth.CreateEffectContext()->DrawBitmap(MakeAlphaBitmap(1, 1), 0, 0, 1, 1);
  cairo_t* const native = bitmap.CairoCreate();
  if (cairo_surface_status(cairo_get_target(native)) != CAIRO_STATUS_SUCCESS) __builtin_trap();
  cairo_destroy(native);
}

CSkins readSkins(const wxXmlNode& root) {
  CSkins skins;
  const auto store = orlo::makeObject<fuzz::CLosslessStore>();
  for (const wxXmlNode* child = root.GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE || child->GetName() != "skin") continue;
    const wxString type = store->GetResourceType(*child);
    const auto resource = store->ReadResource(*child, type, skin::CreateSkin(type));
    if (orlo::P<skin::CSkin> found = orlo::cast<skin::CSkin>(resource.get())) skins.push_back(found);
  }
  return skins;
}

std::string writeSkins(const CSkins& skins) {
  wxXmlDocument document;
  document.SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, "page"));
  const auto store = orlo::makeObject<fuzz::CLosslessStore>();
  xml::CChildAppender children(*document.GetRoot());
  for (const auto& skin : skins) store->WriteResource(children.Append("skin"), skin->GetSkinTypeName(), skin.get());
  return fuzz::textOf(document);
}

CSkins readText(const std::string& text) {
  return readSkins(*fuzz::parseWritten(text)->GetRoot());
}

bool hasItsStates(const skin::CSkin& skin);

bool haveShapesTheirStates(const skin::CState& state) {
  const auto& layers = state.GetLayers();
  return std::all_of(layers.begin(), layers.end(), [](const auto& layer) {
    const auto* const custom = dynamic_cast<const skin::CCustomLayer*>(layer.get());
    return !custom || !custom->GetShape() || hasItsStates(*custom->GetShape());
  });
}

/// A state that a file renames isn't found again under the name that it is made with.
bool hasItsStates(const skin::CSkin& skin) {
  const auto fresh = skin::CreateSkin(skin.GetSkinTypeName());
  const auto& states = skin.GetStates();
  return std::equal(
      states.begin(), states.end(), fresh->GetStates().begin(), fresh->GetStates().end(),
      [](const auto& a, const auto& b) { return a->GetName() == b->GetName() && haveShapesTheirStates(*a); });
}

bool haveTheirStates(const CSkins& skins) {
  return std::all_of(skins.begin(), skins.end(), [](const auto& skin) { return hasItsStates(*skin); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CToolkitLock lock;
  static const bool started = (wxInitAllImageHandlers(), true);
  static_cast<void>(started);
  const auto document = fuzz::parse(data, size);
  if (!document) return 0;
  try {
    const CSkins skins = readSkins(*document->GetRoot());
    paintStates(skins);
    const std::string text = writeSkins(skins);
    const std::string again = writeSkins(readText(text));
    if (haveTheirStates(skins) && again != text) __builtin_trap();
    if (writeSkins(readText(again)) != again) __builtin_trap();
  } catch (const orlo::CException&) {
    // One number for skins of two kinds.
  }
  return 0;
}
