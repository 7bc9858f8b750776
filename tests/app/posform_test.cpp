#include "context/posform.h"

#include <gtest/gtest.h>

namespace ostravel {
namespace {

TEST(PosForm, RightOfTheNavigatorOrTheWholeArea) {
    struct Case {
        std::optional<QRect> navigator;
        QSize client;
        QRect expected;
    };
    const Case cases[] = {
        {std::nullopt, QSize(1000, 700), QRect(0, 0, 1000, 700)},
        {QRect(0, 0, 200, 650), QSize(1000, 700), QRect(200, 0, 800, 650)},
        {QRect(10, 20, 150, 600), QSize(900, 700), QRect(160, 20, 750, 600)},
    };
    for (const Case& c : cases) EXPECT_EQ(posForm(c.navigator, c.client), c.expected);
}

}  // namespace
}  // namespace ostravel
