// Chart.INI: the default file's bytes, the profile calls' behaviours, the settings' load and
// save, the classes' keys, the backup and the reset.
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

#include "charts/chart_settings.h"
#include "charts/indicators/cci.h"
#include "charts/indicators/expmovavg.h"
#include "charts/indicators/movavg.h"
#include "charts/indicators/stoch.h"
#include "charts/mfunctions.h"
#include "runtime/scripted_prompt.h"
#include "runtime/vberror.h"
#include "tests/support/qstring_printer.h"
#include "tests/support/raised.h"

namespace ostravel::test {
namespace {

class ChartIni : public ::testing::Test {
protected:
    ChartIni() { MakeIniFile(file); }
    QByteArray bytes() const {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QString get(const char* section, const char* key) const {
        return GetIni(file, QString::fromLatin1(section), QString::fromLatin1(key));
    }
    void put(const char* section, const char* key, const QString& value) const {
        WriteIni(file, QString::fromLatin1(section), QString::fromLatin1(key), value);
    }

    QTemporaryDir dir;
    QString file = dir.filePath(QStringLiteral("Chart.INI"));
};

TEST_F(ChartIni, MakeIniFileWritesTheDefaultFileByteForByte) {
    const QByteArray text = bytes();
    EXPECT_EQ(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex(),
              "e66dc8b388f71ffeeb26db94c0b66352f1bd6508dddfd8f158d4ae0f582e534d");
    EXPECT_EQ(text.count("\r\n"), 98);
    EXPECT_EQ(text.count('\n'), text.count("\r\n"));
    EXPECT_TRUE(text.startsWith("[DataInfo]\r\nSymbol=\r\n\r\n[Settings]\r\nLastFile=\r\nBackColor=0\r\n"));
    EXPECT_TRUE(text.endsWith("AvgLen3=200\r\nAvgColor3=65535\r\nAvgWidth3=1\r\n\r\n"));
    // Each section ends in a blank line, and a blank line is nothing else's end.
    const QList<QByteArray> lines = text.split('\n');
    for (qsizetype i = 1; i + 1 < lines.size(); ++i)
        EXPECT_EQ(lines.at(i) == "\r", lines.at(i + 1).startsWith('[') || i + 2 == lines.size()) << i;
}

TEST_F(ChartIni, NamesCompareWithoutRegardToCaseAndWhatIsAbsentReadsEmpty) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"STOCHSettings", "KPeriod", "14"},       {"cciSETTINGS", "ccilen", "13"},
        {"MACDSettings", "PlotWidth", "2"},       {"RsiSettings", "PlotWidth", "1"},
        {"ROC%Settings", "ROC%UpperTrig", "6.5"}, {"Settings", "Missing", ""},
        {"NoSuchSection", "Symbol", ""},          {"DLSettings", "DataDir", "\\Data"}};
    for (const auto& [section, key, value] : rows) EXPECT_EQ(get(section, key), QString::fromLatin1(value)) << key;
    EXPECT_EQ(GetIni(dir.filePath(QStringLiteral("none.INI")), QStringLiteral("Settings"), QStringLiteral("BackColor")),
              QString());
    EXPECT_EQ(GetNumIniKeys(file, QStringLiteral("indicators")), 5);
    EXPECT_EQ(GetNumIniKeys(file, QStringLiteral("NoSuchSection")), 0);
    EXPECT_EQ(GetIniKey(file, QStringLiteral("Indicators"), 3), QStringLiteral("3"));
    EXPECT_EQ(GetIniKey(file, QStringLiteral("Indicators"), 6), QString());
}

TEST_F(ChartIni, WritesChangeInPlaceOrAddAtTheEndOfTheSectionOrFile) {
    put("rsisettings", "rsilen", QStringLiteral("20"));
    put("RsiSettings", "RsiBand", QStringLiteral("x"));
    put("DrawingToolDefaults", "DrawColor", QStringLiteral("255"));
    const QByteArray text = bytes();
    EXPECT_TRUE(
        text.contains("PlotWidth=1\r\nRsiLen=20\r\nRsiUpperTrig=70\r\nRsiLowerTrig=30\r\nRsiBand=x\r\n\r\n"
                      "[StochSettings]"));
    EXPECT_TRUE(text.endsWith("AvgWidth3=1\r\n\r\n[DrawingToolDefaults]\r\nDrawColor=255\r\n"));

    // A value is cut to 2000 characters on reading, and a key list to what 2000 hold.
    put("Long", "Text", QString(2500, QLatin1Char('x')));
    EXPECT_EQ(get("Long", "Text").size(), 2000);
    for (int i = 0; i < 300; ++i) put("Many", QStringLiteral("K%1").arg(i, 8, 10, QLatin1Char('0')).toLatin1(), "1");
    EXPECT_EQ(GetNumIniKeys(file, QStringLiteral("Many")), 200);

    // Nothing can be written where the folder is missing: the file isn't made, without a message,
    // while MakeIniFile raises.
    const QString nowhere = dir.filePath(QStringLiteral("gone/Chart.INI"));
    WriteIni(nowhere, QStringLiteral("Settings"), QStringLiteral("BackColor"), QStringLiteral("1"));
    EXPECT_FALSE(QFile::exists(nowhere));
    EXPECT_EQ(errorOf([&] { MakeIniFile(nowhere); }), err::PathNotFound);
}

TEST_F(ChartIni, SettingsLoadByThePrefixParseAndAnOddKeyDoesntStopTheOthers) {
    put("Settings", "FontSize", QStringLiteral("99999"));  // beyond 16 bits: keeps what it was
    put("Settings", "GridColor", QString());               // empty: 0, black
    put("Settings", "BarSpacing", QStringLiteral("3.75 px"));
    put("Settings", "TicType", QStringLiteral("2.5"));  // whole numbers round half to even
    ChartSettings s;
    s.IniFile = file;
    s.FontSize = 7;
    s.LoadIniSettings();
    EXPECT_EQ(std::tuple(s.ForeColor, s.GridColor, s.FontSize, s.BarSpacing, s.TicType, s.FontBold, s.FontItalic),
              std::tuple(16777215, 0, 7, 3.75f, 2, true, false));
    EXPECT_EQ(std::tuple(s.CurrentIndicator, s.FontName, s.WindowSplit2),
              std::tuple(QStringLiteral("MACD"), QStringLiteral("Verdana"), 480.0f));
}

TEST_F(ChartIni, SaveWritesTheProgramsTextsAndKeepsTheIndicatorTheDialogWrote) {
    ChartSettings s;
    s.IniFile = file;
    s.LoadIniSettings();
    s.BarSpacing = 4;
    s.WindowSplit1 = 430.5f;
    s.FontItalic = true;
    s.BackColor = 255;
    put("Settings", "CurrentIndicator", QStringLiteral("RSI"));  // as the indicator dialog writes it
    s.SaveIniSettings(QStringLiteral("infy"));
    const QByteArray text = bytes();
    for (const char* line : {"Symbol=INFY\r\n", "BackColor=255\r\n", "BarSpacing=4\r\n", "WindowSplit1=430.5\r\n",
                             "FontItalic=-1\r\n", "CurrentIndicator=RSI\r\n", "CrossHairMode=15\r\nCrossHairColor="})
        EXPECT_TRUE(text.contains(line)) << line;
}

TEST_F(ChartIni, KeptAverageKeysSavedAsTheWordsOfTheirExpression) {
    MovAvg average(file);
    average.GetSavedSettings(2);  // AvgLen2 and its neighbours: the second price average
    EXPECT_EQ(std::tuple(average.AvgLen, average.AvgColor, average.AvgWidth), std::tuple(50, 16711680, 1));
    average.SaveCurrentSettings(2);
    ExpMovAvg exp(file);
    exp.ExpAvgLen = 9;
    exp.SaveCurrentSettings(0);
    EXPECT_EQ(get("AvgSettings", "AvgLen & sNum"), QStringLiteral("50"));
    EXPECT_EQ(get("ExpAvgSettings", "ExpAvgLen & sNum"), QStringLiteral("9"));
    EXPECT_EQ(get("ExpAvgSettings", "ExpAvgLen"), QString());
}

TEST_F(ChartIni, KeptCciWritesBackItsFixedPeriodsAndStochItsFlagAsAWord) {
    put("CciSettings", "CciLen", QStringLiteral("20"));
    CCI cci(file);
    cci.GetSavedSettings();
    EXPECT_EQ(cci.CciLen, 20);
    EXPECT_EQ(cci.CciAvgAvgColor, 0);
    cci.Calculate(std::vector<StockRecord>(3));
    cci.SaveCurrentSettings();
    EXPECT_EQ(get("CciSettings", "CciLen"), QStringLiteral("13"));

    Stoch stoch(file);
    stoch.GetSavedSettings();
    EXPECT_TRUE(stoch.StochSlow);
    stoch.SaveCurrentSettings(1);
    EXPECT_EQ(get("StochSettings", "StochSlow1"), QStringLiteral("True"));
    EXPECT_EQ(get("StochSettings", "KPeriodSlow1"), QStringLiteral("4"));
}

TEST_F(ChartIni, BackupCopiesTheFileAndResetAsksFirstThenDropsEveryEdit) {
    ScriptedPrompt prompt;
    put("DrawingToolDefaults", "DrawColor", QStringLiteral("255"));
    BackupIniFile(prompt, file);
    QFile backup(file + QStringLiteral(".BAK"));
    ASSERT_TRUE(backup.open(QIODevice::ReadOnly));
    EXPECT_EQ(backup.readAll(), bytes());
    ASSERT_EQ(prompt.asked().size(), 1);
    EXPECT_EQ(prompt.asked().at(0).text, QStringLiteral("INI File was BackedUp to .BAK in the App Dir..."));
    EXPECT_EQ(prompt.asked().at(0).title, QStringLiteral("INI BackUp Complete"));

    prompt.answer(Answer::No);
    prompt.answer(Answer::Yes);
    EXPECT_FALSE(ConfirmIniReset(prompt));
    EXPECT_TRUE(ConfirmIniReset(prompt));
    EXPECT_EQ(prompt.asked().at(1).text,
              QStringLiteral("Are you sure you want to reset current settings?\nThis will be permanent..."));
    EXPECT_EQ(prompt.asked().at(1).title, QStringLiteral("Reset to Defaults"));
    EXPECT_EQ(prompt.asked().at(1).buttons, Buttons::YesNoDefaultNo);
    MakeIniFile(file);
    EXPECT_EQ(bytes(), defaultIniText());
    EXPECT_EQ(get("DrawingToolDefaults", "DrawColor"), QString());
}

}  // namespace
}  // namespace ostravel::test
