#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/model/ReusableResource.h"
#include "graphics/skin/State.h"

#include <wx/string.h>

#include <cstdint>
#include <vector>

class wxWindow;

namespace graphics::skin {

/// A named look of a rectangular thing in each of its states. Elements share one through the resource store.
class ISkin : public virtual orlo::IBase {
public:
  /// The type word that the store keeps it under.
  virtual wxString GetSkinTypeName() const = 0;
  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const = 0;
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) = 0;
};

/// What the kinds of skins have in common. Which states there are is decided by the kind: reading fills those that are
/// there and never adds one.
class CSkin : public orlo::CObject, public virtual ISkin, public virtual IReusableResource {
public:
  /// Draws an identity at random, at least 0 and below 9999999999.
  explicit CSkin(const wxString& id);

  /// In pixels, the largest of the states on each axis and 1 more. Either source may be null.
  virtual CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                       IAnimationSource* animations) const;
  /// As it is measured for the window, or for a bitmap if the window is null or not on a screen.
  virtual CDoubleSize GetPreferredSize(wxWindow* window, ITextSource* texts, IAnimationSource* animations) const;
  /// The largest of the states on each axis, with texts broken into lines of the width. Nothing is added here.
  virtual CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                               IAnimationSource* animations, std::int32_t width) const;
  virtual CDoubleSize GetPreferredSizeForWidth(wxWindow* window, ITextSource* texts, IAnimationSource* animations,
                                               std::int32_t width) const;

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  /// The one that was read, if one was.
  std::int64_t GetUniqueId() const override { return unique_; }

  /// The first of that name without regard to case, or null.
  orlo::P<CState> FindState(const wxString& name) const;
  void AddState(const orlo::P<CState>& state) { states_.push_back(state); }
  const std::vector<orlo::P<CState>>& GetStates() const { return states_; }
  const wxString& GetId() const { return id_; }

private:
  wxString id_;
  std::vector<orlo::P<CState>> states_;
  std::int64_t unique_;
};

/// A skin of the kind that a type word stands for, with an empty id: "buttonskin" or "shapeskin", in small letters.
/// Null for any other word.
orlo::P<CSkin> CreateSkin(const wxString& typeName);

/// A skin as a child node of its owner: its data where the store meets it first, a reference everywhere else.
void WriteSkin(wxXmlNode& node, const wxString& name, const CSkin& skin, IResourceOutputStore& store);
/// False, and the skin stays, if there is no such child. Null for a child that is no skin.
bool ReadSkin(const wxXmlNode& node, const wxString& name, orlo::P<CSkin>& skin, IResourceInputStore& store);

}  // namespace graphics::skin
