// The main of the charts' GoogleTest programs that draw: pictures and fonts need a GUI
// application, on the offscreen platform.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
