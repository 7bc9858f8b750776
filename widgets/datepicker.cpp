#include "widgets/datepicker.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace ostravel {

DatePicker::DatePicker(QWidget* parent) : QWidget(parent), m_initDate(QDate::currentDate()) {
    setObjectName(QStringLiteral("DatePicker"));
    setAutoFillBackground(true);
    m_calendar = new QCalendarWidget(this);
    m_calendar->setObjectName(QStringLiteral("MonthView1"));
    m_calendar->setGridVisible(true);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdok"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdcancel"));
    // The calendar lies inside a screen: a default button here would take Enter from the
    // screen's own (Add Trade). Enter on a day is the calendar's OK.
    for (QPushButton* button : {ok, cancel}) button->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_calendar);
    layout->addLayout(buttons);

    connect(ok, &QPushButton::clicked, this, [this] { Q_EMIT OK(m_calendar->selectedDate()); });
    connect(cancel, &QPushButton::clicked, this, &DatePicker::Cancel);
    connect(m_calendar, &QCalendarWidget::activated, this, [this](const QDate& d) { Q_EMIT OK(d); });
    setInitDate(m_initDate);
    hide();
}

void DatePicker::setInitDate(const QDate& date) {
    m_initDate = date.isValid() ? date : QDate::currentDate();
    m_calendar->setSelectedDate(m_initDate);
}

QDate DatePicker::selectedDate() const {
    return m_calendar->selectedDate();
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT Cancel();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT OK(m_calendar->selectedDate());
    else
        QWidget::keyPressEvent(event);
}

}  // namespace ostravel
