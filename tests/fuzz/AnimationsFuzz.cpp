// Reads the animated images that stand below the root of an XML text, plays and paints them, writes them and reads what
// was written. From then on nothing changes any more.

#include "foundation/Error.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "tests/fuzz/XmlRoundTrip.h"

#include <wx/image.h>
#include <wx/xml/xml.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace graphics;
using animation::CGraphicAnimationImage;
using CImages = std::vector<orlo::P<CGraphicAnimationImage>>;

void require(bool holds) {
  if (!holds) __builtin_trap();
}

/// Each frame once more than there is, so that a loop begins again.
void play(CGraphicAnimationImage& image, CPaintContext& context) {
  image.Paint(context);
  const auto animation = image.GetAnimation();
  if (!animation) return;
  constexpr int kMostSteps = 20;
  image.StartAnimation();
  for (int step = 0; step < kMostSteps; ++step) {
    require(!animation->GetFirstFrame() || animation->GetFirstFrame()->IsOk());
    require(!animation->GetCurrentFrame() || animation->GetCurrentFrame()->IsOk());
    static_cast<void>(animation->GetDelay());
    image.Paint(context);
    if (!animation->Next()) animation->Rewind();
  }
  image.StopAnimation();
  image.Paint(context);
}

void paint(const CImages& images) {
  constexpr int kEdge = 40;
  wxBitmap bitmap = MakeAlphaBitmap(kEdge, kEdge);
  CBitmapEffectDC dc(bitmap);
  CPaintContext context(&dc, 0);
  context.rect = context.clip = {0, 0, kEdge, kEdge};
  for (const auto& image : images) play(*image, context);
}

CImages readImages(const wxXmlNode& root) {
  CImages images;
  const auto store = orlo::makeObject<fuzz::CLosslessStore>();
  for (const wxXmlNode* child = root.GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE || child->GetName() != "animation") continue;
    images.push_back(orlo::makeObject<CGraphicAnimationImage>());
    images.back()->ReadFromXml(*child, *store);
  }
  return images;
}

std::string writeImages(const CImages& images) {
  wxXmlDocument document;
  document.SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, "page"));
  const auto store = orlo::makeObject<fuzz::CLosslessStore>();
  xml::CChildAppender children(*document.GetRoot());
  for (const auto& image : images) image->WriteToXml(children.Append("animation"), *store);
  return fuzz::textOf(document);
}

CImages readText(const std::string& text) {
  return readImages(*fuzz::parseWritten(text)->GetRoot());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CToolkitLock lock;
  static const auto kinds = (wxInitAllImageHandlers(), orlo::makeObject<animation::CGraphicElementAnimationFactory>());
  static_cast<void>(kinds);
  const auto document = fuzz::parse(data, size);
  if (!document) return 0;
  try {
    const CImages images = readImages(*document->GetRoot());
    paint(images);
    const std::string text = writeImages(images);
    const std::string again = writeImages(readText(text));
    require(writeImages(readText(again)) == again);
  } catch (const orlo::CException&) {
    // Beyond the limits of an animation.
  }
  return 0;
}
