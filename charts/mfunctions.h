// MFunctions: Chart.INI, the one settings file of the chart, read and written a key at a time,
// made whole with its defaults, backed up and reset; and the dialogs the chart's screens ask
// through, centred on the window that asks, and a wait that lets the windows go on.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

#include "runtime/prompt.h"

class QObject;

namespace ostravel {

// App.Path & "\Chart.INI".
QString chartIniPath();

// The value of a key, at most 2000 characters; "" when the key, the section or the file is absent.
QString GetIni(const QString& file, const QString& section, const QString& key);
// One key written into the file, which is replaced whole; a file that can't be written stays as
// it was, without a message.
void WriteIni(const QString& file, const QString& section, const QString& key, const QString& value);
// The keys of a section, counted over a key list of 2000 characters as the profile call gives
// it: a section whose names run longer is counted short.
std::int16_t GetNumIniKeys(const QString& file, const QString& section);
// The n-th key name of a section, counting from 1; "" when there are fewer.
QString GetIniKey(const QString& file, const QString& section, int n);

// The text of the default file.
QByteArray defaultIniText();
// Writes the default file over whatever was there; raises when it can't be written.
void MakeIniFile(const QString& file);

// "Backup INI": the file copied whole to the same name with ".BAK" added, and the message.
// Raises when the copy can't be made; the older copy then stays.
void BackupIniFile(Prompt& prompt, const QString& file);
// "Reset to Defaults": the question; true unless the user answers No.
bool ConfirmIniReset(Prompt& prompt);

// The next dialog of the prompt opens centred on `owner`, a window of the chart.
void CenterDlgBox(Prompt& prompt, const QObject* owner);
// A message box centred on `owner`.
Answer CntrMsgBox(Prompt& prompt, const QObject* owner, const QString& text, Buttons buttons, const QString& title);
// The colour dialog on the current colour, centred on `owner`; the current colour again when
// the user cancels.
std::int32_t GetColorDlg(Prompt& prompt, std::int32_t current, const QObject* owner = nullptr);
// Waits the seconds by the clock while the window events go on.
void Delay(double seconds);

}  // namespace ostravel
