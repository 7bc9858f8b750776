// Start-up of the program to its main frame, and the idle frame's resident memory, beside a
// bare Qt window started the same way. Each measure starts a fresh process of this harness,
// which shows either the real frame (splash skipped) or an empty window, and reports when shown.
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/mdiform1_view.h"
#include "context/program.h"
#include "context/program_folder.h"
#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"

using namespace ostravel;

namespace {

long residentKiB() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toLong();
    return -1;
}

// In the child: show the window, say so, idle a while, report the memory, end.
int child(int argc, char** argv, const QString& mode, const QString& folder) {
    QApplication app(argc, argv);
    std::unique_ptr<QWidget> window;
    ScriptedPrompt prompt;
    std::unique_ptr<Program> program;
    if (mode == QLatin1String("frame")) {
        setAppPath(folder);
        prepareProgramFolder();
        program = std::make_unique<Program>(prompt);
        program->store().connection();
        window = std::make_unique<MDIForm1View>(*program);
    } else {
        window = std::make_unique<QMainWindow>();
    }
    window->show();
    QTimer::singleShot(0, [] {
        std::printf("shown\n");
        std::fflush(stdout);
    });
    QTimer::singleShot(1500, [] {
        std::printf("rss %ld\n", residentKiB());
        std::fflush(stdout);
        // exit, not quit: the frame refuses to close except through File - Exit.
        QCoreApplication::exit(0);
    });
    return app.exec();
}

struct Measure {
    double shownMs;
    long rssKiB;
};

Measure run(const QString& self, const QString& mode, const QString& folder) {
    QProcess p;
    QElapsedTimer clock;
    clock.start();
    p.start(self, {QStringLiteral("--child"), mode, folder});
    Measure m{-1, -1};
    QByteArray out;
    while (p.state() != QProcess::NotRunning || p.bytesAvailable()) {
        p.waitForReadyRead(50);
        out += p.readAllStandardOutput();
        if (m.shownMs < 0 && out.contains("shown\n"))
            m.shownMs = double(clock.nsecsElapsed()) / 1e6;
        if (p.state() == QProcess::NotRunning && !p.bytesAvailable())
            break;
    }
    const qsizetype at = out.indexOf("rss ");
    if (at >= 0)
        m.rssKiB = out.mid(at + 4).trimmed().toLong();
    return m;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && QByteArray(argv[1]) == "--child")
        return child(argc, argv, QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));

    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QCoreApplication app(argc, argv);
    const QString self = QCoreApplication::applicationFilePath();
    QTemporaryDir folder;

    const Measure first = run(self, QStringLiteral("frame"), folder.path());  // creates the database
    std::vector<double> frame, bare;
    long frameRss = 0, bareRss = 0;
    for (int i = 0; i < 5; ++i) {
        const Measure f = run(self, QStringLiteral("frame"), folder.path());
        const Measure b = run(self, QStringLiteral("bare"), folder.path());
        frame.push_back(f.shownMs);
        bare.push_back(b.shownMs);
        frameRss = std::max(frameRss, f.rssKiB);
        bareRss = std::max(bareRss, b.rssKiB);
    }
    std::printf("first start (creates the database): %.1f ms to the frame\n", first.shownMs);
    std::printf("start to main frame shown: %.1f ms (median of 5; target < 300 ms)\n", median(frame));
    std::printf("bare Qt window, same way:  %.1f ms; ratio %.2f\n", median(bare), median(frame) / median(bare));
    std::printf("idle main frame resident: %.1f MB (target < 120 MB); bare window %.1f MB\n", double(frameRss) / 1024.0,
                double(bareRss) / 1024.0);
    return 0;
}
