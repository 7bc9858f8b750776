// The screen FRM_BACK_UP, "Back up Database ...": packs a snapshot of the live database into
// ostravel_Backup.bk in the folder the user chose, with the stage and progress shown.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>

#include "safety/clshuffman.h"

namespace ostravel {

class Program;

class BackUp {
public:
    static inline const QString kCaption = QStringLiteral("Back up Database ...");
    static inline const QString kFileName = QStringLiteral("ostravel_Backup.bk");
    static inline const QString kCompressing = QStringLiteral("Compressing Database");
    static inline const QString kSaving = QStringLiteral("Saving Compressed File ...");
    static constexpr int kEscapeKey = 27;

    explicit BackUp(Program& program);
    BackUp(const BackUp&) = delete;
    BackUp& operator=(const BackUp&) = delete;

    QString Text2;  // the chosen folder
    bool Label3Visible = false;
    QString Label3;  // the stage
    bool ProgressBar1Visible = false;
    int ProgressBar1 = 0;  // 0 to 100
    clsHuffman Huffman;

    // The widget closes itself when the form unloads, and mirrors the state on each change
    // while the backup runs.
    std::function<void()> unload;
    std::function<void()> changed;

    // A backup is running: the form takes no other command.
    bool busy() const { return m_busy; }

    void Form_Load();
    void but_gen_rpt_Click();
    // Escape closes the form, unless a backup runs.
    void Form_KeyDown(int KeyCode);
    void Huffman_Progress(std::int16_t value);

private:
    Program& m_program;
    bool m_busy = false;
};

}  // namespace ostravel
