#include "runtime/reporterror.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"

namespace ostravel {
namespace {

class ReportErrorTest : public ::testing::Test {
protected:
    void SetUp() override { setAppPath(m_dir.path()); }
    QString log() const {
        QFile f(m_dir.filePath(QStringLiteral("ErrorLog.txt")));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    QTemporaryDir m_dir;
    ScriptedPrompt m_prompt;
    int m_ended = 0;
    ErrorReporter m_reporter{m_prompt, [this] { ++m_ended; }};
};

TEST(ComposeErrorText, HoldsEveryPieceInOrderWithTheLineNumberWhenThereIsOne) {
    EXPECT_EQ(
        composeErrorText({13, QStringLiteral("Type mismatch"), 0}, QStringLiteral("(Form) trade::Sub cmdadd_Click")),
        QStringLiteral("Error 13 in (Form) trade::Sub cmdadd_Click\n"
                       "while running ostravel.exe v1.00.0 (Build 0)\n"
                       "Error = 'Type mismatch'\n"
                       " ( Click 'OK' to continue)    "));
    EXPECT_TRUE(composeErrorText({11, QStringLiteral("Division by zero"), 42},
                                 QStringLiteral("(Module) Module1::Sub getadvise"))
                    .startsWith(QStringLiteral("Error 11 in (Module) Module1::Sub getadvise (Line #: 42)\n")));
}

TEST(ErrorLogEntry, IsAnEmptyLineThenNameDateAndText) {
    const double when = dateSerial(QDate(2026, 11, 21)) + (13 * 3600 + 5 * 60 + 9) / 86400.0;
    EXPECT_EQ(errorLogEntry(QStringLiteral("Error 5 in X"), when),
              QStringLiteral("\nostravel 21/11/2026 13:05:09 Error 5 in X\n"));
}

TEST_F(ReportErrorTest, ShowsTheBoxAndAppendsEachReport) {
    m_prompt.answer(Answer::OK);
    m_prompt.answer(Answer::OK);
    m_reporter.report(VbError(94), QStringLiteral("(Module) Module1::Sub a"));
    m_reporter.report(VbError(3021), QStringLiteral("(Module) Module1::Sub b"));

    ASSERT_EQ(m_prompt.asked().size(), 2);
    const Asked& first = m_prompt.asked().front();
    EXPECT_EQ(first.title, QStringLiteral("Error"));
    EXPECT_EQ(first.buttons, Buttons::OKCancel);
    EXPECT_EQ(first.icon, Icon::Critical);
    EXPECT_TRUE(first.text.contains(QStringLiteral("Error = 'Invalid use of Null'")));

    const QString written = log();
    EXPECT_TRUE(written.startsWith(QStringLiteral("\nostravel ")));
    EXPECT_EQ(written.count(QStringLiteral("\nostravel ")), 2);
    EXPECT_LT(written.indexOf(QStringLiteral("Sub a")), written.indexOf(QStringLiteral("Sub b")));
    EXPECT_EQ(m_ended, 0);
}

TEST_F(ReportErrorTest, CancelEndsTheProgramAfterLogging) {
    m_prompt.answer(Answer::Cancel);
    m_reporter.report(VbError(5), QStringLiteral("(Module) Module1::Sub x"));
    EXPECT_EQ(m_ended, 1);
    EXPECT_TRUE(log().contains(QStringLiteral("Error 5 in (Module) Module1::Sub x")));
}

TEST_F(ReportErrorTest, NumberZeroIsNoError) {
    m_reporter.report(ErrorInfo{0, QString(), 0}, QStringLiteral("(Module) Module1::Sub x"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
    EXPECT_FALSE(QFile::exists(m_dir.filePath(QStringLiteral("ErrorLog.txt"))));
}

TEST_F(ReportErrorTest, ALogThatCantBeWrittenDoesNotStopTheProgram) {
    ASSERT_TRUE(QDir(m_dir.path()).mkdir(QStringLiteral("ErrorLog.txt")));  // a folder in its place
    m_prompt.answer(Answer::OK);
    EXPECT_NO_THROW(m_reporter.report(VbError(13), QStringLiteral("(Module) Module1::Sub x")));
    EXPECT_EQ(m_prompt.asked().size(), 1);
}

TEST_F(ReportErrorTest, TrappedStatementReportsAndGoesOn) {
    m_prompt.answer(Answer::OK);
    int after = 0;
    const bool clean = trapped(m_reporter, QStringLiteral("(Module) Module1::Sub connection"), [] { raise(3021); });
    ++after;
    EXPECT_FALSE(clean);
    EXPECT_EQ(after, 1);
    EXPECT_TRUE(m_prompt.messages().front().contains(QStringLiteral("Error 3021 in (Module) Module1::Sub connection")));
}

}  // namespace
}  // namespace ostravel
