#include "graphics/skin/AnimationLayer.h"

#include "graphics/elements/ScaledCopy.h"
#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/ImagePainter.h"
#include "graphics/paint/MaskPictures.h"
#include "graphics/paint/PixelGrid.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/skin/AnimationSource.h"
#include "graphics/skin/Offscreen.h"

#include <wx/filename.h>

#include <cstddef>

namespace graphics::skin {

namespace {

constexpr const char* kAttachment = "attachment-bitmap";

/// A source that shows one bitmap after the other leaves a copy of each behind.
constexpr std::size_t kMostAlphaCopies = 32;

wxString AttachmentOf(const wxString& key) {
  return "prop-" + key;
}

std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, IResourceInputStore& store) {
  wxFileName noFile;
  return store.ReadBitmap(node, name, noFile);
}

std::unique_ptr<wxBitmap> CopyOf(const wxBitmap& bitmap) {
  return bitmap.IsOk() ? std::make_unique<wxBitmap>(bitmap) : nullptr;
}

CDoubleRect RectIn(const wxRect& rect) {
  return {static_cast<double>(rect.x), static_cast<double>(rect.y), static_cast<double>(rect.width),
          static_cast<double>(rect.height)};
}

/// True if a copy at the size that it is shown in would give the very same pixels.
bool MayKeep(const TEffectGraphicsContext& target, const wxSize& size, const wxBitmap& bitmap,
             const CMargins& margins) {
  if (target.alphaMask || !HasExtent(size) || !FitsOffscreen(size) || size == bitmap.GetSize()) return false;
  if (margins.left != 0 || margins.top != 0 || margins.right != 0 || margins.bottom != 0) return false;
  return LiesOnPixels(target);
}

}  // namespace

CAnimationLayer::CAnimationLayer() = default;
CAnimationLayer::~CAnimationLayer() = default;

void CAnimationLayer::SetAttachmentBitmap(const wxBitmap& bitmap) {
  attachmentBitmap_ = CopyOf(bitmap);
}

void CAnimationLayer::SetProp(const wxString& key, const wxBitmap& bitmap) {
  if (bitmap.IsOk())
    props_[key] = CopyOf(bitmap);
  else
    props_.erase(key);
}

const wxBitmap* CAnimationLayer::GetContentBitmap(IAnimationSource* source) const {
  if (attachmentBitmap_) return attachmentBitmap_.get();
  if (source)
    if (const wxBitmap* const bitmap = source->GetBitmap(uriProp)) return bitmap;
  if (uriProp.empty()) return nullptr;
  const auto found = props_.find(uriProp);
  return found == props_.end() ? nullptr : found->second.get();
}

void CAnimationLayer::Paint(CPaintContext& /*context*/, TEffectGraphicsContext& target, const CDoubleRect& rect,
                            ITextSource* /*texts*/, IAnimationSource* animations, ICustomLayerPainter* /*painter*/) {
  const wxBitmap* const content = GetContentBitmap(animations);
  if (!content || !content->IsOk()) return;
  const CDoubleRect box = CalcContentRect(rect);
  const wxBitmap& bitmap = MaskToAlpha(*content);
  const CDoubleSize size{static_cast<double>(bitmap.GetWidth()), static_cast<double>(bitmap.GetHeight())};
  if (!scalingEnabled) {
    const wxPoint place = AlignIn(box, size);
    target.DrawBitmap(bitmap, place.x, place.y, size.width, size.height);
    return;
  }
  if (!(box.width > 0 && box.height > 0)) return;
  CDoubleRect place = box;
  if (scalingProportional) {
    const CDoubleSize fitting = size.FitInto(box.GetSize());
    const wxPoint corner = AlignIn(box, fitting);
    place = {static_cast<double>(corner.x), static_cast<double>(corner.y), fitting.width, fitting.height};
  }
  if (const wxRect pixels = ToPixelRect(place); MayKeep(target, pixels.GetSize(), bitmap, scaleMargins))
    PaintStretched(target, pixels, bitmap);
  else
    CImagePainterContext(&target).PaintInRect(place, bitmap, scaleMargins, 1.0);
}

/// Stretching takes much longer than laying the result over what is there. It is kept from the second time on: many
/// skins are painted once.
void CAnimationLayer::PaintStretched(TEffectGraphicsContext& target, const wxRect& place, const wxBitmap& bitmap) {
  const bool isSame = stretchedTo_ == place.GetSize() && stretchedFrom_.IsSameAs(bitmap);
  if (!isSame) stretched_.reset();
  stretchedTo_ = place.GetSize();
  stretchedFrom_ = bitmap;
  if (!isSame) return CImagePainterContext(&target).PaintInRect(RectIn(place), bitmap, scaleMargins, 1.0);
  if (!stretched_ || !stretched_->IsOk()) {
    wxBitmap copy = MakeAlphaBitmap(place.width, place.height);
    {
      TEffectDC<wxGCDC, wxBitmap&> dc(copy);
      const auto context = dc.CreateEffectContext();
      CImagePainterContext(context.get()).PaintInRect(RectOf(place.GetSize()), bitmap, scaleMargins, 1.0);
      dc.Flush();
    }
    stretched_ = std::make_unique<CScaledCopy>(copy);
  }
  stretched_->Touch();
  target.DrawBitmap(*stretched_, place.x, place.y, place.width, place.height);
}

/// The key is an address, where a later bitmap may lie as well.
const wxBitmap& CAnimationLayer::MaskToAlpha(const wxBitmap& bitmap) {
  if (!bitmap.GetMask()) return bitmap;
  const auto known = alphaCache_.find(&bitmap);
  if (known != alphaCache_.end() && known->second.source.IsSameAs(bitmap)) return known->second.copy;
  if (alphaCache_.size() >= kMostAlphaCopies) alphaCache_.clear();
  CAlphaCopy& entry = alphaCache_[&bitmap];
  entry = {bitmap, MaskAsAlphaOf(bitmap)};
  return entry.copy;
}

CDoubleSize CAnimationLayer::GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                              IAnimationSource* animations) const {
  CDoubleSize size = CLayer::GetPreferredSize(context, texts, animations);
  if (scalingEnabled && !scalingProportional) {
    size.width += scaleMargins.left + scaleMargins.right;
    size.height += scaleMargins.top + scaleMargins.bottom;
  } else if (const wxBitmap* const bitmap = GetContentBitmap(animations); bitmap && bitmap->IsOk()) {
    size.width += bitmap->GetWidth();
    size.height += bitmap->GetHeight();
  }
  return size;
}

void CAnimationLayer::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CLayer::WriteToXml(node, store);
  xml::WriteBool(node, "scaling-enabled", scalingEnabled);
  xml::WriteBool(node, "scaling-proportional", scalingProportional);
  xml::WriteMargins(node, "scale-margins", scaleMargins);
  xml::WriteText(node, "uriprop", uriProp);
  if (attachmentBitmap_) store.WriteBitmap(node, kAttachment, *attachmentBitmap_, wxFileName());
  if (props_.empty()) return;
  xml::CChildAppender children(xml::AppendChild(node, "props"));
  for (const auto& [key, bitmap] : props_)
    store.WriteBitmap(children.Append(key), AttachmentOf(key), *bitmap, wxFileName());
}

void CAnimationLayer::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CLayer::ReadFromXml(node, store);
  xml::ReadBool(node, "scaling-enabled", scalingEnabled);
  xml::ReadBool(node, "scaling-proportional", scalingProportional);
  xml::ReadMargins(node, "scale-margins", scaleMargins);
  xml::ReadText(node, "uriprop", uriProp);
  attachmentBitmap_ = ReadBitmap(node, kAttachment, store);
  const wxXmlNode* const props = xml::FindChild(node, "props");
  if (!props) return;
  for (const wxXmlNode* child = props->GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE) continue;
    const wxString& key = child->GetName();
    if (auto bitmap = ReadBitmap(*child, AttachmentOf(key), store)) props_[key] = std::move(bitmap);
  }
}

}  // namespace graphics::skin
