#include "tools/calculator.h"

#include <cmath>

#include "runtime/vbmath.h"

namespace ostravel {

void Calculator::press(const QString& key) {
    if (key == QLatin1String("C")) {
        *this = Calculator{};
        return;
    }
    if (m_error)
        return;  // only C leaves an error
    if (key.size() == 1 && (key[0].isDigit() || key[0] == QLatin1Char('.'))) {
        digit(key[0]);
    } else if (key.size() == 1 && QStringLiteral("+-*/").contains(key[0])) {
        operation(key[0]);
    } else if (key == QLatin1String("=")) {
        equals();
    } else if (key == QLatin1String("CE")) {
        m_display = QStringLiteral("0");
        m_startNew = true;
    } else if (key == QLatin1String("BS")) {
        if (m_startNew)
            return;
        m_display.chop(1);
        if (m_display.isEmpty() || m_display == QLatin1String("-"))
            m_display = QStringLiteral("0");
    } else if (key == QLatin1String("+/-")) {
        if (entry() != 0)
            m_display = m_display.startsWith(QLatin1Char('-')) ? m_display.mid(1) : QLatin1Char('-') + m_display;
    }
}

void Calculator::digit(QChar c) {
    if (m_startNew) {
        m_display = QStringLiteral("0");
        m_startNew = false;
    }
    if (c == QLatin1Char('.')) {
        if (!m_display.contains(QLatin1Char('.')))
            m_display += c;
        return;
    }
    if (m_display == QLatin1String("0"))
        m_display = c;
    else if (m_display == QLatin1String("-0"))
        m_display = QLatin1Char('-') + c;
    else
        m_display += c;
}

void Calculator::operation(QChar op) {
    // A second operator in a row only replaces the first.
    if (!m_startNew || m_pending.isNull())
        equals();
    if (m_error)
        return;
    m_accumulator = entry();
    m_pending = op;
    m_startNew = true;
}

void Calculator::equals() {
    if (m_pending.isNull()) {
        m_startNew = true;
        return;
    }
    const double operand = entry();
    double result = m_accumulator;
    switch (m_pending.toLatin1()) {
        case '+':
            result += operand;
            break;
        case '-':
            result -= operand;
            break;
        case '*':
            result *= operand;
            break;
        case '/':
            if (operand == 0) {
                m_display = kDivisionByZero;
                m_error = true;
                return;
            }
            result /= operand;
            break;
        default:
            break;
    }
    m_pending = QChar();
    show(result);
}

double Calculator::entry() const {
    return m_display.toDouble();
}

void Calculator::show(double value) {
    m_accumulator = value;
    m_display = std::isfinite(value) ? numberToText(value) : QStringLiteral("Overflow");
    m_error = !std::isfinite(value);
    m_startNew = true;
}

}  // namespace ostravel
