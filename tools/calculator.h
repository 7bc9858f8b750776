// The four-function calculator: a display and the pending operation, driven key by key.
#pragma once

#include <QString>

namespace ostravel {

class Calculator {
public:
    static inline const QString kDivisionByZero = QStringLiteral("Cannot divide by zero");

    // Keys: "0"-"9", ".", "+", "-", "*", "/", "=", "C" (clear all), "CE" (clear entry),
    // "BS" (backspace), "+/-" (change sign). Unknown keys are ignored.
    void press(const QString& key);
    const QString& display() const { return m_display; }

private:
    void digit(QChar c);
    void operation(QChar op);
    void equals();
    double entry() const;
    void show(double value);

    QString m_display = QStringLiteral("0");
    double m_accumulator = 0;
    QChar m_pending;         // the operation waiting for its second operand
    bool m_startNew = true;  // the next digit begins a new entry
    bool m_error = false;
};

}  // namespace ostravel
