#include "graphics/model/ElementFactory.h"

#include "foundation/wxutil/WXError.h"
#include "graphics/model/GraphicType.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <vector>

namespace graphics {

namespace {

constexpr char kUnknownType[] = "CSheetItemFormat.NewInstance unknwown type";

std::array<std::atomic<ElementMaker>, GraphicType::kCount>& Makers() {
  static std::array<std::atomic<ElementMaker>, GraphicType::kCount> makers{};
  return makers;
}

std::vector<orlo::P<IGraphicElementFactory>>& Factories() {
  static std::vector<orlo::P<IGraphicElementFactory>> factories;
  return factories;
}

bool IsPlainKind(std::int32_t type) {
  return type > GraphicType::kBase && type < GraphicType::kCount && type != GraphicType::kCustom &&
         type != GraphicType::kAnimation;
}

orlo::P<CGraphicElement> NewPlainElement(std::int32_t type) {
  if (!IsPlainKind(type)) throw wxutil::CWXError(kUnknownType);
  const ElementMaker maker = Makers()[static_cast<std::size_t>(type)].load(std::memory_order_acquire);
  if (!maker) throw wxutil::CWXError(wxString(kUnknownType) + ": " + GraphicTypeToXml(type));
  return maker();
}

}  // namespace

void RegisterElementKind(std::int32_t type, ElementMaker maker) {
  if (IsPlainKind(type)) Makers()[static_cast<std::size_t>(type)].store(maker, std::memory_order_release);
}

void RegisterFactory(const orlo::P<IGraphicElementFactory>& factory) {
  Factories().push_back(factory);
}

orlo::P<CGraphicElement> NewInstance(const wxString& name) {
  if (IsGraphicType(name)) return NewPlainElement(GraphicTypeFromXml(name));
  for (const orlo::P<IGraphicElementFactory>& factory : Factories())
    if (orlo::P<CGraphicElement> element = factory->CreateElement(name)) return element;
  throw wxutil::CWXError(wxString(kUnknownType) + ": " + name);
}

orlo::P<CGraphicElement> NewInstanceOfType(std::int32_t type) {
  return NewInstance(GraphicTypeToXml(type));
}

}  // namespace graphics
