#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/String.h"
#include "foundation/URI.h"

#include <exception>
#include <typeinfo>

namespace orlo {

/// Root of all errors. They are thrown by value and don't change; copies share their texts.
class CException : public std::exception, public CObject {
public:
  explicit CException(const String& message);
  CException(const String& message, const String& title);

  /// The message in the default code page. Valid until the same thread asks another error.
  const char* what() const noexcept override;
  virtual String getTitle() const { return title_; }
  virtual String getMessage() const { return message_; }
  /// A copy on the heap, which may leave the catch block.
  virtual P<CException> clone() const;

protected:
  template <class T>
  static P<CException> copyOf(const T& error) {
    P<CException> result;
    T* copy = new T(error);
    copy->restartCount();
    result.attach(copy);
    return result;
  }

private:
  String title_;
  String message_;
};

/// Null texts take the defaults "Error" and "Unspecified error".
class CError : public CException {
public:
  CError();
  explicit CError(const String& message);
  CError(const String& message, const String& title);
  P<CException> clone() const override { return copyOf(*this); }
};

class CNoSuchObjectError : public CError {
public:
  CNoSuchObjectError();
  explicit CNoSuchObjectError(const String& message);
  P<CException> clone() const override { return copyOf(*this); }
};

class CParseError : public CError {
public:
  explicit CParseError(const String& message);
  P<CException> clone() const override { return copyOf(*this); }
};

/// An error of an object, or of a class if there is no object; both may be null. The error keeps the object.
/// "%OBJECTDESC%" in the message is filled in; a null message becomes that description alone.
class CObjectError : public CError {
public:
  CObjectError(IBase* object, const std::type_info* objectClass, const String& message);
  CObjectError(IBase* object, const std::type_info* objectClass, const String& message, const String& title);
  P<CException> clone() const override { return copyOf(*this); }

  const P<IBase>& getObject() const { return object_; }
  const std::type_info* getObjectClass() const { return objectClass_; }

private:
  P<IBase> object_;
  const std::type_info* objectClass_;
};

class CCastError : public CObjectError {
public:
  CCastError(IBase* object, const std::type_info& target);
  P<CException> clone() const override { return copyOf(*this); }
};

/// A null method or argument is "unspecified".
class CInvalidArgError : public CObjectError {
public:
  CInvalidArgError(IBase* object, const std::type_info* objectClass, const String& method, const String& argument);
  P<CException> clone() const override { return copyOf(*this); }

  const String& getMethod() const { return method_; }
  const String& getArgument() const { return argument_; }

private:
  String method_;
  String argument_;
};

class CInvalidObjectStateError : public CObjectError {
public:
  CInvalidObjectStateError(const String& message, IBase* object, const std::type_info* objectClass);
  P<CException> clone() const override { return copyOf(*this); }
};

class CEndOfEnumError : public CInvalidObjectStateError {
public:
  CEndOfEnumError(IBase* object, const std::type_info* objectClass);
  P<CException> clone() const override { return copyOf(*this); }
};

/// A null method is "unspecified".
class CMethodNotImplementedError : public CObjectError {
public:
  CMethodNotImplementedError(IBase* object, const std::type_info* objectClass, const String& method);
  P<CException> clone() const override { return copyOf(*this); }

  const String& getMethod() const { return method_; }

private:
  String method_;
};

/// "%URI%" in the message is filled in. Null texts take the defaults of CError, a null URI is "<uri unknown>".
class CURIError : public CError {
public:
  CURIError(const String& message, const String& title, PC<IURI> uri);
  P<CException> clone() const override { return copyOf(*this); }

  virtual PC<IURI> getURI() const { return uri_; }

private:
  PC<IURI> uri_;
};

class CFileError : public CURIError {
public:
  using CURIError::CURIError;
  P<CException> clone() const override { return copyOf(*this); }
};

class CFileNotFoundError : public CFileError {
public:
  CFileNotFoundError();
  explicit CFileNotFoundError(const PC<IURI>& uri);
  P<CException> clone() const override { return copyOf(*this); }
};

}  // namespace orlo
