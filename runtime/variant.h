// A dynamically typed value as the store and the screens hand it around, Null included.
#pragma once

#include <QString>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace ostravel {

class Variant {
public:
    enum class Kind { Empty, Null, Boolean, Long, Double, String, Date };

    Variant() = default;  // Empty: a value never assigned
    Variant(bool value) : m_value(value) {}
    Variant(int value) : m_value(static_cast<std::int64_t>(value)) {}
    Variant(std::int64_t value) : m_value(value) {}
    Variant(double value) : m_value(value) {}
    Variant(const QString& value) : m_value(value) {}
    Variant(const char* value) : m_value(QString::fromUtf8(value)) {}

    static Variant null();
    // A date as days since 30 Dec 1899, the fraction being the time of day.
    static Variant date(double serial);

    // The kinds stand in the order of the types the value holds; a value left without one by
    // a failed assignment reads as the last.
    Kind kind() const { return m_value.valueless_by_exception() ? Kind::Date : static_cast<Kind>(m_value.index()); }
    bool isNull() const { return kind() == Kind::Null; }
    bool isEmpty() const { return kind() == Kind::Empty; }
    bool isNumber() const { return kind() == Kind::Long || kind() == Kind::Double || kind() == Kind::Boolean; }
    // True for numbers, Empty, and texts that pass the strict number parse (IsNumeric); false
    // for Null and dates.
    bool isNumeric() const;

    // Conversions as the run time does them: Null raises 94, a text that is no number raises 13,
    // Empty reads as 0 or "", True is -1. Texts convert by the strict parse (CDbl), not by Val.
    double toDouble() const;
    std::int64_t toLong() const;         // rounds halves to even, as CLng does; beyond 64 bits raises 6
    QString toString() const;            // CStr: "0.5", "True", dates as dateToString
    void toString(QString& text) const;  // the same written over `text`, which keeps its room
    bool toBool() const;                 // "True"/"False" in any case, else a number not 0
    double toDate() const;               // a date serial; texts through the run-time date parser

    bool operator==(const Variant& other) const;

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    struct DateTag {
        double serial;
        bool operator==(const DateTag&) const = default;
    };
    using Value = std::variant<std::monostate, NullTag, bool, std::int64_t, double, QString, DateTag>;
    Value m_value;
    static_assert(std::is_same_v<std::variant_alternative_t<static_cast<std::size_t>(Kind::Double), Value>, double>);
    static_assert(std::is_same_v<std::variant_alternative_t<static_cast<std::size_t>(Kind::Date), Value>, DateTag>);
};

}  // namespace ostravel
