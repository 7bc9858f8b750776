// ostravel-cli: the program's headless jobs, for scripts and scheduled runs.
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QTextStream>
#include <functional>
#include <map>
#include <memory>
#include <string_view>

#include "cli/commands.h"
#include "runtime/apppath.h"

namespace {

int usage() {
    QTextStream(stderr)
        << "usage: ostravel-cli [--folder DIR] info\n"
           "       ostravel-cli he3 pack|unpack IN OUT\n"
           "       ostravel-cli [--folder DIR] advise --portfolio P --symbol S [--price X]\n"
           "       ostravel-cli [--folder DIR] history save|load|fetch|import --symbol S ...\n"
           "       ostravel-cli [--folder DIR] bhav import FILE...\n"
           "       ostravel-cli [--folder DIR] quote CODE[+CODE...]\n"
           "       ostravel-cli [--folder DIR] technical --date YYYY-MM-DD gainers|lossers|volume\n"
           "       ostravel-cli [--folder DIR] indicators --symbol S --name NAME\n"
           "       ostravel-cli [--folder DIR] chart --symbol S --out FILE.png [--width W --height H]\n"
           "       ostravel-cli [--folder DIR] simulate --symbol S --from YYYY-MM-DD --to YYYY-MM-DD [--metrics]\n";
    return 2;
}

// The chart's picture needs fonts, and so an application of the display's kind, here with no
// display at all.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]) != "chart")
            continue;
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QGuiApplication>(argc, argv);
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
    const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv);
    QStringList args = QCoreApplication::arguments().mid(1);

    if (args.size() >= 2 && args.front() == QLatin1String("--folder")) {
        ostravel::setAppPath(QDir(args.at(1)).absolutePath());
        args = args.mid(2);
    }
    if (args.isEmpty())
        return usage();

    const std::map<QString, std::function<int(const QStringList&)>> commands = {
        {QStringLiteral("info"), ostravel::cli::info},
        {QStringLiteral("he3"), ostravel::cli::he3},
        {QStringLiteral("advise"), ostravel::cli::advise},
        {QStringLiteral("history"), ostravel::cli::history},
        {QStringLiteral("bhav"), ostravel::cli::bhav},
        {QStringLiteral("quote"), ostravel::cli::quote},
        {QStringLiteral("technical"), ostravel::cli::technical},
        {QStringLiteral("indicators"), ostravel::cli::indicators},
        {QStringLiteral("chart"), ostravel::cli::chart},
        {QStringLiteral("simulate"), ostravel::cli::simulate},
    };
    const auto found = commands.find(args.front());
    if (found == commands.end())
        return usage();
    return found->second(args.mid(1));
}
