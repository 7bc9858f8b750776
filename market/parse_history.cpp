#include "market/parse_history.h"

#include <QFile>
#include <vector>

#include "context/program.h"
#include "market/history.h"
#include "market/history_fields.h"
#include "market/text_lines.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "safety/whole_file.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Module) Module3::Sub ParseAndSaveData");
const QByteArray kCrLf = QByteArrayLiteral("\r\n");

// The program puts each record in front of the text it has; the same text is built here by
// keeping the records in the order they came and joining them backwards at the end.
class FrontBuffer {
public:
    void set(QByteArrayView line) {
        m_front.clear();
        m_base = line.toByteArray();
    }
    void prepend(QByteArrayView line) { m_front.push_back(line.toByteArray()); }
    QByteArray text() const {
        QByteArray out;
        qsizetype size = m_base.size();
        for (const QByteArray& line : m_front) size += line.size() + 2;
        out.reserve(size);
        for (auto it = m_front.rbegin(); it != m_front.rend(); ++it) out += *it + kCrLf;
        return out + m_base;
    }

private:
    std::vector<QByteArray> m_front;
    QByteArray m_base;
};

}  // namespace

std::optional<QByteArray> historyFileBytes(QByteArrayView buffer) {
    const qsizetype date = QByteArrayView(buffer).indexOf(QByteArrayView("Date"));
    if (date < 0)
        return std::nullopt;
    // Every LF becomes CR LF, so a line that had CR LF is followed by an empty one.
    QByteArray text = buffer.sliced(date).toByteArray();
    text.replace("\n", kCrLf);

    FrontBuffer records;
    QByteArray header;
    bool headerSeen = false;
    int counter = 0;
    TextLines lines(text);
    for (QByteArrayView view; lines.next(view);) {
        ++counter;
        if (view.size() <= 2 || view.endsWith("GMT") || view.startsWith("P3P"))
            continue;
        const qsizetype comma = view.indexOf(',');
        if (comma < 0)
            continue;
        QByteArray line = view.toByteArray();
        const QByteArray first = line.left(comma);
        if (const std::optional<QDate> day = isoDay(first))
            line.replace(first, fileDayText(*day).toLatin1());
        else if (const auto serial = parseDate(QString::fromLatin1(first)))
            line.replace(first, formatDate(*serial, QStringLiteral("dd/mmm/yyyy")).toLatin1());
        const bool isHeader = first == "Date";
        if (isHeader && !headerSeen) {
            headerSeen = true;
            counter = 1;
        }
        if (counter == 1)
            header = line;
        else if (counter == 2)
            records.set(line);  // also drops whatever came before the header
        else if (!isHeader)
            records.prepend(line);  // a later page's header is passed over
    }
    return header + kCrLf + records.text() + kCrLf;
}

void ParseAndSaveData(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    MainFrame& frame = program.frame();
    if (h.DataBuffer.size() < 20) {
        frame.caption = kLengthBelow20;
        frame.showChanges();
        return;
    }
    const QString target = historyFilePath(frame);
    // Kept: the old history goes before anything is known of the new data, so an answer
    // without "Date" leaves the stock with no history file.
    trapped(program.reporter(), kPlace, [&] {
        if (QFile::exists(target) && !QFile::remove(target))
            raise(err::PermissionDenied, {}, kPlace);
    });
    const std::optional<QByteArray> bytes = historyFileBytes(h.DataBuffer);
    if (!bytes) {
        frame.caption = kDateNotFound;
        frame.showChanges();
        return;
    }
    h.DataBuffer = bytes->left(bytes->size() - 2);
    trapped(program.reporter(), kPlace, [&] { replaceFile(target, *bytes, kPlace); });
}

}  // namespace ostravel
