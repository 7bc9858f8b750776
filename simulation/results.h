// The figures of a run on equitymanager: the beginning position once, the current position
// after every day. They are kept as the texts the screen shows, and the next steps read them
// back from there, so a day's values are those shown, rounded as shown.
#pragma once

#include <QList>
#include <QPair>
#include <QString>

namespace ostravel {

class Program;

// On the first day's row: its price, BeginningShares from users, and as much again in cash as
// in stock. Errors are reported (once a run) and the next statement runs.
void equitybegin(Program& program);

// After each simulationstep: the day's price, shares, cash, stock value (before the day's
// trade), total and cost per share, the changes of cash and stock value, the share of the
// total in stock. A beginning cash of 0 leaves the percentages as they were.
void equitycurrent(Program& program);

// The figures of a run by the names of their boxes and labels, each text as the screen holds
// it, in the order a script reads them; then the period (dd/mm/yyyy) and BeginningShares.
QList<QPair<QString, QString>> resultFields(Program& program);

}  // namespace ostravel
