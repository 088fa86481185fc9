// Test runner with a QApplication (fonts and widgets need one), sealed from the machine's fonts,
// settings, data and caches.
#include <QApplication>

#include <gtest/gtest.h>

#include "ambiente_chiuso.h"

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir casa;
    ChiudiAmbiente(casa);
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
