#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"
#include "graphics/model/GraphicElement.h"

#include <wx/string.h>

#include <cstdint>

namespace graphics {

/// Makes elements of kinds that the graphics layer does not know.
class IGraphicElementFactory : public virtual orlo::IBase {
public:
  /// Null if this factory does not make that name.
  virtual orlo::P<CGraphicElement> CreateElement(const wxString& typeName) = 0;
};

using ElementMaker = orlo::P<CGraphicElement> (*)();

/// Says how elements of one of the plain kinds are made. May be called again and from any thread; numbers that are no
/// kind, and the kinds that no plain class stands for, are ignored.
void RegisterElementKind(std::int32_t type, ElementMaker maker);

/// Appends to the factories that are asked for names that are no plain kind. Done once, at start-up, before any page
/// is read: nothing guards the list.
void RegisterFactory(const orlo::P<IGraphicElementFactory>& factory);

/// A new element of a node name or of a name that a registered factory knows. Throws wxutil::CWXError if nothing
/// makes it.
orlo::P<CGraphicElement> NewInstance(const wxString& name);
orlo::P<CGraphicElement> NewInstanceOfType(std::int32_t type);

}  // namespace graphics
