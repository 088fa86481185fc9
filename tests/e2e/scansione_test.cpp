// From typed content to a decoded symbol: the main window draws the preview with the
// reference test fonts (the folder in KRT_FONT_TEST, one character map per run) and its scan
// check must read the content plus the check characters the engine adds; the clipboard's RTF
// of a few rows must read the same after a real word processor has printed it.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QUrl>

#include "ambiente_e2e.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/scansione.h"
#include "support/stringhe.h"
#include "tests/support/ambiente_chiuso.h"

namespace {

using namespace krt;

struct Riga {
    const char* voce;       // cmbSimbologia text (English)
    const char* contenuto;  // typed in txtCodice
    bool check;             // chkDigit
    FormatoLettore formato;
    const char* atteso;       // data read (UTF-8)
    const char* libreoffice;  // the style of the word-processor run, nullptr for none
};

// One row per font family and per kind of add-on; check characters worked out by hand. The
// word processor must carry over glyphs above 127 (every Code 128 row), a short face and an
// add-on after its gap.
constexpr Riga Righe[] = {
    {"Code 39", "ABC_12", true, FormatoLettore::Code39, "ABC 12V", "Short"},
    {"Code 93 Full Ascii", "Krt93", true, FormatoLettore::Code93, "Krt93", nullptr},
    {"Code 128", "AB1234567", false, FormatoLettore::Code128, "AB1234567", nullptr},
    {"EAN 128", "10ABC123\\x8117250101", false, FormatoLettore::Code128,
     "10ABC123\x1D"
     "17250101",
     "Normal"},
    {"EAN 8 Add-on 2", "123456712", true, FormatoLettore::EAN8, "12345670 12", nullptr},
    {"EAN 13 Add-on 5", "59012341234552495", true, FormatoLettore::EAN13, "5901234123457 52495", "Normal"},
    {"UPC-A", "03600029145", true, FormatoLettore::UPCA, "036000291452", nullptr},
    {"UPC-E Add-on 2", "012345612", true, FormatoLettore::UPCE, "01234565 12", nullptr},
    {"ISBN-10", "030640615", true, FormatoLettore::EAN13, "9780306406157", nullptr},
    {"Interleaved 2 of 5", "12345", true, FormatoLettore::ITF, "123457", "Normal"},
    {"UCC-ITF 14", "1234567890123", true, FormatoLettore::ITF, "12345678901231", nullptr},
    {"Codabar/Monarch", "c1234d", false, FormatoLettore::Codabar, "C1234D", "Normal"},
};

// Every row in both faces: the window's line says its preview read as the hand-worked data.
TEST(Scansione, SiLeggeConIDatiAttesi) {
    ASSERT_GT(FontDiProvaCaricati(), 0) << "no test font loaded from KRT_FONT_TEST";
    FinestraE2E w;
    for (const Riga& r : Righe)
        for (const char* stile : {"Normal", "Short"}) {
            SCOPED_TRACE(testing::Message() << r.voce << " | " << stile << " | " << r.contenuto);
            w.Genera(r.voce, stile, r.check, r.contenuto);
            const QString famiglia = w.Anteprima().at(0).famiglia;
            ASSERT_TRUE(QFontDatabase::hasFamily(famiglia)) << famiglia.toStdString();
            EXPECT_EQ(w.labScansione->text(),
                      CaricaStringa(298).arg(QString::fromStdString(NomeFormato(r.formato)),
                                             QString::fromUtf8(r.atteso).replace(QChar(0x1D), QLatin1String("<GS>"))));
        }
}

// The lines for what cannot be read (no reader; Code 93 drawn without its checks), an empty
// image is not handed to the reader, and a scan check runs once for the last of several
// quick cycles.
TEST(ScansioneRiga, NonLeggibiliEUltimaRichiesta) {
    AttesaScansione code39;
    code39.formato = FormatoLettore::Code39;
    const std::uint8_t pixel = 0;
    EXPECT_FALSE(LeggiImmagine(&pixel, 0, 1, 1, code39).letto);
    EXPECT_FALSE(LeggiImmagine(&pixel, 1, 0, 1, code39).letto);
    FinestraE2E w;
    const struct {
        const char *voce, *contenuto;
        bool check;
        int idTesto;
    } casi[] = {{"MSI", "123456", true, 975}, {"Code 32", "12345678", true, 975}, {"Code 93", "CODE93", false, 977}};
    for (const auto& c : casi) {
        SCOPED_TRACE(c.voce);
        w.Genera(c.voce, "Normal", c.check, c.contenuto);
        EXPECT_EQ(w.labScansione->text(), CaricaStringa(c.idTesto));
    }
    w.Genera("Code 39", "Normal", false, "OLD");
    w.cmbSimbologia->setCurrentIndex(w.cmbSimbologia->findText(QStringLiteral("Code 128")));
    for (const char* c : {"A1", "A2", "A3"}) {
        w.txtCodice->setText(QString::fromUtf8(c));
        QTest::keyClick(w.txtCodice, Qt::Key_Return);
    }
    EXPECT_EQ(w.labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code39"), QStringLiteral("OLD")));
    QCoreApplication::processEvents();
    EXPECT_EQ(w.labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code128"), QStringLiteral("A3")));
}

// The rows marked for it copied with "cmdClipboard", their RTF turned into PDFs by one
// LibreOffice run (with the machine's fonts and the test fonts, never the user's), each first
// page rasterised at 300 dpi and read. Skipped without LibreOffice Writer or pdftoppm.
TEST(ScansioneLibreOffice, IlTestoRtfDegliAppuntiSiLeggeDopoLaConversione) {
    const QString libreoffice = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
    // Calc alone cannot open RTF: Writer's library sits beside the program.
    if (!QFileInfo(QFileInfo(libreoffice).canonicalFilePath()).dir().exists(QStringLiteral("libswlo.so")) ||
        QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
        GTEST_SKIP() << "libreoffice or pdftoppm is not installed (Debian libreoffice-writer, poppler-utils; "
                        "`make test-e2e` installs them): the clipboard's RTF is not read through LibreOffice";
    ASSERT_GT(FontDiProvaCaricati(), 0) << "no test font loaded from KRT_FONT_TEST";
    const QString fontDiProva = QDir(qEnvironmentVariable("KRT_FONT_TEST")).absolutePath();
    FinestraE2E w;
    // 24 pt bars: the widest row fits the text width of an A4 or Letter page (a wrapped symbol
    // does not read), and a module is still 6 pixels or more at 300 dpi.
    w.txtDimensione->selectAll();
    QTest::keyClicks(w.txtDimensione, QStringLiteral("24"));
    std::vector<const Riga*> righe;
    QStringList documenti;
    for (const Riga& r : Righe) {
        if (r.libreoffice == nullptr) continue;
        SCOPED_TRACE(r.voce);
        w.Genera(r.voce, r.libreoffice, r.check, r.contenuto);
        QGuiApplication::clipboard()->clear();
        QTest::mouseClick(w.cmdClipboard, Qt::LeftButton);
        const QMimeData* dati = QGuiApplication::clipboard()->mimeData();
        const QByteArray rtf = dati ? dati->data(FormatoAppuntiRtf()) : QByteArray();
        ASSERT_TRUE(rtf.startsWith("{\\rtf1")) << "no RTF on the clipboard";
        // Glyph bytes 0x80-0x9F are where the two character maps part (every Code 128
        // symbol has some): with a symbol-map font they go out under \fcharset2.
        EXPECT_EQ(rtf.contains("\\fcharset2 "), (rtf.contains("\\'8") || rtf.contains("\\'9")) &&
                                                    fontDiProva.endsWith(QLatin1String("symbol")));
        righe.push_back(&r);
        documenti << w.cartella.filePath(QStringLiteral("riga%1.rtf").arg(righe.size()));
        QFile f(documenti.back());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(rtf) == rtf.size());
    }
    QProcess lo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("FONTCONFIG_FILE"),
                    ScriviConfFont(w.cartella.filePath(QStringLiteral("lo-fonts.conf")), fontDiProva, true));
    lo.setProcessEnvironment(ambiente);
    lo.setProcessChannelMode(QProcess::MergedChannels);
    lo.start(libreoffice,
             QStringList{QStringLiteral("-env:UserInstallation=") +
                             QUrl::fromLocalFile(w.cartella.filePath(QStringLiteral("profilo"))).toString(),
                         QStringLiteral("--headless"), QStringLiteral("--convert-to"), QStringLiteral("pdf"),
                         QStringLiteral("--outdir"), w.cartella.path()} +
                 documenti);
    ASSERT_TRUE(lo.waitForFinished(300000)) << "libreoffice did not finish";
    const QByteArray uscitaLo = lo.readAll();
    for (std::size_t i = 0; i < righe.size(); ++i) {
        const Riga& r = *righe[i];
        SCOPED_TRACE(testing::Message() << r.voce << " | " << r.libreoffice << " | " << r.contenuto);
        const QString pdf =
            QString(documenti[static_cast<qsizetype>(i)]).replace(QLatin1String(".rtf"), QLatin1String(".pdf"));
        ASSERT_TRUE(QFile::exists(pdf)) << uscitaLo.toStdString();
        AttesaScansione attesa;
        attesa.formato = r.formato;
        attesa.addOn = std::string_view(r.voce).find("Add-on") != std::string_view::npos;
        const LetturaScansione lettura = Leggi(PaginaPdf(pdf, 300), attesa);
        EXPECT_EQ(lettura.formato, NomeFormato(r.formato));
        EXPECT_EQ(lettura.testo, r.atteso);
    }
}

}  // namespace
