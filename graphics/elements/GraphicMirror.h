#pragma once

#include "graphics/model/GraphicDocument.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// Mirrors may show mirrors, so many deep.
constexpr int kMaxMirrorDepth = 8;

/// Shows what stands above it, upside down and fading towards the bottom, as a polished floor does. What stands there
/// is a document of its own.
class CGraphicMirror : public CGraphicElement {
public:
  const orlo::P<CGraphicDocument>& GetDocument() const { return document_; }
  void SetDocument(const orlo::P<CGraphicDocument>& document) { document_ = document; }

  /// Throws orlo::CError if mirrors nest too deep.
  void Paint(CPaintContext& context) override;
  bool IsContentEmpty() const override { return !document_; }
  void ClearContent() override { document_ = nullptr; }
  /// Shares the document.
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kMirror; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  void PaintReflection(CPaintContext& context, const CDoubleRect& frame) const;

  orlo::P<CGraphicDocument> document_;
};

}  // namespace graphics
