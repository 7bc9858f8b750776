// Dates as the run time keeps them: a serial of days since 30 Dec 1899, time as the fraction.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>

namespace ostravel {

double dateSerial(const QDate& date);
double dateTimeSerial(const QDateTime& dateTime);
QDate serialToDate(double serial);
QDateTime serialToDateTime(double serial);

// Serials before 30 Dec 1899 keep the time as a positive fraction behind a negative day:
// -1.5 is 29 Dec 1899 12:00. Times are read to the nearest second.

// The run-time date test (IsDate) and parser (CDate) for the texts the program meets:
// "17/Feb/2006", "17-FEB-2006", "17 Feb 2006", "Feb 17, 2006", "17/02/2006" (day first, month
// first only when day first is no date), "2006-02-17", "17.02.2006", "1/1/05" (years 00-29 are
// 20xx, 30-99 19xx), with an optional time "hh:mm[:ss]" and AM/PM, or a time alone.
// Texts such as "Date", "" or "32/01/2006" are no date.
std::optional<double> parseDate(const QString& text);
bool isDate(const QString& text);

// CStr of a date: "dd/MM/yyyy", with " hh:mm:ss" when the time is not midnight; a time alone
// (a serial from 0 up to 1) as "hh:mm:ss".
QString dateToString(double serial);

// MonthName and WeekdayName in English, whatever the system's language: month 1 is January,
// weekday 1 is Sunday as the run time counts; abbreviated to three letters ("Feb", "Fri").
QString monthName(int month, bool abbreviate = false);
QString weekdayName(int weekday, bool abbreviate = false);

// Now and Date as serials.
double now();
double today();

}  // namespace ostravel
