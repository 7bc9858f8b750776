// ParseAndSaveData: the raw answers of the history service, pages one behind the other, into
// the history file, oldest day first.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace ostravel {

class Program;

// The bytes of the history file that the answers in `buffer` make, or nothing when the answers
// hold no "Date". Pure: no file, no caption.
std::optional<QByteArray> historyFileBytes(QByteArrayView buffer);

// Reads DataBuffer, writes history/daily/<symbol>.csv whole or not at all, and leaves the
// caption as it was on success; on failure the caption tells why.
void ParseAndSaveData(Program& program);

}  // namespace ostravel
