#pragma once

#include "foundation/Pointer.h"
#include "graphics/model/GraphicBase.h"
#include "graphics/model/ReusableResource.h"

#include <wx/string.h>

#include <cstdint>
#include <map>
#include <vector>

namespace graphics {

/// An element of a page: what it needs to be stored and filled with content. A kind derives from it, extends
/// WriteToXml, ReadFromXml and Assign (each calls this class first), and paints.
class CGraphicElement : public CGraphicBase, public virtual IReusableResource {
public:
  using TagMap = std::map<wxString, bool>;
  using GroupMap = std::map<std::int32_t, bool>;

  const wxString& GetContentId() const { return contentId_; }
  void SetContentId(const wxString& id) { contentId_ = id; }
  std::int32_t GetContentIndex() const { return contentIndex_; }
  void SetContentIndex(std::int32_t index) { contentIndex_ = index; }
  const wxString& GetTextId() const { return textId_; }
  void SetTextId(const wxString& id) { textId_ = id; }
  bool IsModified() const { return modified_; }
  void SetModified(bool modified) { modified_ = modified; }

  bool HasTag(const wxString& tag) const;
  void SetTag(const wxString& tag, bool set) { tags_[tag] = set; }
  const TagMap& GetTags() const { return tags_; }
  bool InGroup(std::int32_t number) const;
  void SetGroup(std::int32_t number, bool member) { groups_[number] = member; }
  const GroupMap& GetGroups() const { return groups_; }

  /// The name, or the localised name of the kind if there is none.
  wxString GetDisplayName() const override;
  /// The text, or an invitation to edit it where the content is empty and bit 5 of the flags is set.
  wxString GetText() const override;

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  std::int64_t GetUniqueId() const override;

  /// True if the point, in page units, lies in the frame as it is rotated.
  virtual bool HitTest(double x, double y) const;
  /// True if the element as it would be painted lets the point through. The context supplies the transform.
  virtual bool IsTransparentAt(double x, double y, CPaintContext& context);
  virtual orlo::P<CGraphicElement> Clone() const = 0;
  /// Copies everything that elements have in common; nothing if the other one is no CGraphicElement.
  virtual void Assign(const CGraphicBase& other);
  /// One of the numbers of GraphicType.
  virtual std::int32_t GetType() const = 0;
  /// The name under which a registered factory makes the kind; empty for the plain kinds.
  virtual wxString GetTypeName() const { return {}; }
  virtual void SetColoured(bool coloured) { coloured_ = coloured; }
  virtual bool IsColoured() const { return coloured_; }
  virtual void SetText(const wxString& text) { text_ = text; }
  virtual void ClearContent() {}
  /// Tells of circles, rectangles and shapes whether they overlap; false for other kinds.
  virtual bool Intersects(const CGraphicElement& other) const;

protected:
  /// The text as it was set, without an invitation.
  const wxString& GetPlainText() const { return text_; }

private:
  void ReadTags(const wxXmlNode& node);
  void ReadGroups(const wxXmlNode& node);
  bool DrawHitMask(const CDoubleRect& rect, CPaintContext& context);

  TagMap tags_;
  GroupMap groups_;
  bool coloured_ = true;
  bool modified_ = false;
  wxString contentId_;
  std::int32_t contentIndex_ = 0;
  wxString textId_;
  wxString text_;
  std::vector<unsigned char> hitMask_;
  CDoubleRect hitMaskRect_;
};

}  // namespace graphics
