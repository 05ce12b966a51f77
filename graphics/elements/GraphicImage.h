#pragma once

#include "graphics/elements/ScaledCopy.h"
#include "graphics/geometry/Margins.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"
#include "graphics/model/ResourceBuffer.h"

#include <wx/bitmap.h>
#include <wx/filename.h>

#include <memory>

namespace graphics {

/// A picture, scaled to the frame, turned and mirrored as the element is. With margins it is stretched in nine parts,
/// so that a border keeps its width. Copies in the size that is painted are kept for each device.
class CGraphicImage : public CGraphicElement {
public:
  /// The picture at its natural size, null if there is none.
  const wxBitmap* GetBitmap() const { return bitmap_.get(); }
  void SetBitmap(const wxBitmap& bitmap);
  /// Where the picture came from.
  const wxFileName& GetFileName() const { return fileName_; }
  void SetFileName(const wxFileName& fileName) { fileName_ = fileName; }
  /// In pixels of the picture.
  const CMargins& GetScaleMargins() const { return scaleMargins_; }
  void SetScaleMargins(const CMargins& margins);
  /// Painted at natural size where a context scales by its outputScale, unless there are margins.
  bool IsNoScale() const { return noScale_; }
  void SetNoScale(bool noScale) { noScale_ = noScale; }

  void Paint(CPaintContext& context) override;
  void SetRotation(double degrees) override;
  void SetMirror(int axis, bool mirrored) override;
  /// A picture that is not coloured is grey in its scaled copies.
  void SetColoured(bool coloured) override;
  bool IsContentEmpty() const override { return !bitmap_; }
  /// Without a text of its own and with bit 5 of the flags set: name and place, or an invitation to load a picture.
  wxString GetText() const override;
  void ClearContent() override;
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kImage; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  bool HasMargins() const;
  void PaintPicture(CPaintContext& context, const CDoubleRect& box);
  /// As PaintPicture would with a scaled copy, for sizes that no copy is made of.
  void PaintWithoutCopy(CPaintContext& context, const CDoubleRect& box, const CDoubleRect& place);
  void PaintFrames(CPaintContext& context, const CDoubleRect& box) const;
  /// Turned about the centre of the frame.
  void DrawTransformed(const wxBitmap& picture, const CDoubleRect& frame, const CDoubleRect& place,
                       CPaintContext& context) const;
  /// Null if there is no memory for it.
  const wxBitmap* FindScaled(const CPaintContext& context, wxSize size);
  wxBitmap MakeScaled(wxSize size) const;
  wxBitmap MakeNinePart(wxSize size) const;
  void Changed();

  std::unique_ptr<wxBitmap> bitmap_;
  TResourceBuffer<CScaledCopy, bool> scaled_;
  wxFileName fileName_;
  CMargins scaleMargins_;
  bool noScale_ = false;
};

}  // namespace graphics
