#pragma once

#include "foundation/Object.h"
#include "foundation/TimeManager.h"

#include <locale.h>

namespace orlo::posix {

/// Time zone and locale are the user's at construction. Times beyond the years -32767 to 32767 count as the first or
/// last moment of these.
class CTimeManager : public CObject, public ITimeManager {
public:
  CTimeManager();
  ~CTimeManager() override;
  CTimeManager(const CTimeManager&) = delete;
  CTimeManager& operator=(const CTimeManager&) = delete;

  std::int64_t getTime() override;
  std::int64_t getMicroseconds() override;
  std::int64_t toLocal(std::int64_t time) override;
  CDateFields toLocal(const CDateFields& fields) override;
  std::int64_t toUTC(std::int64_t localTime) override;
  CDateFields toUTC(const CDateFields& localFields) override;
  int getTimeZoneBias() override { return biasMinutes_; }
  CDateFields split(std::int64_t time) override;
  std::int64_t join(const CDateFields& fields) override;
  String formatTime(std::int64_t time) override;
  String formatDate(std::int64_t time) override;

private:
  String format(const wchar_t* pattern, std::int64_t time);

  int biasMinutes_;
  locale_t locale_;
};

}  // namespace orlo::posix
