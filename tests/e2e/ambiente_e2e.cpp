#include "ambiente_e2e.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFontDatabase>

namespace {
int fontCaricati = 0;
}

int FontDiProvaCaricati() { return fontCaricati; }

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QDir cartellaFont(qEnvironmentVariable("KRT_FONT_TEST"));
    for (const QString& nome : cartellaFont.entryList({QStringLiteral("*.ttf")}, QDir::Files))
        if (QFontDatabase::addApplicationFont(cartellaFont.filePath(nome)) >= 0) ++fontCaricati;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
