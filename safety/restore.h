// The screen FRM_RESTORE, "Restore Database ....": drive, folder and file lists to choose a
// backup, which then replaces the live database, with the stage and progress shown.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>

#include "safety/clshuffman.h"

namespace ostravel {

class Program;

class Restore {
public:
    static inline const QString kCaption = QStringLiteral("Restore Database ....");
    static inline const QString kUncompressing = QStringLiteral("Uncompressing Database");
    static inline const QString kRestoring = QStringLiteral("Restoring Uncompressed File ...");

    explicit Restore(Program& program);
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    QString Drive1;
    QString Dir1;
    QString File1;   // the folder whose files File1 lists
    QString Label1;  // the file chosen
    bool Label3Visible = false;
    QString Label3;  // the stage
    bool ProgressBar1Visible = false;
    int ProgressBar1 = 0;  // 0 to 100
    clsHuffman Huffman;

    // The widget closes itself when the form unloads, mirrors the state on each change while
    // the restore runs, and has the main frame show the restored data.
    std::function<void()> unload;
    std::function<void()> changed;
    std::function<void()> restored;

    // A restore is running: the form takes no other command.
    bool busy() const { return m_busy; }

    void Form_Load();
    // Run after Drive1 and Dir1 were set, as their change events are.
    void Drive1_Change();
    void Dir1_Change();
    void File1_Click(const QString& FileName);
    void CMD_RESTORE_Click();
    void Huffman_Progress(std::int16_t value);

private:
    Program& m_program;
    bool m_busy = false;
};

}  // namespace ostravel
