// Test runner with a QApplication (fonts and widgets need one), sealed from the machine: no
// font of the system or the user (barcode fonts installed there would answer to the families
// the tests expect missing), and settings, data and caches in a folder of the run.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir casa;
    QFile conf(casa.filePath(QStringLiteral("fonts.conf")));
    if (conf.open(QIODevice::WriteOnly))
        conf.write(QStringLiteral("<?xml version=\"1.0\"?>\n<fontconfig><cachedir>%1</cachedir></fontconfig>\n")
                       .arg(casa.filePath(QStringLiteral("cache-font")))
                       .toUtf8());
    conf.close();
    qputenv("FONTCONFIG_FILE", conf.fileName().toLocal8Bit());
    for (const char* variabile : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CACHE_HOME"}) {
        const QString cartella = casa.filePath(QString::fromLatin1(variabile));
        QDir().mkpath(cartella);
        qputenv(variabile, cartella.toLocal8Bit());
    }
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
