#include "charts/mfunctions.h"

#include <QEventLoop>
#include <QTimer>

#include "charts/profile_file.h"
#include "runtime/apppath.h"
#include "runtime/prompt.h"
#include "runtime/trap.h"
#include "safety/whole_file.h"

namespace ostravel {

namespace {

// The profile calls hand over at most this many characters, as the program's buffer holds.
constexpr qsizetype kBufferLength = 2000;

// The default file, line by line; "" is a blank line.
const char* const kDefaultLines[] = {
    "[DataInfo]",
    "Symbol=",
    "",
    "[Settings]",
    "LastFile=",
    "BackColor=0",
    "ForeColor=16777215",
    "GridColor=10066329",
    "MouseLabelColor=65535",
    "TicColor=65408",
    "OpenColor=65280",
    "CloseColor=16777215",
    "TicType=3",
    "TicCandleUpColor=65280",
    "TicCandleDnColor=255",
    "VolColor=65280",
    "FontName=Verdana",
    "FontSize=10",
    "FontBold=-1",
    "FontItalic=0",
    "DateMarkerColor=255",
    "CrossHairMode=15",
    "CrossHairColor=16711680",
    "BlankSpace=10",
    "BarSpacing=3",
    "ScrollIncrement=10",
    "WindowSplit1=430",
    "WindowSplit2=480",
    "CurrentIndicator=MACD",
    "",
    "[DLSettings]",
    "DataDir=\\Data",
    "LastURL=",
    "Source=0",
    "",
    "[Indicators]",
    "1=CCI",
    "2=MACD",
    "3=ROC%",
    "4=RSI",
    "5=STOCH",
    "",
    "[CciSettings]",
    "CciColor=15655586",
    "CciAvgColor=13436626",
    "CciLen=13",
    "CciAvgLen=3",
    "CciAvgAvgLen=5",
    "PlotWidth=1",
    "CciUpperTrig=200",
    "CciLowerTrig=-150",
    "",
    "[MACDSettings]",
    "MACDColor1=255",
    "MACDColor2=16711680",
    "MACDColor3=12100980",
    "PlotWidth=2",
    "MACDLen1=13",
    "MACDLen2=34",
    "MACDLen3=9",
    "",
    "[ROC%Settings]",
    "ROC%Color=255",
    "PlotWidth=1",
    "ROC%Len=12",
    "ROC%UpperTrig=6.5",
    "ROC%LowerTrig=-6.5",
    "",
    "[RsiSettings]",
    "RsiColor=255",
    "PlotWidth=1",
    "RsiLen=14",
    "RsiUpperTrig=70",
    "RsiLowerTrig=30",
    "",
    "[StochSettings]",
    "StochKColor=255",
    "StochKSlowColor=16711680",
    "StochDColor=12100980",
    "PlotWidth=1",
    "KPeriod=14",
    "KPeriodSlow=4",
    "DPeriod=3",
    "StochUpperTrig=70",
    "StochLowerTrig=30",
    "StochSlow=true",
    "",
    "[AvgSettings]",
    "AvgLen1=21",
    "AvgColor1=255",
    "AvgWidth1=1",
    "AvgLen2=50",
    "AvgColor2=16711680",
    "AvgWidth2=1",
    "AvgLen3=200",
    "AvgColor3=65535",
    "AvgWidth3=1",
    "",
};

// The key list as the profile call fills the buffer: names each ended by a null, cut so that
// two nulls still fit, and read back up to the first empty piece.
QStringList keyList(const QString& file, const QString& section) {
    QString buffer;
    for (const QString& key : ProfileFile::read(file).keys(section)) buffer += key + QChar(0);
    if (buffer.size() > kBufferLength - 1)
        buffer = buffer.left(kBufferLength - 2) + QChar(0);
    QStringList pieces = buffer.split(QChar(0));
    const qsizetype empty = pieces.indexOf(QString());
    return empty < 0 ? pieces : pieces.mid(0, empty);
}

}  // namespace

QString chartIniPath() {
    return appFile(QStringLiteral("Chart.INI"));
}

QString GetIni(const QString& file, const QString& section, const QString& key) {
    return ProfileFile::read(file).value(section, key).value_or(QString()).left(kBufferLength);
}

void WriteIni(const QString& file, const QString& section, const QString& key, const QString& value) {
    ProfileFile profile = ProfileFile::read(file);
    profile.setValue(section, key, value);
    passedOver([&] { profile.write(file, QStringLiteral("WriteIni")); });
}

std::int16_t GetNumIniKeys(const QString& file, const QString& section) {
    return static_cast<std::int16_t>(keyList(file, section).size());
}

QString GetIniKey(const QString& file, const QString& section, int n) {
    const QStringList keys = keyList(file, section);
    return n >= 1 && n <= keys.size() ? keys.at(n - 1) : QString();
}

QByteArray defaultIniText() {
    QByteArray text;
    for (const char* line : kDefaultLines) text += QByteArray(line) + "\r\n";
    return text;
}

void MakeIniFile(const QString& file) {
    replaceFile(file, defaultIniText(), QStringLiteral("MakeIniFile"));
}

void BackupIniFile(Prompt& prompt, const QString& file) {
    replaceFile(file + QStringLiteral(".BAK"), readWholeFile(file, QStringLiteral("Backup INI")),
                QStringLiteral("Backup INI"));
    prompt.message(QStringLiteral("INI File was BackedUp to .BAK in the App Dir..."), Buttons::OK, Icon::None,
                   QStringLiteral("INI BackUp Complete"));
}

bool ConfirmIniReset(Prompt& prompt) {
    const Answer answer =
        prompt.message(QStringLiteral("Are you sure you want to reset current settings?\nThis will be permanent..."),
                       Buttons::YesNoDefaultNo, Icon::Question, QStringLiteral("Reset to Defaults"));
    return answer != Answer::No;
}

void CenterDlgBox(Prompt& prompt, const QObject* owner) {
    prompt.centreNextOn(owner);
}

Answer CntrMsgBox(Prompt& prompt, const QObject* owner, const QString& text, Buttons buttons, const QString& title) {
    CenterDlgBox(prompt, owner);
    return prompt.message(text, buttons, Icon::None, title);
}

std::int32_t GetColorDlg(Prompt& prompt, std::int32_t current, const QObject* owner) {
    CenterDlgBox(prompt, owner);
    const std::optional<std::uint32_t> chosen = prompt.chooseColour(static_cast<std::uint32_t>(current));
    return chosen ? static_cast<std::int32_t>(*chosen) : current;
}

void Delay(double seconds) {
    // A loop of its own that sleeps until the clock or an event wakes it.
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace ostravel
