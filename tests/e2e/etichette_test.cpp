// The list window's sheets of labels: one PDF, a symbol to a cell on as many pages as the rows
// need, no font in it, a label read back from its cell; sheets that cannot be written.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "ambiente_e2e.h"
#include "cycle/voce.h"
#include "mainwindow/frmelenco.h"

namespace {

using namespace krt;

QString Uscita(const QString& programma, const QStringList& argomenti) {
    QProcess p;
    p.start(programma, argomenti);
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

TEST(Etichette, PdfDallElenco) {
    if (QStandardPaths::findExecutable("pdfinfo").isEmpty()) GTEST_SKIP() << "poppler-utils missing";
    ASSERT_GT(FontDiProvaCaricati(), 0) << "KRT_FONT_TEST: no fonts";
    QTemporaryDir cartella;
    QStringList errori, messaggi;
    const VoceCatalogo& ean13 = *TrovaVoce("EAN 13", 0);
    ServiziElenco servizi;
    servizi.errore = [&](const QString& t) { errori << t; };
    servizi.messaggio = [&](const QString& t) { messaggi << t; };
    frmElenco finestra({&ean13, "Normal", 12, true}, servizi);
    QGuiApplication::clipboard()->setText("400638133393\n590123412345\n12X\n978014300723\n501234567890\n");
    ASSERT_TRUE(finestra.Incolla());
    struct Caso {
        const char* nome;
        FoglioEtichette foglio;
        int scritte;
        const char* atteso;  // in pdfinfo's output, or in the error box
    } const casi[] = {
        {"a4_two_across_one_down_two_pages", {210, 297, 2, 1}, 4, "Pages:           2"},
        {"letter_three_by_eight_one_page", {215.9, 279.4}, 4, "(letter)"},
        {"cells_smaller_than_symbol", {210, 297, 8, 30}, -1, "the cells must be at least 45.0 × 5.9 mm"},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        errori.clear();
        messaggi.clear();
        const QString pdf = cartella.filePath(QLatin1String(c.nome) + ".pdf");
        EXPECT_EQ(finestra.EsportaEtichette(pdf, c.foglio), c.scritte);
        EXPECT_EQ(QFile::exists(pdf), c.scritte > 0);
        if (c.scritte < 0) {
            EXPECT_TRUE(errori.value(0).contains(QString::fromUtf8(c.atteso))) << errori.join(u'\n').toStdString();
            continue;
        }
        EXPECT_TRUE(Uscita("pdfinfo", {pdf}).contains(QLatin1String(c.atteso)));
        EXPECT_TRUE(messaggi.value(0).endsWith("skipped: 1.")) << messaggi.value(0).toStdString();
        EXPECT_EQ(Uscita("pdffonts", {pdf}).count(u'\n'), 2);  // the heading lines, no font
        // The first label, cut from its cell of the page drawn at 300 dpi.
        const RettangoloMm c0 = PostoDiEtichetta(c.foglio, 0).cella;
        const double dots = 300 / 25.4;
        const QImage i =
            PaginaPdf(pdf, 300).copy(QRectF(c0.x * dots, c0.y * dots, c0.larghezza * dots, c0.altezza * dots).toRect());
        const GenerazioneVoce g = GeneraVoce(ean13, "400638133393", {true, false, false, "Normal", {}});
        EXPECT_EQ(Leggi(i, AttesaPerVoce(ean13, g)).testo, "4006381333931") << i.width() << "x" << i.height();
    }
}

}  // namespace
