#pragma once

#include "authed/data/Action.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/skin/CustomLayerPainter.h"
#include "graphics/skin/GraphicSkinButton.h"
#include "graphics/vantra/Element.h"

namespace authed::data {

/// Action buttons may lie within action buttons, so many deep.
constexpr int kMaxActionButtonDepth = 4;
/// So often what lies within a button may be painted in one painting of the outermost button.
constexpr int kMaxPaintsWithinButton = 1000;

/// A skin button with an action. It may hold one more element, as a rule the thumbnail of a movie, which covers the
/// button's frame and is shown where the skin has custom layers.
class CGraphicActionButton : public graphics::skin::CGraphicSkinButton,
                             public virtual graphics::animation::IAnimationElement,
                             public virtual graphics::vantra::IElement,
                             public virtual graphics::skin::ICustomLayerPainter {
public:
  static constexpr const char* kTypeName = "authed-state-button-action";

  CGraphicActionButton() = default;
  /// Null is a button without a skin.
  explicit CGraphicActionButton(const orlo::P<graphics::skin::CSkin>& skin) : CGraphicSkinButton(skin) {}

  /// Never null.
  orlo::P<CAction> GetAction() const { return action_; }
  /// Null if there is none.
  orlo::P<graphics::CGraphicElement> GetElement() const { return element_; }
  /// Moves the element onto the button's frame. Throws orlo::CError if buttons come to nest too deep or hold
  /// themselves.
  void SetElement(const orlo::P<graphics::CGraphicElement>& element);

  // Of the element within; nothing, false or null if that is no such element.
  void StopAnimation() override;
  void StartAnimation() override;
  bool IsAnimationPlaying() const override;
  bool HasAnimation() const override;
  orlo::P<graphics::animation::IAnimation> GetAnimation() const override;
  /// Bit 2 of the button's own flags.
  bool IsElementActive() const override;

  /// With the state hover over it in the view modes 1 and 2 if flag 1 is set. Throws orlo::CError beyond the limits
  /// above.
  void Paint(graphics::CPaintContext& context) override;
  void PaintCustom(graphics::skin::CCustomLayer& layer, graphics::CPaintContext& context,
                   graphics::TEffectGraphicsContext& target, const graphics::CDoubleRect& rect,
                   graphics::skin::ITextSource* texts, graphics::skin::IAnimationSource* animations) override;
  /// Both move the element within, too, so that it always covers the button's frame.
  void SetCenter(graphics::CDoublePoint center) override;
  void SetSize(graphics::CDoubleSize size) override;

  using CGraphicSkinButton::GetText;
  /// For an author: the text of the element within, and what the action does.
  wxString GetText() const override;
  /// Shares the element within and copies the action.
  void Assign(const graphics::CGraphicBase& other) override;
  /// Has a clone of the element within.
  orlo::P<graphics::CGraphicElement> Clone() const override;
  wxString GetTypeName() const override { return kTypeName; }
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;

private:
  graphics::animation::IAnimationElement* FindAnimationElement() const;
  void PlaceElement();

  const orlo::P<CAction> action_ = orlo::makeObject<CAction>();
  orlo::P<graphics::CGraphicElement> element_;
};

}  // namespace authed::data
