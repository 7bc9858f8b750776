#include "market/update_history.h"

#include <QDir>

#include "context/program.h"
#include "market/day_file.h"
#include "market/day_store.h"
#include "market/doevents.h"
#include "market/hosts.h"
#include "market/openurl.h"
#include "runtime/trap.h"
#include "safety/whole_file.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Form) MDIForm1::Sub cmdupdatehistory_Click");

}  // namespace

DayLoad loadDayText(DayStore& store, const QByteArray& text) {
    if (!looksLikeDayFile(text))
        return {};
    const DayFile file = parseDayFile(text);
    return {store.load(file), file.refused};
}

QDate firstDayToFetch(DayStore& store, const QDate& today) {
    const std::optional<QDate> last = store.lastDay();
    return last ? last->addDays(1) : today.addDays(-30);
}

long long cmdupdatehistory_Click(Program& program, const QDate& today,
                                 const std::function<bool(const UpdateProgress&)>& progress) {
    MainFrame& frame = program.frame();
    ErrorReporter& reporter = program.reporter();
    long long added = 0;
    std::unique_ptr<DayStore> store;
    if (!trapped(reporter, kPlace, [&] { store = openDayStore(); }))
        return 0;
    QDate day;
    if (!trapped(reporter, kPlace, [&] { day = firstDayToFetch(*store, today); }))
        return 0;
    const QString folder = dayFileFolder();
    QDir().mkpath(folder);
    const QString base = serviceBase(QStringLiteral("bhav"));
    const int total = static_cast<int>(day.daysTo(today)) + 1;
    for (int done = 0; day <= today; day = day.addDays(1), ++done) {
        if (progress && !progress({day, done, total}))
            break;
        const QByteArray text = OpenURL(base + dayFilePath(day));
        DoEvents(program);
        if (!looksLikeDayFile(text))
            continue;  // no trading that day, or no answer
        // The text is kept as it came, then loaded; the store keeps the day whole or not at all.
        trapped(reporter, kPlace, [&] { replaceFile(folder + QLatin1Char('/') + dayFileName(day), text, kPlace); });
        trapped(reporter, kPlace, [&] {
            added += loadDayText(*store, text).added;
            frame.caption = QString::number(added) + QStringLiteral(" Total  Record updated ");
        });
        DoEvents(program);
    }
    program.prompt().inform(QStringLiteral("All Stock History"));
    return added;
}

}  // namespace ostravel
