#include "graphics/elements/FreeForm.h"

#include "foundation/wxutil/WXError.h"
#include "graphics/model/GraphicType.h"

#include <set>

namespace graphics {

namespace {

/// A document may hold an element twice.
std::set<CGraphicElement*> ElementsOf(const CGraphicDocument& document) {
  std::set<CGraphicElement*> elements;
  for (std::size_t i = 0; i < document.GetCount(); ++i) elements.insert(document.GetElement(i).get());
  return elements;
}

}  // namespace

orlo::P<CGraphicDocument> CopyOutline(CGraphicDocument& document) {
  auto copy = orlo::makeObject<CGraphicDocument>();
  copy->Assign(document);
  copy->Clear();
  if (document.HasContentBox()) copy->SetContentBox(document.GetPageRect());
  for (std::size_t i = 0; i < document.GetCount(); ++i) copy->Add(document.GetElement(i)->Clone());
  return copy;
}

CFreeForm::CFreeForm(const wxString& name, const orlo::P<CGraphicDocument>& document)
    : name_(name), document_(document) {
  if (GetOutline().size() > kMaxFreeFormPoints)
    throw wxutil::CWXError(wxString::Format("A free form may have at most %zu points", kMaxFreeFormPoints));
  const CDoublePoint middle = document_->GetBoundingBox().GetCenter();
  for (CGraphicElement* const element : ElementsOf(*document_)) element->SetCenter(element->GetCenter() - middle);
}

std::vector<CDoublePoint> CFreeForm::GetOutline() const {
  std::vector<CDoublePoint> outline;
  for (std::size_t i = 0; i < document_->GetCount(); ++i) {
    const auto element = document_->GetElement(i);
    if (element->GetType() == GraphicType::kPoint) outline.push_back(element->GetCenter());
  }
  return outline;
}

orlo::P<CFreeForm> CFreeForm::Clone() const {
  return orlo::makeObject<CFreeForm>(name_, CopyDocument());
}

}  // namespace graphics
