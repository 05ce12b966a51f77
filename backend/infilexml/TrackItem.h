#pragma once

#include "backend/infilexml/InfileXmlNode.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/String.h"

namespace vantra::infilexml {

/// What a track holds.
class CTrackItem : public orlo::CObject, public virtual IInfileXmlNode {
public:
  virtual orlo::String GetElementName() const = 0;
  virtual void SetId(const orlo::String& id) { id_ = id; }
  virtual orlo::String GetId() const { return id_; }

private:
  orlo::String id_;
};

/// An empty item of the kind that an element name stands for: "video", "audio", "filter", "theme", "videotracklist",
/// "loop" or "shader". Throws orlo::CError for any other name.
orlo::P<CTrackItem> CreateTrackItem(const orlo::String& elementName);

/// The item that an element stands for. Throws as CreateTrackItem does.
orlo::P<CTrackItem> ReadTrackItem(const TiXmlElement& element);
/// Appends the item's element to its parent.
void WriteTrackItem(TiXmlElement& parent, const CTrackItem& item);

}  // namespace vantra::infilexml
