// The navigator: each item's page and label for an NSE and a BSE code, the screens it shows,
// the empty selection and an unset host.
#include "context/screens.h"
#include "market/frmbrowser.h"
#include "market/frmexplore.h"
#include "position/advice.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

const QString kNse = QStringLiteral("OSTA.NS");
const QString kBse = QStringLiteral("500325.BO");

class NavigatorTest : public MarketTest {
protected:
    NavigatorTest() {
        writeHosts({"chart=chart.test", "finance=fin.test", "site=site.test", "forum=forum.test:8080", "[Sites]",
                    "nse=nse.test", "bse=bse.test", "icicidirect=icici.test", "icicidirectnews=content.icici.test",
                    "sharekhan=sk.test", "motilaloswal=mo.test", "investmentz=inv.test", "indiabulls=ib.test",
                    "localnews=news.fin.test", "agencychart=agency.test"});
        Database& db = m_program.store().database();
        db.execute(
            QStringLiteral("insert into qoutense (ticker, name, yahoonse) values ('OSTA', 'Osta Ltd', '500209')"));
        db.execute(
            QStringLiteral("insert into qoutense (ticker, name, yahoonse) values ('500325.BO', 'Reliance', '500325')"));
    }
    // Clicks the item with the code in work; the page frmBrowser was sent to, or "" for none.
    QString click(const QString& code, const QString& caption) {
        m_program.frame().cmbequity = code;
        FrmBrowser& browser = m_program.module<FrmBrowser>();
        browser.startingAddress.clear();
        ctxOutlookBar1_ItemClick(m_program, caption);
        return browser.startingAddress;
    }
    const QStringList& shown() { return m_program.module<Screens>().shown(); }
};

TEST_F(NavigatorTest, EachItemOpensItsPageOrScreenWithItsLabel) {
    holdGrowth({{QStringLiteral("OSTA"), 100, 10, 1000, 10, 100, 1000}});
    struct Row {
        const char *code, *caption, *page, *label;  // a page's address, or the screen shown
    };
    const Row rows[] = {
        {"OSTA.NS", "Portfolio Explorer", "Portfolioexplorer", "Browse Portfolio detail of  OSTA"},
        {"OSTA.NS", "Equity Manager", "equitymanager", "Equity Manager for OSTA"},
        {"OSTA.NS", "Trade History", "frmtradehistory", "Trade Histroy of OSTA"},
        {"OSTA.NS", "User Options", "websetting", "User setting"},
        {"OSTA.NS", "Lomarque News", "frmNewsBar", ""},
        {"OSTA.NS", "Intra Day Chart", "http://chart.test/b?s=osta", "Intra Day Price Chart of OSTA"},
        {"OSTA.NS", "Chart 1 Year", "http://chart.test/c/1y/a/osta", "1 Year daily chart"},
        {"OSTA.NS", "Chart 5 Year", "http://chart.test/c/5y/a/osta", "5 Year Weekly Chart"},
        {"OSTA.NS", "Technical analysis",
         "http://chart.test/z?s=OSTA&t=1y&q=c&l=on&z=m&p=m200,m50,b,v&a=m26-12-9,f14,p12,r14", "Technical analysis"},
        {"OSTA.NS", "NSE Sensex", "http://chart.test/b?s=%5ENSEI", "NSE Online Chart"},
        {"OSTA.NS", "Volume Leaders", "http://fin.test/mnvl?e=NS", "Volume Leaders"},
        {"OSTA.NS", "Gainers", "http://fin.test/mnng?e=NS", "Gainers"},
        {"OSTA.NS", "Market Digest", "http://fin.test/m4", "Advance Decline"},
        {"OSTA.NS", "Yahoo News", "http://news.fin.test/local/", "Yahoo News"},
        {"OSTA.NS", "Icicidirect", "https://icici.test/customer/logon.asp", "Icicidirect Online Trading"},
        {"OSTA.NS", "Sharekhan", "https://sk.test/DisplayLoginServlet.sk", "Sharekhan Online Trading"},
        {"OSTA.NS", "Investmentz", "http://inv.test/scripts/login.asp", "Investmentz online Trading"},
        {"OSTA.NS", "Motilaloswal", "http://mo.test/missedlogin.asp", "Motilaloswal online trading"},
        {"OSTA.NS", "IndiaBulls", "https://ib.test/login/loginstart.jsp", "IndiaBulls"},
        {"OSTA.NS", "Others", "http://site.test/profile/Online_Trading_NSE_members.htm", "More Online Trading"},
        {"OSTA.NS", "Icicidirect-News", "http://content.icici.test/news/news.asp", "Icicidirect News"},
        {"OSTA.NS", "Forum Home", "http://forum.test:8080/", "Indian stock Discussion Forum"},
        {"OSTA.NS", "Pager", "http://forum.test:8080/#", "Pager Chat"},
        {"OSTA.NS", "Online Help", "http://site.test/profile/manual.htm", "Online Help"},
        {"M&M.NS", "Intra Day Chart", "http://chart.test/b?s=m%26m", "Intra Day Price Chart of M&M"},
        // The dispatcher's captions that the bar doesn't offer, branched by market.
        {"OSTA.NS", "Stock Quote", "http://nse.test/marketinfo/equities/cmquote.jsp?key=OSTAEQN&symbol=OSTA&flag=0",
         "Details of "},
        {"500325.BO", "Stock Quote", "http://bse.test/price_finder/stockreach.asp?scripcd=500325", "Details of "},
        {"OSTA.NS", "Company Results", "http://nse.test/marketinfo/companyinfo/eod/corp_res.jsp?symbol=OSTA",
         "Company Results of  "},
        {"500325.BO", "Company Results", "http://bse.test/qresann/result.asp?scripcd=500325&scripname=500325",
         "Company Results of  "},
        {"500325.BO", "Company Announcement",
         "http://bse.test/qresann/announcecom.asp?scrip_cd=500325&scripname=500325", " Announcement "},
        {"OSTA.NS", "Board Meeting", "http://nse.test/marketinfo/companyinfo/eod/boardmeeting.jsp?symbol=OSTA",
         "  Board Meeting"},
        {"OSTA.NS", "Technical Yahoo n Year",
         "http://chart.test/z?s=500209.bo&a=m26-12-9,r14&p=e50,e200,v&t=my&l=off&z=l&q=l&i=in",
         "Technical Anlaysis of "},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(std::string(r.code) + " " + r.caption);
        m_program.frame().panel6.clear();
        const QString page = QString::fromLatin1(r.page);
        const bool web = page.startsWith(QLatin1String("http"));
        EXPECT_EQ(click(QString::fromLatin1(r.code), QString::fromLatin1(r.caption)), web ? page : QString());
        EXPECT_EQ(m_program.frame().panel6, QString::fromUtf8(r.label));
        EXPECT_EQ(shown().back(), web ? QStringLiteral("frmBrowser") : page);
    }
    EXPECT_TRUE(m_prompt.messages().isEmpty());
    EXPECT_EQ(m_program.frame().caption, QStringLiteral("Osta Ltd"));  // the last code's company
}

TEST_F(NavigatorTest, EveryItemOfTheBarHasAnAction) {
    for (const NavGroup& group : navigatorGroups())
        for (const QString& item : group.items) EXPECT_TRUE(navAction(item, {}).known()) << item.toStdString();
}

TEST_F(NavigatorTest, AnEmptySelectionGivesTheMessageAndNothingElse) {
    m_program.frame().panel6 = QStringLiteral("before");
    int focused = 0;
    m_program.module<AdviceValues>().focusCmbequityname = [&] { ++focused; };
    for (const char* caption : {"Online Help", "Portfolio Explorer"})
        EXPECT_EQ(click(QString(), QString::fromLatin1(caption)), QString());
    EXPECT_EQ(m_prompt.messages(), QStringList(2, kSelectCompany));
    EXPECT_EQ(focused, 2);
    EXPECT_TRUE(shown().isEmpty());
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("before"));
}

TEST_F(NavigatorTest, AnUnsetHostOrABseBoardMeetingIsToldAndNoPageOpens) {
    writeHosts({"chart="});
    const std::tuple<QString, QString, QString> cases[] = {
        {kNse, "Chart 1 Year",
         "The address of this page is not set: give the host \"chart\" under [Hosts] in hosts.ini."},
        {kBse, "Board Meeting", "No data Available"}};
    for (const auto& [code, caption, message] : cases) {
        m_prompt.clear();
        EXPECT_EQ(click(code, caption), QString());
        EXPECT_EQ(m_prompt.messages(), QStringList{message});
        EXPECT_TRUE(shown().isEmpty());
    }
}

TEST_F(NavigatorTest, KeptLosersLabelledLoosers) {
    EXPECT_EQ(click(kNse, QStringLiteral("Losers")), QStringLiteral("http://fin.test/mnnl?e=NS"));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Loosers"));
}

TEST_F(NavigatorTest, KeptBseSensexLabelNamesNoStock) {
    EXPECT_EQ(click(kNse, QStringLiteral("BSE Sensex")), QStringLiteral("http://chart.test/b?s=%5EBSESN"));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Intra Day Price Chart of "));
}

TEST(BuiltInView, RunsAsRootOnlyWithItsSandboxOff) {
    struct Row {
        bool root;
        const char* flags;
        bool switchedOff, runs;
    };
    const Row rows[] = {{false, "", false, true},
                        {true, "", false, false},
                        {true, "--disable-gpu", false, false},
                        {true, "--disable-gpu --no-sandbox", false, true},
                        {true, "--no-sandboxes", false, false},
                        {true, "", true, true}};
    for (const Row& r : rows)
        EXPECT_EQ(builtInViewCanRun(r.root, r.flags, r.switchedOff), r.runs) << r.root << " " << r.flags;
}

}  // namespace
}  // namespace ostravel::test
