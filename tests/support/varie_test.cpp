#include "support/varie.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

TEST(CaricaFont, SoloFamiglieORB) {
    const struct {
        QStringList famiglie, barcode;
    } casi[] = {
        {{}, {}},
        {{"Arial", "DejaVu Sans"}, {}},
        {{"ORB39", "Arial", "ORB128 Short", "ORBEAN"}, {"ORB39", "ORB128 Short", "ORBEAN"}},
        {{"orb39", "Orb93", "oRB11", " ORB39", "XORB"}, {}},
        {{"ORB", "ORBX"}, {"ORB", "ORBX"}},
        {{"ORB39 [Foundry]", "ORB39 [Altra]", "ORB93"}, {"ORB39", "ORB93"}},
        {{"ORB25 ITF", "ORB39", "ORB25 ITF"}, {"ORB25 ITF", "ORB39"}},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::FiltraFamiglieBarcode(c.famiglie), c.barcode) << c.famiglie.join(u',').toStdString();
}

TEST(CancellaFile, IgnoraOgniErrore) {
    QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("ITALIANO.LNG"));
    ASSERT_TRUE(QFile(percorso).open(QIODevice::WriteOnly));
    krt::CancellaFile(percorso);
    EXPECT_FALSE(QFile::exists(percorso));
    for (const QString& altro : {percorso, cartella.path(), QString()})
        krt::CancellaFile(altro);  // missing, a folder, none
    EXPECT_TRUE(QFileInfo(cartella.path()).isDir());
}

}  // namespace
