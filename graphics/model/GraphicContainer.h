#pragma once

#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicListener.h"
#include "graphics/model/XDatas.h"

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace graphics {

class CGraphicLayer;

/// An ordered list of elements: the first is at the bottom. It listens to the elements that were added to it, and
/// keeps the union of their bounding rectangles.
class CGraphicContainer : public IGraphicListener {
public:
  CGraphicContainer();
  CGraphicContainer(const CGraphicContainer&) = delete;
  CGraphicContainer& operator=(const CGraphicContainer&) = delete;
  ~CGraphicContainer() override;

  std::size_t GetCount() const { return elements_.size(); }
  /// Never null. Throws orlo::CError for an index out of range.
  orlo::P<CGraphicElement> GetElement(std::size_t index) const;
  /// A null element is not added.
  void Add(const orlo::P<CGraphicElement>& element);
  /// Adds every element of the layer, in order.
  void AddLayer(const CGraphicLayer& layer);

  CDoubleRect GetBoundingBox();
  /// The content box if one is set, the bounding box otherwise.
  CDoubleRect GetPageRect();
  void SetContentBox(const CDoubleRect& rect);
  bool HasContentBox() const { return hasContentBox_; }

  void Transform(const CMatrix& matrix);
  /// Shares the elements and the extension data of the other container, without listening to the elements.
  void Assign(const CGraphicContainer& other);

  const wxString& GetLabel() const { return label_; }
  void SetLabel(const wxString& label) { label_ = label; }
  const orlo::P<CXDatas>& GetXDatas() const { return xdatas_; }

  /// The name of the node is up to the caller.
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store);
  /// Replaces the elements. An unknown type name throws wxutil::CWXError and leaves what was read so far.
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);

  void OnGraphicChanged(CGraphicBase& element) override;
  virtual void BeginUpdate();
  virtual void EndUpdate();
  virtual void RecalcBounds();
  virtual void Clear();
  /// Paints the visible elements, bottom first.
  virtual void Paint(CPaintContext& context);

protected:
  bool AreBoundsValid() const { return boundsValid_; }
  std::int32_t GetUpdateCount() const { return updateCount_; }

private:
  void StopListening();
  void ReadElement(const wxXmlNode& child, IResourceInputStore& store);

  std::vector<orlo::P<CGraphicElement>> elements_;
  std::vector<orlo::P<CGraphicElement>> formerElements_;  // replaced by a read, but still listened to
  std::int32_t updateCount_ = 0;
  bool boundsValid_ = false;
  CDoubleRect bounds_;
  bool hasContentBox_ = false;
  CDoubleRect contentBox_;
  wxString label_;
  orlo::P<CXDatas> xdatas_;
};

}  // namespace graphics
