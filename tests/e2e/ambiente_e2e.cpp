#include "ambiente_e2e.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QTest>
#include <QTextBlock>

namespace {
int fontCaricati = 0;
}

int FontDiProvaCaricati() { return fontCaricati; }

FinestraE2E::FinestraE2E() {
    qputenv("KRT_DATA_DIR", cartella.path().toLocal8Bit());
    finestra = std::make_unique<krt::frmPrincipale>(krt::ServiziFinestra{[](auto...) {}, {}, {}, {}});
    finestra->Avvia();
    auto trova = [this](auto*& controllo, const char* nome) {
        controllo = finestra->findChild<std::remove_reference_t<decltype(*controllo)>*>(QString::fromLatin1(nome));
        EXPECT_NE(controllo, nullptr) << nome;
    };
    trova(txtCodice, "txtCodice");
    trova(txtDimensione, "txtDimensione");
    trova(cmbSimbologia, "cmbSimbologia");
    trova(cmbStile, "cmbStile");
    trova(chkDigit, "chkDigit");
    trova(rtfContenuto, "rtfContenuto");
    trova(labScansione, "labScansione");
    trova(cmdClipboard, "cmdClipboard");
}

void FinestraE2E::Genera(const char* voce, const char* stile, bool check, const char* contenuto) {
    cmbSimbologia->setCurrentIndex(cmbSimbologia->findText(QString::fromUtf8(voce)));
    EXPECT_EQ(cmbSimbologia->currentText().toStdString(), voce);
    const int indiceStile = cmbStile->findText(QString::fromUtf8(stile));
    if (indiceStile >= 0) cmbStile->setCurrentIndex(indiceStile);
    if (chkDigit->isEnabled() && chkDigit->isChecked() != check) chkDigit->click();
    txtCodice->setText(QString::fromUtf8(contenuto));
    QTest::keyClick(txtCodice, Qt::Key_Return);
    QCoreApplication::processEvents();
}

QString FinestraE2E::FamigliaBarre() const {
    return rtfContenuto->document()->begin().begin().fragment().charFormat().fontFamilies().toStringList().value(0);
}

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
