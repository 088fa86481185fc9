// From typed content to a decoded symbol: the main window draws the preview with the
// reference test fonts (the folder in KRT_FONT_TEST, one character map per run), the
// barcode paragraphs are rendered to an image and read with the barcode reader, and the
// data must be the content plus the check characters the engine adds. The window's own
// scan line must say the same.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "ambiente_e2e.h"
#include "mainwindow/frmprincipale.h"
#include "mainwindow/scansione.h"
#include "support/stringhe.h"

// Readable failures: QString as text, not as a list of QChar.
void PrintTo(const QString& testo, std::ostream* os) { *os << '"' << testo.toStdString() << '"'; }

namespace {

using namespace krt;


struct Riga {
    const char* voce;      // cmbSimbologia text (English)
    const char* contenuto; // typed in txtCodice
    bool check;            // chkDigit
    const char* formato;   // reader's format name
    const char* atteso;    // data read (UTF-8)
};

// Check characters worked out by hand: Code 39 mod 43, EAN/UPC and 2 of 5 mod 10 with
// weights 3/1, UPC-E through its UPC-A expansion (0123456 -> 01234500006).
constexpr Riga Righe[] = {
    {"Code 39", "KRT-2024", false, "Code39", "KRT-2024"},
    {"Code 39", "ABC_12", true, "Code39", "ABC 12V"},
    {"Code 93", "CODE93", true, "Code93", "CODE93"},
    {"Code 93", "KRT_93/$", true, "Code93", "KRT 93/$"},
    {"Code 93 Full Ascii", "Krt93", true, "Code93", "Krt93"},
    {"Code 128", "Krt-128 abc", false, "Code128", "Krt-128 abc"},
    {"Code 128", "12345678", false, "Code128", "12345678"},
    {"Code 128", "AB1234567", false, "Code128", "AB1234567"},
    {"EAN 128", "0109501101530003", false, "Code128", "0109501101530003"},
    {"EAN 128", "10ABC123\\x8117250101", false, "Code128", "10ABC123\x1D" "17250101"},
    {"EAN 8", "1234567", true, "EAN-8", "12345670"},
    {"EAN 8", "12345670", false, "EAN-8", "12345670"},
    {"EAN 8 Add-on 2", "123456712", true, "EAN-8", "12345670 12"},
    {"EAN 13", "590123412345", true, "EAN-13", "5901234123457"},
    {"EAN 13 Add-on 2", "59012341234512", true, "EAN-13", "5901234123457 12"},
    {"EAN 13 Add-on 5", "59012341234552495", true, "EAN-13", "5901234123457 52495"},
    {"UPC-A", "03600029145", true, "UPC-A", "036000291452"},
    {"UPC-A Add-on 2", "0360002914534", true, "UPC-A", "036000291452 34"},
    {"UPC-A Add-on 5", "0360002914590000", true, "UPC-A", "036000291452 90000"},
    {"UPC-E", "0123456", true, "UPC-E", "01234565"},
    {"UPC-E Add-on 2", "012345612", true, "UPC-E", "01234565 12"},
    {"UPC-E Add-on 5", "012345654321", true, "UPC-E", "01234565 54321"},
    {"ISBN-10", "030640615", true, "EAN-13", "9780306406157"},
    {"ISBN-13", "978030640615", true, "EAN-13", "9780306406157"},
    {"Interleaved 2 of 5", "123456", false, "ITF", "123456"},
    {"Interleaved 2 of 5", "12345", true, "ITF", "123457"},
    {"Interleaved 2 of 5", "1234567890", false, "ITF", "1234567890"},
    {"UCC-ITF 14", "1234567890123", true, "ITF", "12345678901231"},
    {"Codabar/Monarch", "A40156B", false, "Codabar", "A40156B"},
    {"Codabar/Monarch", "c1234d", false, "Codabar", "C1234D"},
};

const char* const Stili[] = {"Normal", "Short"};

class Scansione : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_GT(FontDiProvaCaricati(), 0) << "no test font loaded from KRT_FONT_TEST";
        ASSERT_TRUE(cartella.isValid());
        qputenv("KRT_DATA_DIR", cartella.path().toLocal8Bit());
        finestra = std::make_unique<frmPrincipale>(ServiziFinestra{[](auto...) {}, {}, {}, {}, {}, {}});
        finestra->Avvia();
        txtCodice = finestra->findChild<QLineEdit*>(QStringLiteral("txtCodice"));
        cmbSimbologia = finestra->findChild<QComboBox*>(QStringLiteral("cmbSimbologia"));
        cmbStile = finestra->findChild<QComboBox*>(QStringLiteral("cmbStile"));
        chkDigit = finestra->findChild<QCheckBox*>(QStringLiteral("chkDigit"));
        rtfContenuto = finestra->findChild<QTextEdit*>(QStringLiteral("rtfContenuto"));
        labScansione = finestra->findChild<QLabel*>(QStringLiteral("labScansione"));
        ASSERT_TRUE(txtCodice && cmbSimbologia && cmbStile && chkDigit && rtfContenuto && labScansione);
    }

    // Selects entry, style and check box, types the content and presses Enter; then lets
    // the deferred scan check run.
    void Genera(const char* voce, const char* stile, bool check, const char* contenuto) {
        cmbSimbologia->setCurrentIndex(cmbSimbologia->findText(QString::fromUtf8(voce)));
        ASSERT_EQ(cmbSimbologia->currentText(), QString::fromUtf8(voce));
        const int indiceStile = cmbStile->findText(QString::fromUtf8(stile));
        if (indiceStile >= 0) cmbStile->setCurrentIndex(indiceStile);
        if (chkDigit->isEnabled() && chkDigit->isChecked() != check) chkDigit->click();
        txtCodice->setText(QString::fromUtf8(contenuto));
        QTest::keyClick(txtCodice, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    QString FamigliaBarre() const {
        return rtfContenuto->document()->begin().begin().fragment().charFormat().fontFamilies().toStringList().value(0);
    }

    QTemporaryDir cartella;
    std::unique_ptr<frmPrincipale> finestra;
    QLineEdit* txtCodice = nullptr;
    QComboBox* cmbSimbologia = nullptr;
    QComboBox* cmbStile = nullptr;
    QCheckBox* chkDigit = nullptr;
    QTextEdit* rtfContenuto = nullptr;
    QLabel* labScansione = nullptr;
};

FormatoLettore FormatoDaNome(const std::string& nome) {
    for (FormatoLettore f : {FormatoLettore::Code39, FormatoLettore::Code93, FormatoLettore::Code128,
                             FormatoLettore::EAN8, FormatoLettore::EAN13, FormatoLettore::UPCA, FormatoLettore::UPCE,
                             FormatoLettore::ITF, FormatoLettore::Codabar})
        if (NomeFormato(f) == nome) return f;
    return FormatoLettore::Nessuno;
}

// Every row in both faces: the image of the preview decodes to the hand-worked data,
// and the window's line says so.
TEST_F(Scansione, LeVociLeggibiliSiLeggonoConIDatiAttesi) {
    const QString variante = QDir(qEnvironmentVariable("KRT_FONT_TEST")).dirName();
    for (const Riga& r : Righe) {
        for (const char* stile : Stili) {
            SCOPED_TRACE(testing::Message() << variante.toStdString() << " | " << r.voce << " | " << stile << " | "
                                            << r.contenuto << " | check " << r.check);
            Genera(r.voce, stile, r.check, r.contenuto);
            const QString famiglia = FamigliaBarre();
            ASSERT_TRUE(QFontDatabase::hasFamily(famiglia)) << famiglia.toStdString();

            AttesaScansione attesa;
            attesa.formato = FormatoDaNome(r.formato);
            attesa.addOn = QString::fromUtf8(r.voce).contains(QLatin1String("Add-on"));
            const auto disegno = std::chrono::steady_clock::now();
            const QImage immagine = ImmagineBarre(*rtfContenuto->document(), famiglia);
            const auto inizio = std::chrono::steady_clock::now();
            const LetturaScansione lettura = LeggiImmagine(immagine.constBits(), immagine.width(), immagine.height(),
                                                           static_cast<int>(immagine.bytesPerLine()), attesa);
            using Ms = std::chrono::duration<double, std::milli>;
            const double msDisegno = Ms(inizio - disegno).count();
            const double msLettura = Ms(std::chrono::steady_clock::now() - inizio).count();
            std::printf("%-8s %-20s %-6s %-22s -> %s %s (%dx%d, drawn %.1f ms, read %.1f ms)\n", qPrintable(variante),
                        r.voce, stile, r.contenuto, lettura.letto ? lettura.formato.c_str() : "NOT READ",
                        lettura.testo.c_str(), immagine.width(), immagine.height(), msDisegno, msLettura);
            if (!lettura.letto && !qEnvironmentVariableIsEmpty("KRT_SCANSIONE_IMMAGINI"))
                immagine.save(QDir(qEnvironmentVariable("KRT_SCANSIONE_IMMAGINI"))
                                  .filePath(QStringLiteral("%1_%2_%3.png").arg(variante, QString::fromUtf8(r.voce).replace(QLatin1Char('/'), QLatin1Char('-')), QString::fromUtf8(stile))));
            EXPECT_TRUE(lettura.letto) << "family " << famiglia.toStdString();
            EXPECT_EQ(lettura.formato, r.formato);
            EXPECT_EQ(lettura.testo, r.atteso);
            EXPECT_EQ(labScansione->text(), CaricaStringa(298).arg(QString::fromUtf8(r.formato),
                                                                  QString::fromUtf8(r.atteso).replace(QChar(0x1D), QLatin1String("<GS>"))));
        }
    }
}

// The lines for what cannot be read: no reader, and Code 93 drawn without its checks.
TEST_F(Scansione, RigaPerCioCheNonSiLegge) {
    struct Caso {
        const char* voce;
        const char* contenuto;
        bool check;
        int idTesto;
    };
    const Caso casi[] = {
        {"MSI", "123456", true, 975},
        {"Postnet", "12345", true, 975},
        {"Plessey", "12AB", true, 975},
        {"Code 11", "123-45", true, 975},
        {"Industrial 2 of 5", "123456", true, 975},
        {"Code 32", "12345678", true, 975},
        {"Code 93", "CODE93", false, 977},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(testing::Message() << c.voce << " | " << c.contenuto);
        Genera(c.voce, "Normal", c.check, c.contenuto);
        EXPECT_EQ(labScansione->text(), CaricaStringa(c.idTesto));
    }
}

// A scan check runs once for the last of several quick cycles.
TEST_F(Scansione, SoloLUltimaRichiestaSiEsegue) {
    Genera("Code 39", "Normal", false, "OLD");
    cmbSimbologia->setCurrentIndex(cmbSimbologia->findText(QStringLiteral("Code 128")));
    for (const char* c : {"A1", "A2", "A3"}) {
        txtCodice->setText(QString::fromUtf8(c));
        QTest::keyClick(txtCodice, Qt::Key_Return);
    }
    EXPECT_EQ(labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code39"), QStringLiteral("OLD")));
    QCoreApplication::processEvents();
    EXPECT_EQ(labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code128"), QStringLiteral("A3")));
}

// The expected reading, worked out without a window: format and data per code.
TEST(AttesaScansione, DatiEFormatoPerCodice) {
    struct Caso {
        const char* voce;
        const char* contenuto;
        bool check;
        FormatoLettore formato;
        std::string_view testo;
        bool senzaCheck93;
    };
    const Caso casi[] = {
        {"Code 39", "AB_1", false, FormatoLettore::Code39, "AB 1", false},
        {"Code 93", "AB_1", false, FormatoLettore::Code93, "AB 1", true},
        {"Code 93", "AB_1", true, FormatoLettore::Code93, "AB 1", false},
        {"Code 128", "\\x81" "01\\x80A", false, FormatoLettore::Code128, std::string_view("01\0A", 4), false},
        {"Codabar/Monarch", "t12e", false, FormatoLettore::Codabar, "A12D", false},
        {"ISBN-10", "030640615", true, FormatoLettore::EAN13, "9780306406157", false},
        {"MSI", "1234", true, FormatoLettore::Nessuno, "", false},
        {"Delta-Distance A", "1234", true, FormatoLettore::Nessuno, "", false},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(testing::Message() << c.voce << " | " << c.contenuto);
        const VoceCatalogo* voce = TrovaVoce(c.voce, 0);
        ASSERT_NE(voce, nullptr);
        OpzioniVoce opzioni;
        opzioni.checkDigit = c.check;
        const GenerazioneVoce g = GeneraVoce(*voce, c.contenuto, opzioni);
        ASSERT_TRUE(g.accettato);
        const AttesaScansione a = AttesaPerVoce(*voce, g);
        EXPECT_EQ(a.formato, c.formato);
        EXPECT_EQ(a.testo, c.testo);
        EXPECT_EQ(a.senzaCheck93, c.senzaCheck93);
    }
}

}  // namespace
