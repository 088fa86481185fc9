#include "ambiente_e2e.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>

namespace {
int fontCaricati = 0;
}

int FontDiProvaCaricati() { return fontCaricati; }

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Fontconfig sees the test fonts alone (barcode fonts installed on the machine would answer
    // to the same family names), with the light hinting of a desktop: full hinting rounds the
    // glyph advances and with them the modules.
    QTemporaryDir fontconfig;
    const QString cartellaFont = QDir(qEnvironmentVariable("KRT_FONT_TEST")).absolutePath();
    QFile conf(fontconfig.filePath(QStringLiteral("fonts.conf")));
    if (conf.open(QIODevice::WriteOnly))
        conf.write(QStringLiteral("<?xml version=\"1.0\"?>\n<fontconfig><dir>%1</dir><cachedir>%2</cachedir>"
                                  "<match target=\"font\"><edit name=\"hintstyle\"><const>hintslight</const></edit></match>"
                                  "</fontconfig>\n")
                       .arg(cartellaFont, fontconfig.filePath(QStringLiteral("cache")))
                       .toUtf8());
    conf.close();
    qputenv("FONTCONFIG_FILE", conf.fileName().toLocal8Bit());
    QApplication app(argc, argv);
    for (const QString& nome : QDir(cartellaFont).entryList({QStringLiteral("*.ttf")}, QDir::Files))
        if (QFontDatabase::addApplicationFont(QDir(cartellaFont).filePath(nome)) >= 0) ++fontCaricati;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
