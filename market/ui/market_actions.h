// The main frame's market-data actions with their dialogs: the proxy settings, "Import
// History...", "Update History" with its progress, "Get History All" and "&Open File".
#pragma once

class QWidget;

namespace ostravel {

class Program;

void showProxySettings(Program& program, QWidget* parent);
void showImportHistory(Program& program, QWidget* parent);
void runUpdateHistory(Program& program, QWidget* parent);
void runGetHistoryAll(Program& program, QWidget* parent);
void runOpenFile(Program& program);

}  // namespace ostravel
