// From typed content to a decoded symbol through a real word processor: the window
// generates the barcode, "cmdClipboard" puts its RTF on the clipboard, LibreOffice turns
// that RTF into a PDF with the reference test fonts (the folder in KRT_FONT_TEST, one
// character map per run, made visible to fontconfig alone for this run), pdftoppm
// rasterises the page and the barcode reader must find the content plus the check
// characters the engine adds. Without libreoffice or pdftoppm the test is skipped; with
// them, a row that does not read fails.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "ambiente_e2e.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/frmprincipale.h"
#include "mainwindow/scansione.h"

namespace {

using namespace krt;


struct Riga {
    const char* voce;       // cmbSimbologia text (English)
    const char* stile;      // cmbStile text
    const char* contenuto;  // typed in txtCodice
    bool check;             // chkDigit
    FormatoLettore formato;
    const char* atteso;     // data read (UTF-8)
};

// Check characters worked out by hand: Code 39 mod 43, EAN/UPC and 2 of 5 mod 10 with
// weights 3/1. Every Code 128 row draws glyphs above 127 (start and stop at least).
constexpr Riga Righe[] = {
    {"Code 39", "Normal", "KRT-2024", false, FormatoLettore::Code39, "KRT-2024"},
    {"Code 39", "Short", "ABC_12", true, FormatoLettore::Code39, "ABC 12V"},
    {"Code 128", "Normal", "Krt-128 abc", false, FormatoLettore::Code128, "Krt-128 abc"},
    {"Code 128", "Normal", "AB1234567", false, FormatoLettore::Code128, "AB1234567"},
    {"EAN 128", "Normal", "10ABC123\\x8117250101", false, FormatoLettore::Code128, "10ABC123\x1D" "17250101"},
    {"EAN 13", "Normal", "590123412345", true, FormatoLettore::EAN13, "5901234123457"},
    {"EAN 13 Add-on 5", "Normal", "59012341234552495", true, FormatoLettore::EAN13, "5901234123457 52495"},
    {"UPC-A", "Normal", "03600029145", true, FormatoLettore::UPCA, "036000291452"},
    {"ISBN-13", "Normal", "978030640615", true, FormatoLettore::EAN13, "9780306406157"},
    {"Interleaved 2 of 5", "Normal", "1234567890", false, FormatoLettore::ITF, "1234567890"},
    {"Codabar/Monarch", "Normal", "A40156B", false, FormatoLettore::Codabar, "A40156B"},
};

// The bars' size typed in txtDimensione: the widest row (EAN-13 with a five digit add-on)
// must fit the text width of an A4 or Letter page, or the word processor wraps the
// symbol onto two lines. At 300 dpi a module is still 6 pixels or more.
constexpr const char* PuntiBarre = "24";

using Ms = std::chrono::duration<double, std::milli>;

class ScansioneLibreOffice : public ::testing::Test {
protected:
    void SetUp() override {
        libreoffice = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
        pdftoppm = QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
        // Calc alone cannot open RTF: Writer's library sits beside the program.
        if (!libreoffice.isEmpty() &&
            !QFileInfo(QFileInfo(libreoffice).canonicalFilePath()).dir().exists(QStringLiteral("libswlo.so")))
            libreoffice.clear();
        if (libreoffice.isEmpty() || pdftoppm.isEmpty())
            GTEST_SKIP() << "libreoffice or pdftoppm is not installed (Debian libreoffice-writer, poppler-utils; "
                            "`make test-e2e` installs them): the clipboard's RTF is not read through LibreOffice";
        ASSERT_GT(FontDiProvaCaricati(), 0) << "no test font loaded from KRT_FONT_TEST";
        ASSERT_TRUE(cartella.isValid());
        ASSERT_TRUE(QDir(cartella.path()).mkpath(QStringLiteral("home")));
        qputenv("KRT_DATA_DIR", cartella.path().toLocal8Bit());
        finestra = std::make_unique<frmPrincipale>(ServiziFinestra{[](auto...) {}, {}, {}, {}, {}, {}});
        finestra->Avvia();
        txtCodice = finestra->findChild<QLineEdit*>(QStringLiteral("txtCodice"));
        cmbSimbologia = finestra->findChild<QComboBox*>(QStringLiteral("cmbSimbologia"));
        cmbStile = finestra->findChild<QComboBox*>(QStringLiteral("cmbStile"));
        chkDigit = finestra->findChild<QCheckBox*>(QStringLiteral("chkDigit"));
        cmdClipboard = finestra->findChild<QPushButton*>(QStringLiteral("cmdClipboard"));
        auto* txtDimensione = finestra->findChild<QLineEdit*>(QStringLiteral("txtDimensione"));
        ASSERT_TRUE(txtCodice && cmbSimbologia && cmbStile && chkDigit && cmdClipboard && txtDimensione);
        txtDimensione->selectAll();
        QTest::keyClicks(txtDimensione, QString::fromLatin1(PuntiBarre));
        ASSERT_EQ(txtDimensione->text(), QString::fromLatin1(PuntiBarre));
    }

    // Selects entry, style and check box, types the content, presses Enter and copies;
    // returns the RTF the clipboard holds.
    QByteArray Copia(const Riga& r) {
        cmbSimbologia->setCurrentIndex(cmbSimbologia->findText(QString::fromUtf8(r.voce)));
        EXPECT_EQ(cmbSimbologia->currentText(), QString::fromUtf8(r.voce));
        const int indiceStile = cmbStile->findText(QString::fromUtf8(r.stile));
        if (indiceStile >= 0) cmbStile->setCurrentIndex(indiceStile);
        if (chkDigit->isEnabled() && chkDigit->isChecked() != r.check) chkDigit->click();
        txtCodice->setText(QString::fromUtf8(r.contenuto));
        QTest::keyClick(txtCodice, Qt::Key_Return);
        QGuiApplication::clipboard()->clear();
        QTest::mouseClick(cmdClipboard, Qt::LeftButton);
        const QMimeData* dati = QGuiApplication::clipboard()->mimeData();
        return dati ? dati->data(FormatoAppuntiRtf()) : QByteArray();
    }

    // A fontconfig setup that adds the test fonts of this run (and nothing of another
    // run's character map) to the system's fonts, with its own cache.
    QProcessEnvironment AmbienteFont() const {
        const QString conf = cartella.filePath(QStringLiteral("fonts.conf"));
        QFile f(conf);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QStringLiteral("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n"
                               "  <include ignore_missing=\"yes\">/etc/fonts/fonts.conf</include>\n"
                               "  <dir>%1</dir>\n  <cachedir>%2</cachedir>\n</fontconfig>\n")
                    .arg(QDir(qEnvironmentVariable("KRT_FONT_TEST")).absolutePath(),
                         cartella.filePath(QStringLiteral("cache-font")))
                    .toUtf8());
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("FONTCONFIG_FILE"), conf);
        ambiente.insert(QStringLiteral("HOME"), cartella.filePath(QStringLiteral("home")));
        return ambiente;
    }

    QTemporaryDir cartella;
    QString libreoffice, pdftoppm;
    std::unique_ptr<frmPrincipale> finestra;
    QLineEdit* txtCodice = nullptr;
    QComboBox* cmbSimbologia = nullptr;
    QComboBox* cmbStile = nullptr;
    QCheckBox* chkDigit = nullptr;
    QPushButton* cmdClipboard = nullptr;
};

// Every row through clipboard, LibreOffice and a 300 dpi grey page: one LibreOffice run
// converts all the rows' documents, then each page is read on its own.
TEST_F(ScansioneLibreOffice, IlTestoRtfDegliAppuntiSiLeggeDopoLaConversione) {
    const QString variante = QDir(qEnvironmentVariable("KRT_FONT_TEST")).dirName();
    QStringList documenti;
    for (std::size_t i = 0; i < std::size(Righe); ++i) {
        SCOPED_TRACE(testing::Message() << Righe[i].voce << " | " << Righe[i].contenuto);
        const QByteArray rtf = Copia(Righe[i]);
        ASSERT_TRUE(rtf.startsWith("{\\rtf1")) << "no RTF on the clipboard";
        // Glyph bytes 0x80-0x9F are where the two character maps part (every Code 128
        // symbol has some): with a symbol-map font they go out under \fcharset2.
        const bool byteDiversi = rtf.contains("\\'8") || rtf.contains("\\'9");
        EXPECT_EQ(rtf.contains("\\fcharset2 "), byteDiversi && variante == QLatin1String("symbol")) << rtf.toStdString();
        documenti << cartella.filePath(QStringLiteral("riga%1.rtf").arg(i, 2, 10, QLatin1Char('0')));
        QFile f(documenti.back());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(rtf);
    }

    const auto inizio = std::chrono::steady_clock::now();
    QProcess lo;
    lo.setProcessEnvironment(AmbienteFont());
    lo.setProcessChannelMode(QProcess::MergedChannels);
    lo.start(libreoffice, QStringList{QStringLiteral("-env:UserInstallation=") +
                                          QUrl::fromLocalFile(cartella.filePath(QStringLiteral("profilo"))).toString(),
                                      QStringLiteral("--headless"), QStringLiteral("--convert-to"), QStringLiteral("pdf"),
                                      QStringLiteral("--outdir"), cartella.path()} +
                              documenti);
    ASSERT_TRUE(lo.waitForFinished(300000)) << "libreoffice did not finish";
    const QByteArray uscitaLo = lo.readAll();
    std::printf("%s: LibreOffice converted %d documents in %.0f ms\n", qPrintable(variante),
                static_cast<int>(documenti.size()), Ms(std::chrono::steady_clock::now() - inizio).count());

    for (std::size_t i = 0; i < std::size(Righe); ++i) {
        const Riga& r = Righe[i];
        SCOPED_TRACE(testing::Message() << variante.toStdString() << " | " << r.voce << " | " << r.stile << " | "
                                        << r.contenuto << " | check " << r.check);
        const QString base = QString(documenti[static_cast<qsizetype>(i)]).chopped(4);
        ASSERT_TRUE(QFile::exists(base + QStringLiteral(".pdf"))) << uscitaLo.toStdString();

        QProcess ppm;
        ppm.start(pdftoppm, {QStringLiteral("-r"), QStringLiteral("300"), QStringLiteral("-gray"),
                             QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"), QStringLiteral("1"),
                             QStringLiteral("-singlefile"), base + QStringLiteral(".pdf"), base});
        ASSERT_TRUE(ppm.waitForFinished(60000) && ppm.exitCode() == 0) << ppm.readAllStandardError().toStdString();
        const QImage pagina = QImage(base + QStringLiteral(".pgm")).convertToFormat(QImage::Format_Grayscale8);
        ASSERT_FALSE(pagina.isNull());

        AttesaScansione attesa;
        attesa.formato = r.formato;
        attesa.addOn = QString::fromUtf8(r.voce).contains(QLatin1String("Add-on"));
        const LetturaScansione lettura = LeggiImmagine(pagina.constBits(), pagina.width(), pagina.height(),
                                                       static_cast<int>(pagina.bytesPerLine()), attesa);
        std::printf("%-8s %-20s %-6s %-22s -> %s %s\n", qPrintable(variante), r.voce, r.stile, r.contenuto,
                    lettura.letto ? lettura.formato.c_str() : "NOT READ", lettura.testo.c_str());
        if (!lettura.letto && !qEnvironmentVariableIsEmpty("KRT_SCANSIONE_IMMAGINI"))
            for (const QString& estensione : {QStringLiteral(".rtf"), QStringLiteral(".pdf")})
                QFile::copy(base + estensione, QDir(qEnvironmentVariable("KRT_SCANSIONE_IMMAGINI"))
                                                   .filePath(QStringLiteral("libreoffice_%1_%2%3").arg(variante).arg(i).arg(estensione)));
        EXPECT_TRUE(lettura.letto);
        EXPECT_EQ(lettura.formato, NomeFormato(r.formato));
        EXPECT_EQ(lettura.testo, r.atteso);
    }
}

}  // namespace
