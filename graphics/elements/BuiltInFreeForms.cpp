#include "graphics/elements/BuiltInFreeForms.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/elements/GraphicPoint.h"

#include <initializer_list>

namespace graphics {

namespace {

orlo::P<CGraphicDocument> Outline(std::initializer_list<CDoublePoint> points) {
  auto document = orlo::makeObject<CGraphicDocument>();
  for (const CDoublePoint& place : points) {
    const auto point = orlo::makeObject<CGraphicPoint>();
    point->SetCenter(place);
    document->Add(point);
  }
  return document;
}

wxString Localized(const char* key, const char* text) {
  return wxutil::toWxString(orlo::localize(key, text));
}

}  // namespace

CFreeFormStar::CFreeFormStar()
    : CFreeFormStar(Outline({{0, 117},
                             {117, 117},
                             {154, 0},
                             {191, 117},
                             {309, 117},
                             {213, 192},
                             {250, 312},
                             {154, 239},
                             {59, 312},
                             {94, 192},
                             {0, 117}})) {}

wxString CFreeFormStar::GetDisplayName() const {
  return Localized("CFreeFormStar.Star", "Star");
}

CFreeFormTrapeze::CFreeFormTrapeze()
    : CFreeFormTrapeze(Outline({{-0.6, -1}, {0.6, -1}, {1, 1}, {-1, 1}, {-0.6, -1}})) {}

wxString CFreeFormTrapeze::GetDisplayName() const {
  return Localized("CFreeFormTrapeze.Trapeze", "Trapeze");
}

CFreeFormTriangle::CFreeFormTriangle() : CFreeFormTriangle(Outline({{0, -1}, {1, 1}, {-1, 1}, {0, -1}})) {}

wxString CFreeFormTriangle::GetDisplayName() const {
  return Localized("CFreeFormTriangle.Triangle", "Triangle");
}

CFreeFormParallelogram::CFreeFormParallelogram()
    : CFreeFormParallelogram(Outline({{0, 0}, {0.8, 0}, {1, 1}, {0.2, 1}, {0, 0}})) {}

wxString CFreeFormParallelogram::GetDisplayName() const {
  return Localized("CFreeFormParallelogram.Parallelogram", "Parallelogram");
}

}  // namespace graphics
