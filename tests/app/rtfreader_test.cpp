#include "context/rtfreader.h"

#include <gtest/gtest.h>

namespace ostravel {
namespace {

struct RtfCase {
    const char* rtf;
    const char* mustContain;
    const char* mustNotContain;
};

TEST(RtfReader, ShowsTextAndPassesOverDestinations) {
    const RtfCase cases[] = {
        {R"({\rtf1\ansi{\fonttbl{\f0 Arial;}}\f0 Hello\par World})", "Hello</span></p>", "Arial"},
        {R"({\rtf1{\colortbl;\red255\green0\blue0;}Plain})", "Plain", "red255"},
        {R"({\rtf1 \b Bold\b0  normal})", "font-weight:bold;\">Bold", nullptr},
        {R"({\rtf1 {\i slanted} upright})", "font-style:italic;\">slanted", nullptr},
        {R"({\rtf1 \fs28 Big})", "font-size:14pt", nullptr},
        {R"({\rtf1 Rs.\'a0100})",
         "Rs.\xc2\xa0"
         "100",
         nullptr},
        {R"({\rtf1 a\{b\}c\\d})", "a{b}c\\d", nullptr},
        {R"({\rtf1 \u8377?100})",
         "\xe2\x82\xb9"
         "100",
         "?"},
        {R"({\rtf1 {\*\generator Writer;}Text})", "Text", "Writer"},
        {R"({\rtf1 x < y & z})", "x &lt; y &amp; z", nullptr},
        {"not rich text\nsecond", "<p><span style=\"font-size:12pt;\">second", nullptr},
    };
    for (const RtfCase& c : cases) {
        const QString html = rtfToHtml(QByteArray(c.rtf));
        EXPECT_TRUE(html.contains(QString::fromUtf8(c.mustContain))) << c.rtf << "\n" << html.toStdString();
        if (c.mustNotContain) {
            EXPECT_FALSE(html.contains(QString::fromUtf8(c.mustNotContain))) << c.rtf << "\n" << html.toStdString();
        }
    }
}

TEST(RtfReader, UnbalancedBracesDoNotCrash) {
    EXPECT_NO_THROW(rtfToHtml(QByteArray("{\\rtf1 }}}} text {{{")));
    EXPECT_NO_THROW(rtfToHtml(QByteArray("{\\rtf1 \\'")));
}

}  // namespace
}  // namespace ostravel
