// The windows need an application object for the whole test program.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    // Listing the tests at build time runs without the test's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
