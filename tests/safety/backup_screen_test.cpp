// The screens FRM_BACK_UP, frm_sel_path and FRM_RESTORE: captions and controls, the folder
// chosen in the lists, a backup and a restore driven through the widgets, and the menu items
// of the main frame that open them.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/mdiform1_view.h"
#include "safety/backup.h"
#include "safety/restore.h"
#include "safety/ui/backup_path_view.h"
#include "safety/ui/backup_view.h"
#include "safety/ui/drive_views.h"
#include "safety/ui/restore_view.h"
#include "tests/safety/backup_test_support.h"

using namespace ostravel;
using namespace ostravel::test;

namespace {

// Makes `folder` the current entry of a folder tree or file list, as a click would.
void choose(QAbstractItemView* view, const QString& path) {
    auto* model = qobject_cast<QFileSystemModel*>(view->model());
    QVERIFY(model);
    QTRY_VERIFY(model->index(path).isValid());
    view->setCurrentIndex(model->index(path));
}

}  // namespace

class BackupScreenTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        m_root = m_dir->path();
        QVERIFY(QDir(m_root).mkpath(QStringLiteral("backups")));
        m_folder = std::make_unique<ProgramFolder>(path(QStringLiteral("program")));
        m_folder->program->store().database().execute(QStringLiteral(
            "insert into portfolio (fkUserID, PortfolioName, PortStartDate) values (1, 'Growth', #1/3/2005#)"));
    }
    void cleanup() {
        m_folder.reset();
        m_dir.reset();
    }

    void screensShowTheirCaptionsAndControls_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("buttonText");
        QTest::addColumn<QStringList>("controls");
        QTest::addColumn<bool>("showsWork");
        QTest::newRow("FRM_BACK_UP") << QStringLiteral("Back up Database ...") << QStringLiteral("but_gen_rpt")
                                     << QStringLiteral("Back UP")
                                     << QStringList{QStringLiteral("Text2"), QStringLiteral("Command1")} << true;
        QTest::newRow("frm_sel_path") << QStringLiteral("Select Path ...") << QStringLiteral("SelectButton")
                                      << QStringLiteral("Select")
                                      << QStringList{QStringLiteral("Drive1"), QStringLiteral("Dir1"),
                                                     QStringLiteral("Label1")}
                                      << false;
        QTest::newRow("FRM_RESTORE") << QStringLiteral("Restore Database ....") << QStringLiteral("CMD_RESTORE")
                                     << QStringLiteral("Restore")
                                     << QStringList{QStringLiteral("Drive1"), QStringLiteral("Dir1"),
                                                    QStringLiteral("File1"), QStringLiteral("Label1")}
                                     << true;
    }
    void screensShowTheirCaptionsAndControls() {
        QFETCH(QString, caption);
        QFETCH(QString, button);
        QFETCH(QString, buttonText);
        QFETCH(QStringList, controls);
        QFETCH(bool, showsWork);

        BackUp backUpState(*m_folder->program);
        std::unique_ptr<QWidget> screen;
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        if (name == QLatin1String("FRM_BACK_UP"))
            screen = std::make_unique<FRM_BACK_UP>(*m_folder->program);
        else if (name == QLatin1String("frm_sel_path"))
            screen = std::make_unique<frm_sel_path>(m_folder->prompt, backUpState);
        else
            screen = std::make_unique<FRM_RESTORE>(*m_folder->program);
        screen->show();

        QCOMPARE(screen->objectName(), name);
        QCOMPARE(screen->windowTitle(), caption);
        auto* command = screen->findChild<QPushButton*>(button);
        QVERIFY(command);
        QCOMPARE(command->text(), buttonText);
        for (const QString& control : controls) QVERIFY2(screen->findChild<QWidget*>(control), qPrintable(control));
        if (showsWork) {
            auto* bar = screen->findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
            QVERIFY(bar);
            QCOMPARE(bar->minimum(), 0);
            QCOMPARE(bar->maximum(), 100);
            QVERIFY(!bar->isVisible());
            QVERIFY(!screen->findChild<QLabel*>(QStringLiteral("Label3"))->isVisible());
        }
        QVERIFY(m_folder->prompt.asked().isEmpty());
    }

    void selPathHandsTheChosenFolderToText2() {
        FRM_BACK_UP screen(*m_folder->program);
        screen.show();
        const QString backups = path(QStringLiteral("backups"));
        bool dialogSeen = false;
        QTimer::singleShot(0, this, [&] {
            auto* dialog = qobject_cast<frm_sel_path*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialogSeen = true;
            auto* label = dialog->findChild<QLabel*>(QStringLiteral("Label1"));
            QVERIFY(label->text().startsWith(QStringLiteral("Current Selected Path ...\n")));
            choose(dialog->findChild<FolderTree*>(QStringLiteral("Dir1")), backups);
            QCOMPARE(label->text(), QStringLiteral("Current Selected Path ...\n") + backups);
            QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("SelectButton")), Qt::LeftButton);
        });
        QTest::mouseClick(screen.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QVERIFY(dialogSeen);
        QCOMPARE(screen.findChild<QLineEdit*>(QStringLiteral("Text2"))->text(), backups);
    }

    // The backup from the frame's menu closes its child window when it is done.
    void backupAndRestoreThroughTheScreens() {
        const QString backups = path(QStringLiteral("backups"));
        MDIForm1View frame(*m_folder->program);
        frame.show();
        frame.action(QStringLiteral("mnu_backup"))->trigger();
        const QPointer<QMdiSubWindow> holder = frame.mdiArea()->activeSubWindow();
        QVERIFY(holder);
        QWidget* backUp = holder->widget();
        QTest::keyClicks(backUp->findChild<QLineEdit*>(QStringLiteral("Text2")), backups);
        QTest::mouseClick(backUp->findChild<QPushButton*>(QStringLiteral("but_gen_rpt")), Qt::LeftButton);
        QTRY_VERIFY(holder.isNull());
        const QString file = QDir(backups).filePath(BackUp::kFileName);
        QVERIFY(QFileInfo::exists(file));

        ProgramFolder fresh(path(QStringLiteral("fresh")));
        FRM_RESTORE restore(*fresh.program);
        QSignalSpy restored(&restore, &FRM_RESTORE::restored);
        restore.show();
        choose(restore.findChild<FolderTree*>(QStringLiteral("Dir1")), backups);
        choose(restore.findChild<FileList*>(QStringLiteral("File1")), file);
        QCOMPARE(restore.findChild<QLabel*>(QStringLiteral("Label1"))->text(), file);
        QTest::mouseClick(restore.findChild<QPushButton*>(QStringLiteral("CMD_RESTORE")), Qt::LeftButton);
        QCOMPARE(restored.count(), 1);
        QVERIFY(!restore.isVisible());
        QCOMPARE(fresh.program->frame().cmbportfolio.items,
                 (QStringList{QStringLiteral("Simulation"), QStringLiteral("Growth")}));
        QCOMPARE(fresh.prompt.messages(), QStringList{});
    }

    void escapeClosesTheBackupScreen() {
        FRM_BACK_UP screen(*m_folder->program);
        screen.show();
        QTest::keyClick(screen.findChild<QLineEdit*>(QStringLiteral("Text2")), Qt::Key_Escape);
        QVERIFY(!screen.isVisible());
    }

    void menuItemsOpenTheScreens_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("caption");
        QTest::newRow("backup") << QStringLiteral("mnu_backup") << QStringLiteral("FRM_BACK_UP")
                                << QStringLiteral("BackUP Database");
        QTest::newRow("restore") << QStringLiteral("mnu_restore") << QStringLiteral("FRM_RESTORE")
                                 << QStringLiteral("Restore Database");
    }
    void menuItemsOpenTheScreens() {
        QFETCH(QString, item);
        QFETCH(QString, screen);
        QFETCH(QString, caption);
        MDIForm1View frame(*m_folder->program);
        frame.show();
        QAction* action = frame.action(item);
        QVERIFY(action);
        QCOMPARE(action->text(), caption);
        QVERIFY(action->isEnabled());
        action->trigger();
        QMdiSubWindow* child = frame.mdiArea()->activeSubWindow();
        QVERIFY(child);
        QCOMPARE(child->widget()->objectName(), screen);
        QVERIFY(child->isVisible());
    }

private:
    QString path(const QString& name) const { return QDir(m_root).filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_root;
    std::unique_ptr<ProgramFolder> m_folder;
};

QTEST_MAIN(BackupScreenTest)
#include "backup_screen_test.moc"
