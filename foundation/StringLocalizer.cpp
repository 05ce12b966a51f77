#include "foundation/StringLocalizer.h"

#include "foundation/Singleton.h"

namespace orlo {

bool CStringLocalizer::CByCodePoints::operator()(const String& a, const String& b) const {
  return a.compare(b) < 0;
}

CStringLocalizer::CStringLocalizer() : mutex_(getMutexFactory()->createMutex()) {}

void CStringLocalizer::clear() {
  CMutexLock lock(mutex_);
  texts_.clear();
}

void CStringLocalizer::setFallback(IStringLocalizer* next) {
  fallback_ = next;
}

void CStringLocalizer::setText(const String& key, const String& text) {
  CMutexLock lock(mutex_);
  texts_.insert_or_assign(key, text);
}

String CStringLocalizer::localize(const String& key, const String& defaultText) {
  CMutexLock lock(mutex_);
  const auto text = texts_.find(key);
  if (text != texts_.end() && !text->second.isNull()) return text->second;
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
