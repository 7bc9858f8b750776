// Backup and restore as the screens run them: a backup restored in a fresh program folder gives
// back every row, and a file that is no backup of this program is refused, with the live
// database and the open store left as they were.
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <optional>

#include "safety/backup.h"
#include "safety/backup_drives.h"
#include "safety/backup_path.h"
#include "safety/restore.h"
#include "safety/restore_database.h"
#include "store/sqliteconnection.h"
#include "store/store.h"
#include "tests/safety/backup_test_support.h"
#include "tests/safety/he3_test_support.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

const QString kBackUpPlace = QStringLiteral("(Form) FRM_BACK_UP::Sub but_gen_rpt_Click");
const QString kRestorePlace = QStringLiteral("(Form) FRM_RESTORE::Sub CMD_RESTORE_Click");
const QString kBackedUp =
    QStringLiteral("Your database is now Backed up and saved.\r\nRemember to Back your database weekly");

// The message of the error trap for an error raised in `place`.
QString trapText(int number, const QString& description, const QString& place) {
    return composeErrorText({number, description, 0}, place);
}

class BackupRestore : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_root.isValid());
        QDir(m_root.path()).mkpath(QStringLiteral("backups"));
        m_source = std::make_unique<ProgramFolder>(m_root.filePath(QStringLiteral("source")));
        Database& db = m_source->program->store().database();
        addSampleData(db);
        db.execute(QStringLiteral("update users set FirstName = 'Asha', BuyFee = 0.5"));
        db.execute(
            QStringLiteral("insert into compare (date, BuyHoldValue, ControlValue, EquitySymbol) "
                           "values (#5/2/2006#, 1200, 1450, 'INFY')"));
        db.execute(
            QStringLiteral("insert into bank (BankName, AccountNumber, Balance) values ('State Bank', "
                           "'0042', 15000.25)"));
    }

    QString backups() const { return m_root.filePath(QStringLiteral("backups")); }
    QString backupFile() const { return QDir(backups()).filePath(BackUp::kFileName); }

    // FRM_BACK_UP of the source program, run to the end with Text2 = `folder`.
    int backUp(const QString& folder, const std::function<void(BackUp&)>& watch = {}) {
        m_source->enter();
        BackUp form(*m_source->program);
        form.Form_Load();
        int unloads = 0;
        form.unload = [&] { ++unloads; };
        if (watch)
            form.changed = [&] { watch(form); };
        form.Text2 = folder;
        form.but_gen_rpt_Click();
        return unloads;
    }

    struct RestoreRun {
        int unloads = 0;
        int restored = 0;
        int progressAtEnd = -1;
    };

    // FRM_RESTORE of `target`, run to the end with `file` chosen.
    static RestoreRun restore(ProgramFolder& target, const QString& file,
                              const std::function<void(Restore&)>& watch = {}) {
        target.enter();
        Restore form(*target.program);
        form.Form_Load();
        RestoreRun run;
        form.unload = [&] { ++run.unloads; };
        form.restored = [&] { ++run.restored; };
        if (watch)
            form.changed = [&] { watch(form); };
        form.Dir1 = QFileInfo(file).absolutePath();
        form.Dir1_Change();
        form.File1_Click(QFileInfo(file).fileName());
        form.CMD_RESTORE_Click();
        run.progressAtEnd = form.ProgressBar1;
        return run;
    }

    static void expectSameRows(const QString& restored, const QString& original) {
        const QStringList tables = tablesOf(original);
        ASSERT_EQ(tablesOf(restored), tables);
        for (const QString& table : tables)
            EXPECT_EQ(tableRows(restored, table), tableRows(original, table)) << table.toStdString();
    }

    // The store answers and takes a write.
    static void expectStoreWorking(Program& program) {
        Store& store = program.store();
        ASSERT_TRUE(store.database().isOpen());
        EXPECT_FALSE(store.users->eof());
        store.database().execute(QStringLiteral("update users set eMail = 'a@b.in'"));
        EXPECT_EQ(store.database().openRecordset(QStringLiteral("select eMail from users"))->field(0).toString(),
                  QStringLiteral("a@b.in"));
    }

    QTemporaryDir m_root;
    std::unique_ptr<ProgramFolder> m_source;
};

TEST_F(BackupRestore, KeptUnpackedCopyStaysWhenABackupRestoresEveryRow) {
    // An older backup in the folder is replaced without a question.
    writeBytes(backupFile(), "an older backup");
    EXPECT_EQ(backUp(backups()), 1);
    EXPECT_EQ(m_source->prompt.messages(), QStringList{kBackedUp});
    EXPECT_EQ(m_source->prompt.asked().back().icon, Icon::Information);
    EXPECT_EQ(m_source->databaseFiles(), QStringList{QStringLiteral("ostravel.mdb")});
    EXPECT_EQ(QDir(backups()).entryList(QDir::Files | QDir::Hidden), QStringList{BackUp::kFileName});

    ProgramFolder fresh(m_root.filePath(QStringLiteral("fresh")));
    ASSERT_EQ(fresh.program->store().database().rowCount(QStringLiteral("trades")), 0);
    const RestoreRun run = restore(fresh, backupFile());

    EXPECT_TRUE(fresh.prompt.asked().isEmpty());
    EXPECT_EQ(run.unloads, 1);
    EXPECT_EQ(run.restored, 1);
    EXPECT_EQ(run.progressAtEnd, 0);
    expectSameRows(fresh.live(), m_source->live());
    // The unpacked copy stays behind, and it is what went live.
    EXPECT_EQ(fresh.databaseFiles(), (QStringList{QStringLiteral("ostravel.mdb"), QStringLiteral("ostravel_bk.mdb")}));
    expectSameRows(fresh.file(kRestoredCopy), m_source->live());
    // The frame shows the restored data.
    EXPECT_EQ(fresh.program->frame().cmbportfolio.items,
              (QStringList{QStringLiteral("Simulation"), QStringLiteral("Growth"), QStringLiteral("Income")}));
    EXPECT_EQ(fresh.program->store().users->field(QStringLiteral("FirstName")).toString(), QStringLiteral("Asha"));
    expectStoreWorking(*fresh.program);
}

// Another program writes to the live file while the backup runs: the backup holds committed
// data only, or is refused while the file is mid-write; it is never a copy of a half-written file.
struct WriterCase {
    const char* name;
    bool spilled;  // the writer's changes already lie in the file, its journal beside it
};

class BackupBesideAWriter : public BackupRestore, public testing::WithParamInterface<WriterCase> {};

TEST_P(BackupBesideAWriter, TakesOnlyCommittedData) {
    const QStringList committed = tableRows(m_source->live(), QStringLiteral("portfolio"));
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open_v2(QFile::encodeName(m_source->live()).constData(), &writer, SQLITE_OPEN_READWRITE, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer,
                           "BEGIN IMMEDIATE; insert into portfolio (PortfolioName) "
                           "values ('Pending')",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    if (GetParam().spilled) {
        ASSERT_EQ(sqlite3_exec(writer, "PRAGMA cache_size=1; update qoutense set name = name || ' (pending)'", nullptr,
                               nullptr, nullptr),
                  SQLITE_OK);
        ASSERT_TRUE(QFileInfo(m_source->live() + QStringLiteral("-journal")).size() > 0);
        sqlite3_busy_timeout(m_source->program->store().database().connection()->handle(), 50);
        m_source->prompt.answer(Answer::OK);
    }
    EXPECT_EQ(backUp(backups()), 1);
    sqlite3_exec(writer, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(writer);

    EXPECT_EQ(m_source->databaseFiles(), QStringList{QStringLiteral("ostravel.mdb")});
    if (GetParam().spilled) {
        EXPECT_EQ(m_source->prompt.messages(),
                  QStringList{trapText(3260, QStringLiteral("Couldn't update; currently locked."), kBackUpPlace)});
        EXPECT_FALSE(QFileInfo::exists(backupFile()));
        return;
    }
    EXPECT_EQ(m_source->prompt.messages(), QStringList{kBackedUp});
    ProgramFolder fresh(m_root.filePath(QStringLiteral("fresh")));
    EXPECT_EQ(restore(fresh, backupFile()).restored, 1);
    EXPECT_EQ(tableRows(fresh.live(), QStringLiteral("portfolio")), committed);
}

INSTANTIATE_TEST_SUITE_P(Writers, BackupBesideAWriter,
                         testing::Values(WriterCase{"uncommitted_in_memory", false},
                                         WriterCase{"uncommitted_in_the_file", true}),
                         CaseName());

// A file that is no backup of this program: `make` turns a good backup into it, or gives
// nothing for a file that is gone.
struct RefusedCase {
    const char* name;
    std::function<std::optional<QByteArray>(const QByteArray& backup)> make;
    int number;
    QString description;  // "%1" stands for the unpacked copy's path
};

QByteArray sqliteFile(const char* sql) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("other.db"));
    sqlite3* handle = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &handle);
    sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
    sqlite3_close(handle);
    return fileBytes(path);
}

QByteArray withByteChanged(QByteArray bytes, qsizetype at) {
    bytes[at] = static_cast<char>(bytes.at(at) ^ 0x5a);
    return bytes;
}

const QString kUnrecognized = QStringLiteral("Unrecognized database format '%1'. ");

const RefusedCase kRefusedCases[] = {
    {"gone", [](const QByteArray&) { return std::nullopt; }, kObjectError,
     QStringLiteral("Source file does not exist")},
    {"byte_changed_in_the_coded_data", [](const QByteArray& b) { return withByteChanged(b, b.size() / 2); },
     kObjectError, kChecksumError},
    {"byte_changed_in_the_checksum", [](const QByteArray& b) { return withByteChanged(b, 4); }, kObjectError,
     kChecksumError},
    {"cut_short", [](const QByteArray& b) { return b.left(b.size() * 2 / 3); }, kObjectError, kChecksumError},
    {"cut_inside_the_identification", [](const QByteArray& b) { return b.left(3); }, kObjectError,
     kIdentificationError},
    {"empty", [](const QByteArray&) { return QByteArray(); }, kObjectError, kIdentificationError},
    {"a_text_file", [](const QByteArray&) { return QByteArray("PortfolioName,Growth\r\nINFY,1400.5\r\n"); },
     kObjectError, kIdentificationError},
    {"a_packed_text_file",
     [](const QByteArray&) { return packed(QByteArray("PortfolioName,Growth\r\nINFY,1400.5\r\n").repeated(50)); },
     err::NotADatabase, kUnrecognized + QStringLiteral("(the file is not an SQLite database)")},
    {"a_packed_foreign_database",
     [](const QByteArray&) {
         return packed(sqliteFile("create table notes (body text); insert into notes values ('x')"));
     },
     err::NotADatabase, kUnrecognized + QStringLiteral("(the table 'users' is missing)")},
    {"a_packed_database_short_of_a_column",
     [](const QByteArray& b) {
         QTemporaryDir folder;
         const QString path = folder.filePath(QStringLiteral("short.mdb"));
         writeBytes(path, unpacked(b));
         sqlite3* handle = nullptr;
         sqlite3_open(QFile::encodeName(path).constData(), &handle);
         // The journal's triggers name every column: they go first.
         sqlite3_exec(handle,
                      "drop trigger journal_trades_insert; drop trigger journal_trades_update; "
                      "drop trigger journal_trades_delete; alter table trades drop column Commission",
                      nullptr, nullptr, nullptr);
         sqlite3_close(handle);
         return packed(fileBytes(path));
     },
     err::NotADatabase, kUnrecognized + QStringLiteral("(the table 'trades' has no column 'Commission')")},
    {"a_packed_database_cut_short", [](const QByteArray& b) { return packed(unpacked(b).left(3000)); },
     err::NotADatabase,
     kUnrecognized + QStringLiteral("(the file is cut short (3000 bytes is no whole number of "
                                    "4096-byte pages))")},
};

class RefusedBackup : public BackupRestore, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedBackup, RaisesTheErrorAndChangesNothing) {
    ASSERT_EQ(backUp(backups()), 1);
    if (const std::optional<QByteArray> file = GetParam().make(fileBytes(backupFile())))
        writeBytes(backupFile(), *file);
    else
        QFile::remove(backupFile());
    const QByteArray live = fileBytes(m_source->live());
    m_source->prompt.clear();
    m_source->prompt.answer(Answer::OK);

    const RestoreRun run = restore(*m_source, backupFile());

    const QString description =
        QString(GetParam().description).replace(QStringLiteral("%1"), m_source->file(kRestoredCopy));
    EXPECT_EQ(m_source->prompt.messages(), QStringList{trapText(GetParam().number, description, kRestorePlace)});
    EXPECT_EQ(run.unloads, 1);
    EXPECT_EQ(run.restored, 0);
    EXPECT_EQ(run.progressAtEnd, 0);
    EXPECT_EQ(fileBytes(m_source->live()), live);
    EXPECT_EQ(m_source->databaseFiles(), QStringList{QStringLiteral("ostravel.mdb")});
    expectStoreWorking(*m_source->program);
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedBackup, testing::ValuesIn(kRefusedCases), CaseName());

TEST_F(BackupRestore, BackupToAMissingFolderIsReportedAndLeavesNothing) {
    m_source->prompt.answer(Answer::OK);
    EXPECT_EQ(backUp(m_root.filePath(QStringLiteral("no/such/folder"))), 1);
    EXPECT_EQ(m_source->prompt.messages(),
              QStringList{trapText(err::PathNotFound, QStringLiteral("Path not found"), kBackUpPlace)});
    EXPECT_EQ(m_source->databaseFiles(), QStringList{QStringLiteral("ostravel.mdb")});
}

// A command without a file or folder chosen is refused with its message, and nothing starts.
struct UnchosenCase {
    const char* name;
    std::function<bool(Program&)> click;  // true when the form showed work or unloaded
    const char* title;
    const char* text;
};

// The form loaded and its command clicked with nothing chosen.
template <class Form>
bool actsUnchosen(Program& program, void (Form::*command)()) {
    Form form(program);
    form.Form_Load();
    bool acted = false;
    form.unload = [&] { acted = true; };
    (form.*command)();
    return acted || form.Label3Visible || form.ProgressBar1Visible;
}

const UnchosenCase kUnchosenCases[] = {
    {"backup_without_folder", [](Program& program) { return actsUnchosen(program, &BackUp::but_gen_rpt_Click); },
     "Select Backup Path ...", "Select Backup File Path and then Click Create Backup Button..."},
    {"restore_without_file", [](Program& program) { return actsUnchosen(program, &Restore::CMD_RESTORE_Click); },
     "Select Path ...", "Select Backup File Path and then Click Restore Button..."},
};

class UnchosenCommand : public BackupRestore, public testing::WithParamInterface<UnchosenCase> {};

TEST_P(UnchosenCommand, IsRefusedWithItsMessage) {
    EXPECT_FALSE(GetParam().click(*m_source->program));
    ASSERT_EQ(m_source->prompt.asked().size(), 1);
    EXPECT_EQ(m_source->prompt.asked().front().title, QString::fromLatin1(GetParam().title));
    EXPECT_EQ(m_source->prompt.asked().front().text, QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Commands, UnchosenCommand, testing::ValuesIn(kUnchosenCases), CaseName());

// What the screen shows at each change while it works: stage text and bar.
struct Shown {
    bool visible;
    QString stage;
    int percent;
};

struct StageCase {
    const char* name;
    QString working;
    QString last;
    bool restore;  // else the backup
};

class Stages : public BackupRestore, public testing::WithParamInterface<StageCase> {};

TEST_P(Stages, ShowTheStageAndRisingProgress) {
    std::vector<Shown> shown;
    const auto seen = [&](auto& form) {
        shown.push_back({form.Label3Visible && form.ProgressBar1Visible, form.Label3, form.ProgressBar1});
    };
    if (GetParam().restore) {
        backUp(backups());
        restore(*m_source, backupFile(), seen);
    } else {
        backUp(backups(), [&](BackUp& form) {
            seen(form);
            // Escape is not taken while the backup runs.
            form.Form_KeyDown(BackUp::kEscapeKey);
        });
    }
    ASSERT_GE(shown.size(), 12u);
    // Bar and stage show before the first percentage comes.
    EXPECT_TRUE(shown.front().visible);
    EXPECT_EQ(shown.front().percent, 0);
    for (std::size_t i = 1; i < shown.size(); ++i) {
        EXPECT_TRUE(shown[i].visible);
        EXPECT_EQ(shown[i].stage, shown[i].percent == 100 ? GetParam().last : GetParam().working) << i;
        if (i > 1) {
            EXPECT_GT(shown[i].percent, shown[i - 1].percent) << i;
        }
    }
    EXPECT_EQ(shown.back().percent, 100);
}

INSTANTIATE_TEST_SUITE_P(Screens, Stages,
                         testing::Values(StageCase{"backup", BackUp::kCompressing, BackUp::kSaving, false},
                                         StageCase{"restore", Restore::kUncompressing, Restore::kRestoring, true}),
                         CaseName());

TEST_F(BackupRestore, SelPathStartsOnTheStartDriveAndHandsItsFolderOver) {
    BackUp backUpForm(*m_source->program);
    SelPath form(m_source->prompt, backUpForm);
    int unloads = 0;
    form.unload = [&] { ++unloads; };
    form.Form_Load();
    EXPECT_EQ(form.Drive1, kStartDrive);
    EXPECT_TRUE(folderAccessible(form.Dir1));
    EXPECT_EQ(form.Label1, QStringLiteral("Current Selected Path ...\n") + form.Dir1);

    form.Dir1 = backups();
    form.Dir1_Change();
    EXPECT_EQ(form.Label1, QStringLiteral("Current Selected Path ...\n") + backups());
    form.SelectButton_Click();
    EXPECT_EQ(backUpForm.Text2, backups());
    EXPECT_EQ(unloads, 1);
    form.Form_KeyDown(BackUp::kEscapeKey);
    EXPECT_EQ(unloads, 2);
    EXPECT_TRUE(m_source->prompt.asked().isEmpty());
}

// A drive or folder that can't be read is told, and the lists go back to the start drive.
struct UnreadableCase {
    const char* name;
    bool restoreForm;
    bool folder;  // the folder changed, else the drive
    const char* text;
};

class Unreadable : public BackupRestore, public testing::WithParamInterface<UnreadableCase> {};

TEST_P(Unreadable, IsToldAndTheStartDriveComesBack) {
    const QString gone = m_root.filePath(QStringLiteral("unmounted"));
    BackUp backUpForm(*m_source->program);
    SelPath selPath(m_source->prompt, backUpForm);
    Restore restoreForm(*m_source->program);
    QString* drive = GetParam().restoreForm ? &restoreForm.Drive1 : &selPath.Drive1;
    QString* dir = GetParam().restoreForm ? &restoreForm.Dir1 : &selPath.Dir1;
    if (GetParam().restoreForm)
        restoreForm.Form_Load();
    else
        selPath.Form_Load();
    const QString startFolder = *dir;

    if (GetParam().folder) {
        *dir = gone;
        restoreForm.Dir1_Change();
    } else {
        *drive = gone;
        GetParam().restoreForm ? restoreForm.Drive1_Change() : selPath.Drive1_Change();
    }

    ASSERT_EQ(m_source->prompt.asked().size(), 1);
    EXPECT_EQ(m_source->prompt.asked().front().title, QStringLiteral("Drive not Accessed ..."));
    EXPECT_EQ(m_source->prompt.asked().front().text, QString::fromLatin1(GetParam().text));
    EXPECT_EQ(*drive, kStartDrive);
    EXPECT_EQ(*dir, startFolder);
    if (GetParam().restoreForm) {
        EXPECT_EQ(restoreForm.File1, startFolder);
    }
}

INSTANTIATE_TEST_SUITE_P(Lists, Unreadable,
                         testing::Values(UnreadableCase{"sel_path_drive", false, false, "Drive Cannot be Accessed ..."},
                                         UnreadableCase{"restore_drive", true, false, "Drive Cannot be Accessed ..."},
                                         UnreadableCase{"restore_folder", true, true, "Folder Cannot be Accessed ..."}),
                         CaseName());

TEST(BackupDrives, StartDriveComesFirstAndEveryDriveIsAFolder) {
    const QStringList drives = driveList();
    ASSERT_FALSE(drives.isEmpty());
    EXPECT_EQ(drives.front(), kStartDrive);
    for (const QString& drive : drives) EXPECT_TRUE(QFileInfo(drive).isDir()) << drive.toStdString();
    EXPECT_EQ(drives.size(), QSet<QString>(drives.begin(), drives.end()).size());
}

}  // namespace
}  // namespace ostravel::test
