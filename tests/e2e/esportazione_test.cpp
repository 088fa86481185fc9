// A symbol that needs no font: the exported PNG, SVG and PDF of the reference test fonts
// (the folder in KRT_FONT_TEST, one character map per run) rasterised again and read back
// with the barcode reader; the PDF holds no font; every module is whole printer dots;
// krt-encode --export end to end (its faults: a missing family, an unknown extension).
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include "ambiente_e2e.h"
#include "cycle/attesa_scansione.h"
#include "cycle/voce.h"
#include "esportazione/esportazione.h"
#include "mainwindow/scansione.h"

namespace {

using namespace krt;

// One entry per reader format; the expected reading comes from the scan check's rules.
struct Riga {
    const char* nome;
    int voce;              // display id
    const char* contenuto;
    bool check;
    double moduloMm;       // 0: from the size
    double punti;
    int dpi;
} constexpr Righe[] = {
    {"code39", 400, "KRT-2024", true, 0.25, 0, 600},
    {"code93", 402, "KRT93", true, 0.3, 0, 300},
    {"code128", 424, "Krt-128 abc", false, 0, 24, 600},
    {"ean128", 425, "0109501101530003", false, 0.33, 0, 300},
    {"ean13_addon5", 417, "59012341234552495", true, 0.33, 0, 600},
    {"ean8", 412, "1234567", true, MilsInMm(13), 0, 203},
    {"upca", 419, "03600029145", true, 0.33, 0, 600},
    {"upce", 422, "0123456", true, 0.33, 0, 600},
    {"itf14", 432, "1234567890123", true, 0.5, 0, 300},
    {"codabar", 411, "A40156B", false, 0.3, 0, 600},
};

const char* const Estensioni[] = {"png", "svg", "pdf"};

// The file drawn again at its resolution, grey, as a scanner would see the print.
QImage Rasterizza(const QString& percorso, int dpi, const QSizeF& punti) {
    if (percorso.endsWith(QLatin1String(".png"))) return QImage(percorso).convertToFormat(QImage::Format_Grayscale8);
    if (percorso.endsWith(QLatin1String(".svg"))) {
        QSvgRenderer svg(percorso);
        QImage immagine((punti * dpi / 72.0).toSize(), QImage::Format_RGB32);
        immagine.fill(Qt::white);
        QPainter pittore(&immagine);
        svg.render(&pittore);
        pittore.end();
        return immagine.convertToFormat(QImage::Format_Grayscale8);
    }
    const QString radice = percorso + QLatin1String("-pagina");
    QProcess::execute(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QString::number(dpi), QStringLiteral("-gray"),
                                                   QStringLiteral("-singlefile"), QStringLiteral("-png"), percorso, radice});
    return QImage(radice + QLatin1String(".png")).convertToFormat(QImage::Format_Grayscale8);
}

bool HaProgramma(const char* nome) { return !QStandardPaths::findExecutable(QLatin1String(nome)).isEmpty(); }

TEST(Esportazione, FileLettiDiNuovoConIDatiAttesi) {
    ASSERT_GT(FontDiProvaCaricati(), 0) << "KRT_FONT_TEST: no fonts";
    const bool pdftoppm = HaProgramma("pdftoppm");
    QTemporaryDir cartella;
    for (const Riga& r : Righe) {
        const VoceCatalogo& voce = *VocePerId(r.voce);
        const GenerazioneVoce g = GeneraVoce(voce, r.contenuto, {r.check, false, false, "Normal", {}});
        ASSERT_TRUE(g.accettato) << r.nome;
        const Disegno disegno = PreparaDisegno(
            {g.glifi, QString::fromStdString(g.famiglia), std::string(voce.codice), voce.addOn != 0, {}, {}},
            {r.dpi, r.moduloMm, r.punti});
        ASSERT_TRUE(disegno) << r.nome << ": error " << static_cast<int>(disegno.errore);
        // Whole dots per module, and the whole drawing a whole number of modules across.
        const Dimensionamento& d = disegno.dimensionamento;
        const double dotsLarghezza = disegno.dimensione.width() * r.dpi / 72.0;
        EXPECT_NEAR(dotsLarghezza / d.puntiPerModulo, std::round(dotsLarghezza / d.puntiPerModulo), 1e-6) << r.nome;
        if (r.moduloMm > 0) {
            EXPECT_NEAR(d.moduloMm, r.moduloMm, 25.4 / r.dpi / 2) << r.nome;
        }

        const AttesaScansione attesa = AttesaPerVoce(voce, g);
        for (const char* estensione : Estensioni) {
            SCOPED_TRACE(testing::Message() << r.nome << "." << estensione);
            if (std::string(estensione) == "pdf" && !pdftoppm) continue;
            const QString percorso = cartella.filePath(QStringLiteral("%1.%2").arg(r.nome, estensione));
            QString errore;
            ASSERT_TRUE(ScriviDisegno(percorso, disegno, r.dpi, errore)) << errore.toStdString();
            const QImage immagine = Rasterizza(percorso, r.dpi, disegno.dimensione);
            ASSERT_FALSE(immagine.isNull());
            const LetturaScansione lettura = LeggiImmagine(immagine.constBits(), immagine.width(), immagine.height(),
                                                           static_cast<int>(immagine.bytesPerLine()), attesa);
            EXPECT_TRUE(lettura.letto) << immagine.width() << "x" << immagine.height();
            EXPECT_EQ(lettura.testo, attesa.testo);
        }
    }
    if (!pdftoppm) GTEST_SKIP() << "pdftoppm (poppler-utils) missing: PDF files not read back";
}

// The PDF's text is outlines: pdffonts lists no font, the HRC line included.
TEST(Esportazione, PdfSenzaFont) {
    if (!HaProgramma("pdffonts")) GTEST_SKIP() << "pdffonts (poppler-utils) missing";
    const VoceCatalogo& voce = *VocePerId(400);
    const GenerazioneVoce g = GeneraVoce(voce, "KRT", {true, true, false, "Normal", {}});
    SimboloDaDisegnare simbolo{g.glifi, QString::fromStdString(g.famiglia), "C39", false,
                               QString::fromStdString(g.hrc), QFont(QStringLiteral("DejaVu Sans"), 10)};
    QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("c39.pdf"));
    QString errore;
    ASSERT_TRUE(ScriviDisegno(percorso, PreparaDisegno(simbolo, {600, 0.3, 0}), 600, errore)) << errore.toStdString();
    QProcess pdffonts;
    pdffonts.start(QStringLiteral("pdffonts"), {percorso});
    ASSERT_TRUE(pdffonts.waitForFinished());
    const QStringList righe = QString::fromUtf8(pdffonts.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(righe.size(), 2) << righe.join(u'\n').toStdString();  // the two heading lines only
}

// krt-encode --export: status, message and file for each case.
TEST(Esportazione, KrtEncode) {
    const QString cartellaFont = qEnvironmentVariable("KRT_FONT_TEST");
    QTemporaryDir cartella;
    struct Caso {
        const char* nome;
        QStringList argomenti;  // after --export FILE
        const char* file;
        int stato;
        const char* messaggio;  // in standard error, "" for none
    } const casi[] = {
        {"png_with_font_dir", {"--font-dir", cartellaFont, "--dpi", "300", "EAN 13", "590123412345"}, "a.png", 0, ""},
        {"pdf_by_code_with_size", {"--font-dir", cartellaFont, "--size", "20", "C128", "KRT"}, "a.PDF", 0, ""},
        {"missing_family", {"C39", "KRT"}, "b.svg", 3, "\"ORB39\" is not installed"},
        {"unknown_extension", {"--font-dir", cartellaFont, "C39", "KRT"}, "c.jpg", 2, "--export takes a file"},
        {"refused_content", {"--font-dir", cartellaFont, "EAN13", "12AB"}, "d.png", 1, "character"},
        {"no_content", {"--font-dir", cartellaFont, "C39"}, "e.png", 2, "needs CONTENT"},
        {"unreadable_font_dir", {"--font-dir", cartella.filePath("none"), "C39", "KRT"}, "f.png", 2, "--font-dir"},
        {"sizing_without_export", {"--module-width", "0.3", "C39", "KRT"}, nullptr, 2, "go with --export"},
    };
    const QString nessunFont = cartella.filePath(QStringLiteral("fonts.conf"));
    QFile conf(nessunFont);
    ASSERT_TRUE(conf.open(QIODevice::WriteOnly));
    conf.write(QStringLiteral("<?xml version=\"1.0\"?>\n<fontconfig><cachedir>%1</cachedir></fontconfig>\n")
                   .arg(cartella.filePath(QStringLiteral("cache")))
                   .toUtf8());
    conf.close();
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        QStringList argomenti;
        const QString file = c.file != nullptr ? cartella.filePath(QLatin1String(c.file)) : QString();
        if (c.file != nullptr) argomenti << QStringLiteral("--export") << file;
        argomenti << c.argomenti;
        QProcess programma;
        // Without the test folder the families are not installed: the missing-family case
        // needs a font system that does not know them (the test's own one lists the test fonts).
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("FONTCONFIG_FILE"), nessunFont);
        programma.setProcessEnvironment(ambiente);
        programma.start(QStringLiteral(KRT_ENCODE), argomenti);
        ASSERT_TRUE(programma.waitForFinished(60000));
        const QString errori = QString::fromUtf8(programma.readAllStandardError());
        EXPECT_EQ(programma.exitCode(), c.stato) << errori.toStdString();
        EXPECT_TRUE(errori.contains(QLatin1String(c.messaggio))) << errori.toStdString();
        EXPECT_EQ(programma.readAllStandardOutput(), QByteArray());
        if (c.file != nullptr) {
            EXPECT_EQ(QFile::exists(file), c.stato == 0);
        }
        if (c.stato == 0) {
            EXPECT_GT(QFile(file).size(), 100);
        }
    }
}

}  // namespace
