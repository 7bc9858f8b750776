// The subcommands of ostravel-cli; each works on the program folder given with --folder.
#pragma once

#include <QStringList>

namespace ostravel::cli {

// args: the words after the subcommand's name. Each returns the process's exit code.
int info(const QStringList& args);
int he3(const QStringList& args);
int advise(const QStringList& args);
int history(const QStringList& args);
int bhav(const QStringList& args);
int simulate(const QStringList& args);
int indicators(const QStringList& args);
int chart(const QStringList& args);
int quote(const QStringList& args);
int technical(const QStringList& args);

}  // namespace ostravel::cli
