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

orlo::P<CGraphicDocument> CFreeForm::CopyDocument() const {
  auto copy = orlo::makeObject<CGraphicDocument>();
  for (std::size_t i = 0; i < document_->GetCount(); ++i) copy->Add(document_->GetElement(i)->Clone());
  return copy;
}

}  // namespace graphics
