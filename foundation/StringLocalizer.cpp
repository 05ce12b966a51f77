#include "foundation/StringLocalizer.h"

#include "foundation/Singleton.h"

namespace orlo {

CStringLocalizer::CStringLocalizer() : mutex_(getMutexFactory()->createMutex()) {}

void CStringLocalizer::clear() {
  CMutexLock lock(mutex_);
  texts_.removeAll();
}

void CStringLocalizer::setFallback(IStringLocalizer* next) {
  fallback_ = next;
}

void CStringLocalizer::setText(const String& key, const String& text) {
  CMutexLock lock(mutex_);
  texts_.setString(key, text);
}

String CStringLocalizer::localize(const String& key, const String& defaultText) {
  CMutexLock lock(mutex_);
  const String text = texts_.getString(key, nullptr);
  if (!text.isNull()) return text;
  return fallback_ ? fallback_->localize(key, defaultText) : defaultText;
}

P<IStringLocalizer>& getStringLocalizer() {
  static TSingleton<IStringLocalizer> singleton;
  return singleton.get([] { return makeObject<CStringLocalizer>(); });
}

String localize(const String& key, const String& defaultText) {
  return getStringLocalizer()->localize(key, defaultText);
}

}  // namespace orlo
