#include "graphics/skin/Skin.h"

#include "foundation/Cast.h"
#include "foundation/MersenneTwisterRandomNumberGenerator.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/LargestOf.h"
#include "graphics/skin/ShapeSkin.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <string>

namespace graphics::skin {

namespace {

std::int64_t DrawIdentity() {
  return static_cast<std::int64_t>(orlo::getRandomNumberGenerator()->getNext() * 2.3283064365386963e-10 * 9999999999.0);
}

template <class Measure>
CDoubleSize MeasureOnBitmap(Measure measure) {
  constexpr int kScratchEdge = 10;
  wxBitmap scratch = MakeAlphaBitmap(kScratchEdge, kScratchEdge);
  TEffectDC<wxGCDC, wxBitmap&> dc(scratch);
  return measure(*dc.CreateEffectContext());
}

/// A window that isn't on a screen has nothing to measure on; text has the same size on a bitmap.
template <class Measure>
CDoubleSize MeasureOn(wxWindow* window, Measure measure) {
  if (!window) return MeasureOnBitmap(measure);
  wxWindowDC target(window);
  TEffectDC<wxGCDC, wxWindowDC&> dc(target);
  return dc.GetGraphicsContext() ? measure(*dc.CreateEffectContext()) : MeasureOnBitmap(measure);
}

bool CanNameElement(const wxString& name) {
  std::string text = "<";
  text += name.utf8_string();
  text += "/>";
  const xml::CParsed parsed = xml::Parse({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, {1, 1});
  return parsed.document && parsed.document->GetRoot()->GetName() == name;
}

/// A file may have renamed the state to what no element can be called. Its name is kept inside the node.
wxString NodeNameOf(const CState& state) {
  return CanNameElement(state.GetName()) ? state.GetName() : wxString("state");
}

}  // namespace

CSkin::CSkin(const wxString& id) : id_(id), unique_(DrawIdentity()) {}

CDoubleSize CSkin::GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                    IAnimationSource* animations) const {
  const CDoubleSize largest =
      LargestOf(states_, [&](const CState& state) { return state.GetPreferredSize(context, texts, animations); });
  return {largest.width + 1.0, largest.height + 1.0};
}

CDoubleSize CSkin::GetPreferredSize(wxWindow* window, ITextSource* texts, IAnimationSource* animations) const {
  return MeasureOn(window,
                   [&](TEffectGraphicsContext& context) { return GetPreferredSize(context, texts, animations); });
}

CDoubleSize CSkin::GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                            IAnimationSource* animations, std::int32_t width) const {
  return LargestOf(
      states_, [&](const CState& state) { return state.GetPreferredSizeForWidth(context, texts, animations, width); });
}

CDoubleSize CSkin::GetPreferredSizeForWidth(wxWindow* window, ITextSource* texts, IAnimationSource* animations,
                                            std::int32_t width) const {
  return MeasureOn(window, [&](TEffectGraphicsContext& context) {
    return GetPreferredSizeForWidth(context, texts, animations, width);
  });
}

void CSkin::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  xml::WriteText(node, "id", id_);
  xml::WriteInt64(node, "unique", unique_);
  xml::CChildAppender states(xml::AppendChild(node, "states"));
  for (const auto& state : states_) state->WriteToXml(states.Append(NodeNameOf(*state)), store);
}

void CSkin::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  xml::ReadText(node, "id", id_);
  xml::ReadInt64(node, "unique", unique_);
  const wxXmlNode* const states = xml::FindChild(node, "states");
  if (!states) return;
  for (const auto& state : states_)
    if (const wxXmlNode* const child = xml::FindChild(*states, state->GetName())) state->ReadFromXml(*child, store);
}

orlo::P<CState> CSkin::FindState(const wxString& name) const {
  const auto found = std::find_if(states_.begin(), states_.end(),
                                  [&](const auto& state) { return xml::IsSameName(state->GetName(), name); });
  return found == states_.end() ? nullptr : *found;
}

orlo::P<CSkin> CreateSkin(const wxString& typeName) {
  if (typeName == CButtonSkin::kTypeName) return orlo::makeObject<CButtonSkin>("");
  if (typeName == CShapeSkin::kTypeName) return orlo::makeObject<CShapeSkin>("");
  return nullptr;
}

void WriteSkin(wxXmlNode& node, const wxString& name, const CSkin& skin, IResourceOutputStore& store) {
  store.WriteResource(xml::AppendChild(node, name), skin.GetSkinTypeName(), &skin);
}

bool ReadSkin(const wxXmlNode& node, const wxString& name, orlo::P<CSkin>& skin, IResourceInputStore& store) {
  const wxXmlNode* const child = xml::FindChild(node, name);
  if (!child) return false;
  const wxString type = store.GetResourceType(*child);
  skin = orlo::P<CSkin>(orlo::tryCast<CSkin>(store.ReadResource(*child, type, CreateSkin(type))));
  return true;
}

}  // namespace graphics::skin
