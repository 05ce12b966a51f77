#include "foundation/posix/TimeManager.h"

#include "foundation/Singleton.h"
#include "foundation/StringObject.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <cwchar>

namespace orlo {

namespace posix {

namespace {

using std::chrono::days;
using std::chrono::milliseconds;
using CSystemTime = std::chrono::sys_time<milliseconds>;
using CSystemDays = std::chrono::sys_days;

CSystemTime timePoint(std::int64_t time) {
  using namespace std::chrono;
  constexpr CSystemTime first = CSystemDays(year::min() / January / 1);
  constexpr CSystemTime last = CSystemDays(year::max() / December / 31) + days(1) - milliseconds(1);
  return std::clamp(CSystemTime(milliseconds(time)), first, last);
}

std::time_t secondsOf(CSystemTime time) {
  return std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
}

std::tm toTm(const CDateFields& fields) {
  std::tm result{};
  result.tm_year = fields.year - 1900;
  result.tm_mon = fields.month - 1;
  result.tm_mday = fields.day;
  result.tm_wday = fields.dayOfWeek;
  result.tm_hour = fields.hour;
  result.tm_min = fields.minute;
  result.tm_sec = fields.second;
  result.tm_isdst = -1;
  return result;
}

int standardBiasMinutes() {
  tzset();
  return static_cast<int>(timezone / 60);
}

locale_t userLocale() {
  const locale_t user = newlocale(LC_ALL_MASK, "", nullptr);
  return user ? user : newlocale(LC_ALL_MASK, "C", nullptr);
}

}  // namespace

CTimeManager::CTimeManager() : biasMinutes_(standardBiasMinutes()), locale_(userLocale()) {}

CTimeManager::~CTimeManager() {
  freelocale(locale_);
}

std::int64_t CTimeManager::getTime() {
  return getMicroseconds() / 1000;
}

std::int64_t CTimeManager::getMicroseconds() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

std::int64_t CTimeManager::toLocal(std::int64_t time) {
  const CSystemTime utc = timePoint(time);
  const std::time_t seconds = secondsOf(utc);
  std::tm local{};
  localtime_r(&seconds, &local);
  return (utc + std::chrono::seconds(local.tm_gmtoff)).time_since_epoch().count();
}

CDateFields CTimeManager::toLocal(const CDateFields& fields) {
  return split(toLocal(join(fields)));
}

std::int64_t CTimeManager::toUTC(std::int64_t localTime) {
  const CSystemTime local = timePoint(localTime);
  std::tm fields = toTm(split(localTime));
  const std::time_t utc = std::mktime(&fields);
  const milliseconds rest = local - std::chrono::floor<std::chrono::seconds>(local);
  return (std::chrono::seconds(utc) + rest).count();
}

CDateFields CTimeManager::toUTC(const CDateFields& localFields) {
  return split(toUTC(join(localFields)));
}

CDateFields CTimeManager::split(std::int64_t time) {
  const CSystemTime point = timePoint(time);
  const CSystemDays day = std::chrono::floor<days>(point);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(point - day);
  CDateFields fields;
  fields.year = static_cast<int>(date.year());
  fields.month = static_cast<int>(static_cast<unsigned>(date.month()));
  fields.day = static_cast<int>(static_cast<unsigned>(date.day()));
  fields.dayOfWeek = static_cast<int>(std::chrono::weekday(day).c_encoding());
  fields.hour = static_cast<int>(clock.hours().count());
  fields.minute = static_cast<int>(clock.minutes().count());
  fields.second = static_cast<int>(clock.seconds().count());
  fields.millisecond = static_cast<int>(clock.subseconds().count());
  return fields;
}

std::int64_t CTimeManager::join(const CDateFields& fields) {
  using namespace std::chrono;
  const year_month_day date(year(fields.year), month(static_cast<unsigned>(fields.month)),
                            day(static_cast<unsigned>(fields.day)));
  const CSystemTime time = CSystemDays(date) + hours(fields.hour) + minutes(fields.minute) + seconds(fields.second) +
                           milliseconds(fields.millisecond);
  return time.time_since_epoch().count();
}

String CTimeManager::formatTime(std::int64_t time) {
  return format(L"%X", time);
}

String CTimeManager::formatDate(std::int64_t time) {
  return format(L"%x", time);
}

String CTimeManager::format(const wchar_t* pattern, std::int64_t time) {
  const std::tm fields = toTm(split(time));
  wchar_t text[128];
  const std::size_t length = wcsftime_l(text, std::size(text), pattern, &fields, locale_);
  return P<IString>(makeObject<CString>(text, static_cast<int>(length * sizeof(wchar_t)), CString::Storage::copy, false,
                                        getWCharEncoding()));
}

}  // namespace posix

P<ITimeManager>& getTimeManager() {
  static TSingleton<ITimeManager> singleton;
  return singleton.get([] { return makeObject<posix::CTimeManager>(); });
}

}  // namespace orlo
