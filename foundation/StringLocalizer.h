#pragma once

#include "foundation/Mutex.h"
#include "foundation/Object.h"
#include "foundation/ValueList.h"

namespace orlo {

/// Texts of a language, by key.
class IStringLocalizer : public virtual IBase {
public:
  /// Forgets all texts.
  virtual void clear() = 0;
  /// Who is asked for a key that is not known here; null for nobody. To be set before other threads ask. The fallback
  /// is asked under this localizer's lock and must not call back.
  virtual void setFallback(IStringLocalizer* next) = 0;
  virtual void setText(const String& key, const String& text) = 0;
  /// The text of the key, or the default. An empty text is a text.
  virtual String localize(const String& key, const String& defaultText) = 0;
};

class CStringLocalizer : public CObject, public IStringLocalizer {
public:
  CStringLocalizer();

  void clear() override;
  void setFallback(IStringLocalizer* next) override;
  void setText(const String& key, const String& text) override;
  String localize(const String& key, const String& defaultText) override;

private:
  CValueList texts_{true};
  P<IStringLocalizer> fallback_;
  P<IMutex> mutex_;
};

P<IStringLocalizer>& getStringLocalizer();

/// The text that a user sees for a key such as "orlo.CFileNotFoundError.Desc"; the default is the English one.
String localize(const String& key, const String& defaultText);

}  // namespace orlo
