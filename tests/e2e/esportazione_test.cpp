// A symbol that needs no font: the exported PNG, SVG and PDF of the reference test fonts
// (the folder in KRT_FONT_TEST, one character map per run) rasterised again and read back
// with the barcode reader; the PDF holds no font; every module is whole printer dots;
// krt-encode --export end to end (its faults: a missing family, an unknown extension).
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include "ambiente_e2e.h"
#include "cycle/voce.h"
#include "esportazione/esportazione.h"
#include "tests/support/ambiente_chiuso.h"

namespace {

using namespace krt;

// One entry per reader format; the expected reading comes from the scan check's rules.
struct Riga {
    const char* nome;
    int voce;  // display id
    const char* contenuto;
    bool check;
    double moduloMm;  // 0: from the size
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

// The file drawn again at its resolution, as a scanner would see the print.
QImage Rasterizza(const QString& percorso, int dpi, const QSizeF& punti) {
    if (percorso.endsWith(QLatin1String(".pdf"))) return PaginaPdf(percorso, dpi);
    if (!percorso.endsWith(QLatin1String(".svg"))) return QImage(percorso);
    QImage immagine((punti * dpi / 72.0).toSize(), QImage::Format_RGB32);
    immagine.fill(Qt::white);
    QPainter pittore(&immagine);
    QSvgRenderer(percorso).render(&pittore);
    return immagine;
}

TEST(Esportazione, FileLettiDiNuovoConIDatiAttesi) {
    ASSERT_GT(FontDiProvaCaricati(), 0) << "KRT_FONT_TEST: no fonts";
    const bool pdftoppm = !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty();
    QTemporaryDir cartella;
    for (const Riga& r : Righe) {
        const VoceCatalogo& voce = *VocePerId(r.voce);
        const GenerazioneVoce g = GeneraVoce(voce, r.contenuto, {r.check, false, false, "Normal", {}});
        ASSERT_TRUE(g.accettato) << r.nome;
        const Disegno disegno = PreparaDisegno(
            {g.glifi, QString::fromStdString(g.famiglia), std::string(voce.codice), voce.addOn != 0, {}, {}},
            {r.dpi, r.moduloMm, r.punti});
        ASSERT_TRUE(disegno) << r.nome << ": error " << static_cast<int>(disegno.errore);
        const MisuraGlifi misura = MisuraGlifiFamiglia(g.glifi, QString::fromStdString(g.famiglia));
        EXPECT_EQ(misura.moduliPerEm, disegno.misura.moduliPerEm);
        EXPECT_EQ(misura.moduliSimbolo, disegno.misura.moduliSimbolo);
        // Whole dots per module, and the whole drawing a whole number of modules across.
        const Dimensionamento& d = disegno.dimensionamento;
        const double dotsLarghezza = disegno.dimensione.width() * r.dpi / 72.0;
        EXPECT_NEAR(dotsLarghezza / d.puntiPerModulo, std::round(dotsLarghezza / d.puntiPerModulo), 1e-6) << r.nome;
        EXPECT_NEAR(d.moduloMm, r.moduloMm > 0 ? r.moduloMm : d.moduloMm, 25.4 / r.dpi / 2) << r.nome;

        const AttesaScansione attesa = AttesaPerVoce(voce, g);
        for (const char* estensione : {"png", "svg", "pdf"}) {
            SCOPED_TRACE(testing::Message() << r.nome << "." << estensione);
            if (std::string(estensione) == "pdf" && !pdftoppm) continue;
            const QString percorso = cartella.filePath(QStringLiteral("%1.%2").arg(r.nome, estensione));
            QString errore;
            ASSERT_TRUE(ScriviDisegno(percorso, disegno, r.dpi, errore)) << errore.toStdString();
            const QImage immagine = Rasterizza(percorso, r.dpi, disegno.dimensione);
            ASSERT_FALSE(immagine.isNull());
            if (percorso.endsWith(QLatin1String("png"))) {  // the printer's resolution, both ways
                EXPECT_NEAR((immagine.dotsPerMeterX() + 2 * immagine.dotsPerMeterY()) * 0.0254 / 3, r.dpi, 0.5);
            } else if (percorso.endsWith(QLatin1String("svg"))) {
                EXPECT_EQ(QSvgRenderer(percorso).viewBoxF().topLeft(), QPointF(0, 0));
            }
            EXPECT_EQ(Leggi(immagine, attesa).testo, attesa.testo) << immagine.width() << "x" << immagine.height();
        }
    }
    if (!pdftoppm) GTEST_SKIP() << "pdftoppm (poppler-utils) missing: PDF files not read back";
}

// The HRC line, narrower and wider than the bars: outlines (the PDF lists no font) inside the
// drawing, centred, a point or more below the bars; a wider line widens the drawing and
// centres the bars under it, to a module.
TEST(Esportazione, RigaHRC) {
    const GenerazioneVoce g = GeneraVoce(*VocePerId(400), "KRT", {true, true, false, "Normal", {}});
    EXPECT_EQ(MisuraGlifiFamiglia(g.glifi, QStringLiteral("ORB nessuno")).moduliPerEm, 0);
    QTemporaryDir cartella;
    for (const QString& hrc : {QString::fromStdString(g.hrc), QStringLiteral("A human readable line far wider than")}) {
        SCOPED_TRACE(hrc.toStdString());
        const Disegno d = PreparaDisegno({g.glifi, QString::fromStdString(g.famiglia), "C39", false, hrc,
                                          QFont(QStringLiteral("DejaVu Sans"), 10)},
                                         {600, 0.3, 0});
        ASSERT_TRUE(d);
        const QRectF barre = d.barre.boundingRect(), testo = d.testo.boundingRect();
        const double modulo = d.dimensionamento.moduloMm / 25.4 * 72;
        EXPECT_TRUE(QRectF(QPointF(0, 0), d.dimensione).contains(barre | testo));
        EXPECT_GT(testo.top(), barre.bottom() + 1);
        EXPECT_NEAR(testo.center().x(), d.dimensione.width() / 2, modulo);
        EXPECT_LT(d.dimensione.width(), 2 * std::max(barre.width(), testo.width()));
        if (testo.width() > barre.width()) {
            EXPECT_NEAR(barre.center().x(), d.dimensione.width() / 2, modulo);
        }
        if (QStandardPaths::findExecutable(QStringLiteral("pdffonts")).isEmpty()) continue;
        const QString percorso = cartella.filePath(QStringLiteral("c39.pdf"));
        QString errore;
        ASSERT_TRUE(ScriviDisegno(percorso, d, 600, errore)) << errore.toStdString();
        QProcess pdffonts;
        pdffonts.start(QStringLiteral("pdffonts"), {percorso});
        ASSERT_TRUE(pdffonts.waitForFinished());
        const QStringList righe = QString::fromUtf8(pdffonts.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        EXPECT_EQ(righe.size(), 2) << righe.join(u'\n').toStdString();  // the two heading lines only
    }
}

// krt-encode --export end to end, with a font system that knows no barcode family (--font-dir
// brings them in): status, message, and the file written whole or not at all.
TEST(Esportazione, KrtEncode) {
    const QString font = qEnvironmentVariable("KRT_FONT_TEST");
    QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("simbolo."));
    const struct {
        const char* nome;
        QStringList argomenti;
        int stato;
        const char* messaggio;  // in standard error
    } casi[] = {
        {"png_with_font_dir",
         {"--export", file + "png", "--font-dir", font, "--dpi", "300", "EAN 13", "590123412345"},
         0,
         ""},
        {"pdf_by_code_with_size", {"--export", file + "PDF", "--font-dir", font, "--size", "20", "C128", "KRT"}, 0, ""},
        {"missing_family", {"--export", file + "svg", "C39", "KRT"}, 3, "\"ORB39\" is not installed"},
        {"unknown_extension", {"--export", file + "jpg", "--font-dir", font, "C39", "KRT"}, 2, "--export takes a file"},
        {"refused_content", {"--export", file + "png", "--font-dir", font, "EAN13", "12AB"}, 1, "character"},
        {"no_content", {"--export", file + "png", "--font-dir", font, "C39"}, 2, "needs CONTENT"},
        {"unreadable_font_dir", {"--export", file + "png", "--font-dir", file + "none", "C39", "KRT"}, 2, "--font-dir"},
    };
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("FONTCONFIG_FILE"),
                    ScriviConfFont(cartella.filePath(QStringLiteral("fonts.conf")), {}));
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        QProcess programma;
        programma.setProcessEnvironment(ambiente);
        programma.start(QStringLiteral(KRT_ENCODE), c.argomenti);
        ASSERT_TRUE(programma.waitForFinished(60000));
        const QString errori = QString::fromUtf8(programma.readAllStandardError());
        EXPECT_EQ(programma.exitCode(), c.stato) << errori.toStdString();
        EXPECT_TRUE(errori.contains(QLatin1String(c.messaggio))) << errori.toStdString();
        EXPECT_EQ(programma.readAllStandardOutput(), QByteArray());
        const QFileInfoList scritti = QDir(cartella.path()).entryInfoList({QStringLiteral("simbolo.*")});
        ASSERT_EQ(scritti.size(), c.stato == 0 ? 1 : 0);
        for (const QFileInfo& scritto : scritti) {
            EXPECT_GT(scritto.size(), 100);
            QFile::remove(scritto.filePath());
        }
    }
}

}  // namespace
