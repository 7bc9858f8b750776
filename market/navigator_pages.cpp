#include "market/navigator_pages.h"

#include <QHash>
#include <QUrl>

#include "context/program.h"
#include "context/screens.h"
#include "market/hosts.h"
#include "position/equitymanager.h"

namespace ostravel {

namespace {

// Where a page lives: the services of [Hosts], and the sites of brokers and exchanges, which
// only the navigator opens, under [Sites].
struct Endpoint {
    const char* section;
    const char* key;
    const char* scheme = "http";
};

constexpr Endpoint kChart{"Hosts", "chart"};
constexpr Endpoint kFinance{"Hosts", "finance"};
constexpr Endpoint kSite{"Hosts", "site"};
constexpr Endpoint kForum{"Hosts", "forum"};
constexpr Endpoint kLocalNews{"Sites", "localnews"};
constexpr Endpoint kAgencyChart{"Sites", "agencychart"};
constexpr Endpoint kNse{"Sites", "nse"};
constexpr Endpoint kBse{"Sites", "bse"};

using Builder = std::function<NavAction(const NavValues&)>;

// A code goes into a query as it is, but for the characters a query can't carry ("M&M").
QString enc(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

NavAction page(const Endpoint& at, const QString& path, const QString& label) {
    NavAction action;
    action.label = label;
    const QString host = hostsIniValue(QString::fromLatin1(at.section), QString::fromLatin1(at.key));
    if (host.isEmpty())
        action.message = QStringLiteral(
                             "The address of this page is not set: give the host \"%1\" under [%2] in "
                             "hosts.ini.")
                             .arg(QString::fromLatin1(at.key), QString::fromLatin1(at.section));
    else
        action.url = QString::fromLatin1(at.scheme) + QStringLiteral("://") + host + path;
    return action;
}

Builder fixedPage(const Endpoint& at, const QString& path, const QString& label) {
    return [=](const NavValues&) { return page(at, path, label); };
}

Builder showing(const char* screen, std::function<QString(const NavValues&)> label) {
    return [=](const NavValues& v) {
        NavAction action;
        action.run = [name = QString::fromLatin1(screen)](Program& program) { program.module<Screens>().show(name); };
        action.label = label ? label(v) : QString();
        return action;
    };
}

// The exchange's pages: a code ending in "bo" is a BSE one, asked by its BSE code.
Builder byMarket(std::function<QString(const NavValues&)> nsePath, std::function<QString(const NavValues&)> bsePath,
                 const QString& label) {
    return [=](const NavValues& v) {
        if (!v.Sym.toLower().endsWith(QLatin1String("bo")))
            return page(kNse, nsePath(v), label);
        if (!bsePath) {
            NavAction none;
            none.message = QStringLiteral("No data Available");
            none.label = label;
            return none;
        }
        return page(kBse, bsePath(v), label);
    };
}

Builder broker(const char* key, const char* scheme, const QString& path, const QString& label) {
    return fixedPage(Endpoint{"Sites", key, scheme}, path, label);
}

QHash<QString, Builder> buildTable() {
    const auto L = [](const char* text) { return QString::fromUtf8(text); };
    const auto small = [](const NavValues& v) { return enc(v.Sym.toLower()); };
    QHash<QString, Builder> t;
    t.insert(L("Portfolio Explorer"), showing("Portfolioexplorer", [](const NavValues& v) {
                 return QStringLiteral("Browse Portfolio detail of  ") + v.Sym;
             }));
    t.insert(L("Equity Manager"), [](const NavValues& v) {
        NavAction action;
        action.run = [](Program& program) {
            program.module<Screens>().show(QStringLiteral("equitymanager"));
            goequitymanager(program);
        };
        action.label = QStringLiteral("Equity Manager for ") + v.Sym;
        return action;
    });
    t.insert(L("Trade History"), showing("frmtradehistory", [](const NavValues& v) {
                 return QStringLiteral("Trade Histroy of ") + v.Sym;
             }));
    t.insert(L("User Options"), showing("websetting", [](const NavValues&) { return QStringLiteral("User setting"); }));
    t.insert(L("Lomarque News"), showing("frmNewsBar", {}));
    t.insert(L("Quick Start"), showing("quick", [](const NavValues&) { return QStringLiteral("Quick help"); }));

    t.insert(L("Intra Day Chart"), [=](const NavValues& v) {
        return page(kChart, QStringLiteral("/b?s=") + small(v), QStringLiteral("Intra Day Price Chart of ") + v.Sym);
    });
    t.insert(L("Chart 1 Year"), [=](const NavValues& v) {
        return page(kChart, QStringLiteral("/c/1y/a/") + small(v), L("1 Year daily chart"));
    });
    t.insert(L("Chart 5 Year"), [=](const NavValues& v) {
        return page(kChart, QStringLiteral("/c/5y/a/") + small(v), L("5 Year Weekly Chart"));
    });
    t.insert(L("Technical analysis"), [=](const NavValues& v) {
        return page(kChart,
                    QStringLiteral("/z?s=") + enc(v.Sym) +
                        QStringLiteral("&t=1y&q=c&l=on&z=m&p=m200,m50,b,v&a=m26-12-9,f14,p12,r14"),
                    L("Technical analysis"));
    });
    t.insert(L("Technical Yahoo n Year"), [=](const NavValues& v) {
        return page(kChart,
                    QStringLiteral("/z?s=") + enc(v.BseCode) +
                        QStringLiteral(".bo&a=m26-12-9,r14&p=e50,e200,v&t=my&l=off&z=l&q=l&i=in"),
                    L("Technical Anlaysis of "));
    });
    t.insert(L("Accumulation"), [=](const NavValues& v) {
        return page(
            kAgencyChart,
            QStringLiteral("/reuters/chartapi/chart_index.asp?chart=468x211&grid=HORZ&display=MOUNTAIN&symbol0=") +
                enc(v.Sym) +
                QStringLiteral("&indicator1=ExponentialMovingAverage%2c9&indicator0=AccumulationDistribution&"
                               "duration=5year&frequency=1week"),
            {});
    });
    // Kept: the BSE Sensex chart is labelled as a stock's intraday chart with no stock named.
    t.insert(L("BSE Sensex"), fixedPage(kChart, L("/b?s=%5EBSESN"), L("Intra Day Price Chart of ")));
    t.insert(L("NSE Sensex"), fixedPage(kChart, L("/b?s=%5ENSEI"), L("NSE Online Chart")));
    t.insert(L("Volume Leaders"), fixedPage(kFinance, L("/mnvl?e=NS"), L("Volume Leaders")));
    t.insert(L("Gainers"), fixedPage(kFinance, L("/mnng?e=NS"), L("Gainers")));
    // Kept: "Losers" is labelled "Loosers".
    t.insert(L("Losers"), fixedPage(kFinance, L("/mnnl?e=NS"), L("Loosers")));
    t.insert(L("Market Digest"), fixedPage(kFinance, L("/m4"), L("Advance Decline")));
    t.insert(L("Yahoo News"), fixedPage(kLocalNews, L("/local/"), L("Yahoo News")));

    t.insert(L("Icicidirect"),
             broker("icicidirect", "https", L("/customer/logon.asp"), L("Icicidirect Online Trading")));
    t.insert(L("Sharekhan"), broker("sharekhan", "https", L("/DisplayLoginServlet.sk"), L("Sharekhan Online Trading")));
    t.insert(L("Investmentz"), broker("investmentz", "http", L("/scripts/login.asp"), L("Investmentz online Trading")));
    t.insert(L("Motilaloswal"),
             broker("motilaloswal", "http", L("/missedlogin.asp"), L("Motilaloswal online trading")));
    t.insert(L("IndiaBulls"), broker("indiabulls", "https", L("/login/loginstart.jsp"), L("IndiaBulls")));
    t.insert(L("Icicidirect-News"), broker("icicidirectnews", "http", L("/news/news.asp"), L("Icicidirect News")));

    t.insert(L("Others"), fixedPage(kSite, L("/profile/Online_Trading_NSE_members.htm"), L("More Online Trading")));
    t.insert(L("Online Help"), fixedPage(kSite, L("/profile/manual.htm"), L("Online Help")));
    t.insert(L("Technical Screener"),
             fixedPage(kSite, L("/profile/Stock_technical_filter.htm"), L("Stock Technical Screener")));
    t.insert(L("Technical Analyser"), fixedPage(kSite, L("/profile/Stock_analyse.htm"), L("Stock Technical Analyser")));
    t.insert(L("Forum Home"), fixedPage(kForum, L("/"), L("Indian stock Discussion Forum")));
    t.insert(L("Pager"), fixedPage(kForum, L("/#"), L("Pager Chat")));
    t.insert(L("Discuss Ostravel"), fixedPage(kForum, L("/forumdisplay.php?f=30"), {}));
    t.insert(L("Stock Query"), fixedPage(kForum, L("/forumdisplay.php?f=5"), L("Your Stock Query")));
    t.insert(L("Free Stock Tips"), fixedPage(kForum, L("/forumdisplay.php?f=8"), L("Free StockTips")));
    t.insert(L("Trading Strategies"), fixedPage(kForum, L("/forumdisplay.php?f=9"), {}));

    using P = std::function<QString(const NavValues&)>;
    const auto nse = [](const char* path) -> P {
        return [=](const NavValues& v) { return QString::fromLatin1(path) + enc(v.Sym); };
    };
    t.insert(L("Stock Quote"), byMarket(
                                   [](const NavValues& v) {
                                       return QStringLiteral("/marketinfo/equities/cmquote.jsp?key=") + enc(v.Sym) +
                                              QStringLiteral("EQN&symbol=") + enc(v.Sym) + QStringLiteral("&flag=0");
                                   },
                                   [](const NavValues& v) {
                                       return QStringLiteral("/price_finder/stockreach.asp?scripcd=") + enc(v.BseCode);
                                   },
                                   L("Details of ")));
    t.insert(L("Company Info"),
             byMarket(
                 nse("/marketinfo/companyinfo/eod/address.jsp?symbol="),
                 [](const NavValues& v) { return QStringLiteral("/qresann/comp_info.asp?scrip_cd=") + enc(v.BseCode); },
                 L("Company Infomation  of  ")));
    t.insert(L("Company Results"), byMarket(
                                       nse("/marketinfo/companyinfo/eod/corp_res.jsp?symbol="),
                                       [](const NavValues& v) {
                                           return QStringLiteral("/qresann/result.asp?scripcd=") + enc(v.BseCode) +
                                                  QStringLiteral("&scripname=") + enc(v.Sym6);
                                       },
                                       L("Company Results of  ")));
    t.insert(L("Share Holding Pattern"), byMarket(
                                             nse("/marketinfo/companyinfo/eod/shareholding.jsp?symbol="),
                                             [](const NavValues& v) {
                                                 return QStringLiteral("/shareholding/shareholding.asp?scripcd=") +
                                                        enc(v.BseCode);
                                             },
                                             L("Share Holding Pattern of ")));
    t.insert(L("Company Announcement"), byMarket(
                                            nse("/marketinfo/companyinfo/eod/announcements.jsp?symbol="),
                                            [](const NavValues& v) {
                                                return QStringLiteral("/qresann/announcecom.asp?scrip_cd=") +
                                                       enc(v.BseCode) + QStringLiteral("&scripname=") + enc(v.Sym6);
                                            },
                                            L(" Announcement ")));
    t.insert(L("Board Meeting"),
             byMarket(nse("/marketinfo/companyinfo/eod/boardmeeting.jsp?symbol="), {}, L("  Board Meeting")));
    return t;
}

}  // namespace

const QList<NavGroup>& navigatorGroups() {
    static const QList<NavGroup> groups = {
        {QStringLiteral("Your portfolio"),
         {QStringLiteral("Portfolio Explorer"), QStringLiteral("Equity Manager"), QStringLiteral("Trade History")}},
        {QStringLiteral("Discussion Forum"), {QStringLiteral("Forum Home")}},
        {QStringLiteral("Stock Analysis"),
         {QStringLiteral("Intra Day Chart"), QStringLiteral("Chart 1 Year"), QStringLiteral("Chart 5 Year"),
          QStringLiteral("Technical analysis")}},
        {QStringLiteral("Trade Stocks online"),
         {QStringLiteral("Icicidirect"), QStringLiteral("Sharekhan"), QStringLiteral("Motilaloswal"),
          QStringLiteral("Investmentz"), QStringLiteral("IndiaBulls"), QStringLiteral("Others")}},
        {QStringLiteral("News"),
         {QStringLiteral("Lomarque News"), QStringLiteral("Icicidirect-News"), QStringLiteral("Yahoo News")}},
        {QStringLiteral("MarketStats"),
         {QStringLiteral("BSE Sensex"), QStringLiteral("NSE Sensex"), QStringLiteral("Volume Leaders"),
          QStringLiteral("Gainers"), QStringLiteral("Losers"), QStringLiteral("Market Digest")}},
        {QStringLiteral("Config-Help"),
         {QStringLiteral("User Options"), QStringLiteral("Pager"), QStringLiteral("Online Help")}},
    };
    return groups;
}

NavAction sitePage(const QString& path) {
    return page(kSite, path, {});
}

NavAction navAction(const QString& caption, const NavValues& values) {
    static const QHash<QString, Builder> table = buildTable();
    const auto it = table.constFind(caption);
    return it == table.constEnd() ? NavAction{} : (*it)(values);
}

}  // namespace ostravel
