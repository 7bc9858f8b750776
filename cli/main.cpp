// ostravel-cli: the program's headless jobs, for scripts and scheduled runs.
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>
#include <functional>
#include <map>

#include "cli/commands.h"
#include "runtime/apppath.h"

namespace {

int usage() {
    QTextStream(stderr) << "usage: ostravel-cli [--folder DIR] info\n"
                           "       ostravel-cli he3 pack|unpack IN OUT\n"
                           "       ostravel-cli [--folder DIR] advise --portfolio P --symbol S [--price X]\n"
                           "       ostravel-cli [--folder DIR] history save|load|fetch|import --symbol S ...\n"
                           "       ostravel-cli [--folder DIR] bhav import FILE...\n"
                           "       ostravel-cli [--folder DIR] quote CODE[+CODE...]\n"
                           "       ostravel-cli [--folder DIR] technical --date YYYY-MM-DD gainers|lossers|volume\n";
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);

    if (args.size() >= 2 && args.front() == QLatin1String("--folder")) {
        ostravel::setAppPath(QDir(args.at(1)).absolutePath());
        args = args.mid(2);
    }
    if (args.isEmpty())
        return usage();

    const std::map<QString, std::function<int(const QStringList&)>> commands = {
        {QStringLiteral("info"), ostravel::cli::info},           {QStringLiteral("he3"), ostravel::cli::he3},
        {QStringLiteral("advise"), ostravel::cli::advise},       {QStringLiteral("history"), ostravel::cli::history},
        {QStringLiteral("bhav"), ostravel::cli::bhav},           {QStringLiteral("quote"), ostravel::cli::quote},
        {QStringLiteral("technical"), ostravel::cli::technical},
    };
    const auto found = commands.find(args.front());
    if (found == commands.end())
        return usage();
    return found->second(args.mid(1));
}
