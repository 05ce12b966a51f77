#pragma once

#include "foundation/Object.h"
#include "graphics/geometry/DoubleSize.h"

#include <wx/string.h>

#include <cstdint>

class wxXmlNode;

namespace graphics {
class IResourceInputStore;
class IResourceOutputStore;
class TEffectGraphicsContext;
}  // namespace graphics

namespace graphics::skin {

class IAnimationSource;
class ITextSource;

/// One of the looks of a skin, "normal" or "hover" for instance. No kind of layer is known yet: a state shows nothing
/// and needs no room, and reading passes over the layers that a file has.
class CState : public orlo::CObject {
public:
  explicit CState(const wxString& name) : name_(name) {}

  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const;
  /// A name that no XML element can have is passed over, since the state couldn't be written under it.
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);
  /// In pixels, the largest of its layers on each axis. Either source may be null.
  virtual CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                       IAnimationSource* animations) const;
  /// The same with texts broken into lines of the width.
  virtual CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                               IAnimationSource* animations, std::int32_t width) const;

  const wxString& GetName() const { return name_; }

private:
  wxString name_;
};

}  // namespace graphics::skin
