#include "graphics/elements/GraphicImage.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/geometry/MeasuringUnit.h"
#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ResourceStore.h"

#include <utility>

namespace graphics {

void CGraphicImage::SetBitmap(const wxBitmap& bitmap) {
  bitmap_ = std::make_unique<wxBitmap>(bitmap);
  Changed();
}

void CGraphicImage::SetScaleMargins(const CMargins& margins) {
  scaleMargins_ = margins;
  Changed();
}

void CGraphicImage::SetRotation(double degrees) {
  CGraphicElement::SetRotation(degrees);
  Changed();
}

void CGraphicImage::SetMirror(int axis, bool mirrored) {
  CGraphicElement::SetMirror(axis, mirrored);
  Changed();
}

void CGraphicImage::SetColoured(bool coloured) {
  CGraphicElement::SetColoured(coloured);
  Changed();
}

void CGraphicImage::Changed() {
  scaled_.Clear();
  NotifyChanged();
}

wxString CGraphicImage::GetText() const {
  constexpr unsigned kHintsAllowed = 5;
  if (!GetPlainText().empty() || !HasFlag(kHintsAllowed)) return CGraphicElement::GetText();
  const auto localized = [](const char* key, const char* text) {
    return wxutil::toWxString(orlo::localize(key, text));
  };
  if (IsContentEmpty())
    return localized("graphics.CGraphicImage.DoubleClickToLoadImage", "Double click to load an image");

  wxString text =
      localized("graphics.CGraphicImage.ImageFormat", "%IMAGENAME% bounds: %CENTERX%,%CENTERY% (%WIDTH% x %HEIGHT%)");
  text.Replace("%CENTERX%", FormatLength(GetCenter().x, 2));
  text.Replace("%CENTERY%", FormatLength(GetCenter().y, 2));
  text.Replace("%WIDTH%", FormatLength(GetSize().width, 2));
  text.Replace("%HEIGHT%", FormatLength(GetSize().height, 2));
  // The last one: a name may look like a placeholder.
  text.Replace("%IMAGENAME%", GetDisplayName());
  return text;
}

void CGraphicImage::ClearContent() {
  bitmap_.reset();
  scaled_.Clear();
  fileName_.Clear();
}

void CGraphicImage::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const image = dynamic_cast<const CGraphicImage*>(&other);
  if (!image) return;
  if (image->bitmap_) SetBitmap(*image->bitmap_);
  fileName_ = image->fileName_;
  scaleMargins_ = image->scaleMargins_;
  noScale_ = image->noScale_;
}

orlo::P<CGraphicElement> CGraphicImage::Clone() const {
  return CloneOf(*this);
}

void CGraphicImage::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WriteMargins(node, "scale-margins", scaleMargins_);
  if (noScale_) xml::WriteBool(node, "noscale", true);
  if (fileName_.IsOk()) xml::WriteText(node, "filename", fileName_.GetFullPath());
  if (bitmap_) store.WriteBitmap(node, "attachment-bitmap", *bitmap_, fileName_);
}

void CGraphicImage::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  scaled_.Clear();
  xml::ReadMargins(node, "scale-margins", scaleMargins_);
  xml::ReadBool(node, "noscale", noScale_);
  if (wxString path; xml::ReadText(node, "filename", path) && !path.empty()) fileName_.Assign(path);
  if (auto bitmap = store.ReadBitmap(node, "attachment-bitmap", fileName_)) bitmap_ = std::move(bitmap);
}

}  // namespace graphics
