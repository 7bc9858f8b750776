// Format(value, pattern) for the number and date patterns the program uses.
#pragma once

#include <QString>
#include <memory>

namespace ostravel {

class Variant;

// Number patterns: "#" a digit if any, "0" a digit always, "," between placeholders before the
// point makes groups of the sizes written, counted from the point leftwards, and digits beyond
// the written groups repeat the leftmost written group while they outrun the placeholders
// before the first comma ("#,##,###": 12,34,567; "#,#####": 12,34567; "###,##": 123,45).
// "." the decimal point, "%" times 100, text in quotes or after "\" and any other character
// literal. Rounds halves away from zero, decided on the 15 significant digits (1.005 to "0.00"
// is 1.01). An integer part of 0 with no "0" placeholder is left out (0.5 with "#.##" is ".5",
// 0 with "#" is ""); decimals are cut to the last "0" placeholder, and with none left there is
// no point. A result of 0 shows no minus. Sections "positive;negative;zero" as the run time
// has them: the negative section shows no minus of its own, an empty one falls back to the first.
// An empty pattern gives the number as CStr does.
QString formatNumber(double value, const QString& pattern);

// A number pattern read once, for the loops that format many numbers with it; it gives the
// texts formatNumber gives.
class NumberFormat {
public:
    explicit NumberFormat(const QString& pattern);

    QString operator()(double value) const;
    // Writes over `text` and keeps its room, so that a box written every day of a long run
    // needs no new memory.
    void into(QString& text, double value) const;

private:
    struct Sections;
    std::shared_ptr<const Sections> m_sections;
};

// Date patterns, letters in either case: d dd (day), ddd dddd (weekday), m mm (month; minutes
// right after an hour or right before seconds), mmm mmmm (English month names, "Feb",
// "February"), y (day of the year), yy yyyy, h hh, n nn (minutes), s ss, AM/PM am/pm A/P (and
// a 12-hour clock), other characters literal. Named: "Short Date" (dd/mm/yyyy), "Medium Date",
// "Long Date" (dd mmmm yyyy), "Short Time", "Medium Time", "Long Time", "General Date" (CStr).
QString formatDate(double serial, const QString& pattern);

// Format(value, pattern) on a variant: dates by the date patterns; numbers and numeric texts by
// the number patterns, or as date serials when the pattern is a date pattern (one with date
// letters and no "#" or "0"); a text that is a date, with a date pattern, as that date; other
// texts as they are; Null and Empty give "".
QString format(const Variant& value, const QString& pattern);

}  // namespace ostravel
