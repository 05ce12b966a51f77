#pragma once

#include "graphics/elements/TextPicture.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

#include <wx/gdicmn.h>

#include <memory>

class wxRichTextBuffer;

namespace graphics {

/// Rich text in the frame, laid out at the size that the frame has at the device's natural resolution: lines break at
/// the same words whatever the size of the page. A text that is higher than the frame is cut and underlined in red.
class CGraphicText : public CGraphicElement {
public:
  CGraphicText();
  ~CGraphicText() override;

  /// Null for a text without content.
  const wxRichTextBuffer* GetBuffer() const { return buffer_.get(); }
  /// Takes a copy in the default text style; null gives an empty text.
  void SetBuffer(const wxRichTextBuffer* source);
  /// True if the text did not fit when it was laid out last.
  bool Overflows() const { return overflow_; }

  void SetSize(CDoubleSize size) override;
  void Paint(CPaintContext& context) override;
  bool IsContentEmpty() const override { return !buffer_; }
  wxString GetText() const override;
  void ClearContent() override;
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kText; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

protected:
  wxRichTextBuffer* Buffer() { return buffer_.get(); }
  bool NeedsLayout() const;
  /// Frames in the authoring views, on the context's own device.
  void DrawFrame(CPaintContext& context) const;
  /// An invitation to edit, if there is nothing to show.
  void DrawHint(CPaintContext& context, const char* key) const;

private:
  void PaintText(CPaintContext& context, const CDoubleRect& box);
  void LayOut(CEffectDC& dc, const wxRect& rect, CDoubleSize deviceScale);
  void MarkDirty();

  wxRect layoutRect_;
  std::unique_ptr<wxRichTextBuffer> buffer_;
  bool overflow_ = false;
  CTextPicture picture_;
};

}  // namespace graphics
