#include "filter/PageLoad.h"

#include "authed/data/GraphicActionButton.h"
#include "filter/FilterBase64Resource.h"
#include "filter/InfoStore.h"
#include "filter/LayerBuild.h"
#include "foundation/Cast.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/Toolkit.h"

#include <cmath>

namespace authfilter {

namespace {

constexpr double kAspectTolerance = 0.2;

orlo::P<graphics::CGraphicDocument> readDocument(const CInfoStore& store) {
  auto document = orlo::makeObject<graphics::CGraphicDocument>();
  const wxXmlNode* const root = store.pluginData->GetRoot();
  if (!root) return document;
  if (store.resourceStore) {
    store.resourceStore->SetSkinPath(store.skinPath);
    document->ReadFromXml(*root, *store.resourceStore);
  } else {
    CFilterBase64Resource resources(store.skinPath);
    resources.SetUseFiles(true);
    document->ReadFromXml(*root, resources);
  }
  return document;
}

bool fits(const graphics::CDoubleRect& page, const wxBitmap& bitmap) {
  const double pageAspect = page.width / page.height;
  const double bitmapAspect = static_cast<double>(bitmap.GetWidth()) / bitmap.GetHeight();
  return std::abs(pageAspect - bitmapAspect) <= kAspectTolerance;
}

void setState(graphics::CGraphicDocument& page, const wxString& state) {
  for (std::size_t index = 0; index < page.GetCount(); ++index)
    if (auto* const button = orlo::tryCast<authed::data::CGraphicActionButton>(page.GetElement(index)))
      button->SetFixedState(state);
}

}  // namespace

void LoadPage(CInfoStore& store) {
  const graphics::CToolkitLock lock;
  const auto document = readDocument(store);
  const graphics::CDoubleRect page = document->GetPageRect();

  store.pageTransform = graphics::CTransform();
  store.pageTransform.Apply(
      graphics::CMatrix::Scale(store.pageBitmap->GetWidth() / page.width, store.pageBitmap->GetHeight() / page.height));
  if (!fits(page, *store.pageBitmap)) return;

  if (!store.state.empty()) setState(*document, store.state);
  BuildLayers(store, *document);
}

}  // namespace authfilter
