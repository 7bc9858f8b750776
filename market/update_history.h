// "Update History": the exchange's day files from the day after the store's last one to today,
// each fetched from the bhav host, kept in the day-file folder and loaded into the store.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <functional>

namespace ostravel {

class DayStore;
class Program;

struct DayLoad {
    long long added = 0;
    int refused = 0;
};

// One day file's text into the store; an error page (no day file) adds nothing.
DayLoad loadDayText(DayStore& store, const QByteArray& text);

// The first day to fetch: the day after the store's last one; with an empty store, `today`
// less 30 days.
QDate firstDayToFetch(DayStore& store, const QDate& today);

struct UpdateProgress {
    QDate day;
    int done = 0;
    int total = 0;
};

// cmdupdatehistory_Click: every day up to `today`; the caption counts the rows, and the message
// "All Stock History" ends it. `progress` is told of each day, and ends the walk early when it
// returns false. Returns the rows added.
long long cmdupdatehistory_Click(Program& program, const QDate& today,
                                 const std::function<bool(const UpdateProgress&)>& progress = {});

}  // namespace ostravel
