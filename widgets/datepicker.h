// DatePicker: the calendar the ledger screens keep hidden until a date button asks for it.
#pragma once

#include <QDate>
#include <QWidget>

class QCalendarWidget;

namespace ostravel {

class DatePicker : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QDate InitDate READ InitDate WRITE setInitDate)
public:
    explicit DatePicker(QWidget* parent = nullptr);

    QDate InitDate() const { return m_initDate; }
    // Sets the date the calendar opens on.
    void setInitDate(const QDate& date);
    QDate selectedDate() const;

Q_SIGNALS:
    void OK(const QDate& date);
    void Cancel();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QDate m_initDate;
    QCalendarWidget* m_calendar;
};

}  // namespace ostravel
