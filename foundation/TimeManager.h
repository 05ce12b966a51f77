#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>

namespace orlo {

/// A time split into the fields of a calendar.
struct CDateFields {
  int year = 1970;
  int month = 1;      ///< 1 to 12
  int dayOfWeek = 4;  ///< 0 Sunday to 6 Saturday; not read when fields are put together
  int day = 1;        ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

/// The system's clock. Times are milliseconds since the start of 1970, in UTC unless a name says local. The clock is
/// the one that people set: it may jump.
class ITimeManager : public virtual IBase {
public:
  virtual std::int64_t getTime() = 0;
  /// The same clock in microseconds.
  virtual std::int64_t getMicroseconds() = 0;

  /// By the rules of the time zone that hold at that time.
  virtual std::int64_t toLocal(std::int64_t time) = 0;
  virtual CDateFields toLocal(const CDateFields& fields) = 0;
  virtual std::int64_t toUTC(std::int64_t localTime) = 0;
  virtual CDateFields toUTC(const CDateFields& localFields) = 0;

  /// Minutes to add to the standard local time to get UTC: -60 in Berlin.
  virtual int getTimeZoneBias() = 0;

  virtual CDateFields split(std::int64_t time) = 0;
  virtual std::int64_t join(const CDateFields& fields) = 0;

  /// Texts in the form of the user's locale, of the time as it is given: local text needs a local time.
  virtual String formatTime(std::int64_t time) = 0;
  virtual String formatDate(std::int64_t time) = 0;
};

P<ITimeManager>& getTimeManager();

}  // namespace orlo
