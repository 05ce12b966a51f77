#include "foundation/Cast.h"
#include "foundation/ClassName.h"
#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"

namespace orlo {

namespace {

// Messages are put together in UTF-16, so that no character of their parts is lost.
String objectText(IBase* object, const std::type_info* objectClass, const char* otherwise) {
  if (object) return u"object: " + object->getDescription();
  if (objectClass) return u"object class: " + className(*objectClass);
  return otherwise;
}

String fillObject(const String& message, IBase* object, const std::type_info* objectClass) {
  const String text = objectText(object, objectClass, "unknown object");
  return message.isNull() ? text : toWide(message).replace("%OBJECTDESC%", text);
}

String castMessage(IBase* object, const std::type_info& target) {
  const String source = object ? className(typeid(*object)) : String("null");
  return u"Error casting a '" + source + "' object to '" + className(target) + "'.";
}

String invalidArgMessage(IBase* object, const std::type_info* objectClass, const String& method,
                         const String& argument) {
  return u"An invalid argument was passed to method '" + (method.isNull() ? String("unspecified method") : method) +
         "' of '" + objectText(object, objectClass, "") +
         "': " + (argument.isNull() ? String("unspecified argument") : argument);
}

String notImplementedMessage(IBase* object, const std::type_info* objectClass, const String& method) {
  return u"Method not implemented (" + objectText(object, objectClass, "") +
         "): " + (method.isNull() ? String("unspecified method") : method) + ".";
}

}  // namespace

CObjectError::CObjectError(IBase* object, const std::type_info* objectClass, const String& message)
    : CObjectError(object, objectClass, message, "Object error") {}

CObjectError::CObjectError(IBase* object, const std::type_info* objectClass, const String& message, const String& title)
    : CError(fillObject(message, object, objectClass), title),
      object_(object),
      objectClass_(objectClass || !object ? objectClass : &typeid(*object)) {}

CCastError::CCastError(IBase* object, const std::type_info& target)
    : CObjectError(object, nullptr, castMessage(object, target), "Cast error") {}

CInvalidArgError::CInvalidArgError(IBase* object, const std::type_info* objectClass, const String& method,
                                   const String& argument)
    : CObjectError(object, objectClass, invalidArgMessage(object, objectClass, method, argument)),
      method_(method),
      argument_(argument) {}

CInvalidObjectStateError::CInvalidObjectStateError(const String& message, IBase* object,
                                                   const std::type_info* objectClass)
    : CObjectError(object, objectClass,
                   u"The object is in an invalid state (" + objectText(object, objectClass, "") + "): " + message) {}

CEndOfEnumError::CEndOfEnumError(IBase* object, const std::type_info* objectClass)
    : CInvalidObjectStateError(localize("orlo.CEndOfEnumError.desc", "end of enumeration already reached"), object,
                               objectClass) {}

CMethodNotImplementedError::CMethodNotImplementedError(IBase* object, const std::type_info* objectClass,
                                                       const String& method)
    : CObjectError(object, objectClass, notImplementedMessage(object, objectClass, method)), method_(method) {}

void throwCastError(IBase* object, const std::type_info& target) {
  throw CCastError(object, target);
}

}  // namespace orlo
