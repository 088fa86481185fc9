#include "support/varie.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include "support/frmsplash.h"
#include "support/stringhe.h"

namespace {

struct Filtro {
    QStringList famiglie;
    QStringList barcode;
};

TEST(CaricaFont, SoloFamiglieORB) {
    const Filtro casi[] = {
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
    ASSERT_TRUE(cartella.isValid());
    const QString percorso = cartella.filePath(QStringLiteral("ITALIANO.LNG"));
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    krt::CancellaFile(percorso);
    EXPECT_FALSE(QFile::exists(percorso));
    krt::CancellaFile(percorso);       // missing
    krt::CancellaFile(cartella.path());  // a folder
    krt::CancellaFile(QString());
    EXPECT_TRUE(QFileInfo(cartella.path()).isDir());
}

TEST(FrmSplash, MostraLaStringa300NellaLinguaCorrente) {
    for (const std::int16_t offset : {krt::kOffsetInglese, krt::kOffsetItaliano}) {
        krt::ImpostaOffsetLingua(offset);
        krt::frmSplash splash;
        const auto* etichetta = splash.findChild<QLabel*>(QStringLiteral("labMessaggio"));
        ASSERT_NE(etichetta, nullptr);
        EXPECT_EQ(etichetta->text(), krt::CaricaStringa(300));
        EXPECT_TRUE(splash.windowFlags().testFlag(Qt::SplashScreen));
    }
    krt::ImpostaOffsetLingua(krt::kOffsetInglese);
}

}  // namespace
