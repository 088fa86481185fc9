// guide2pdf: contents with page numbers, page breaks, pictures fitted to the page,
// missing pictures reported, the PDF written whole.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <gtest/gtest.h>

#include "tools/guide2pdf/guida.h"

namespace krt::guida {
namespace {

// A file of the folder with the given text (folders made as needed); its path.
QString Scrivi(const QTemporaryDir& cartella, const QString& nome, const QString& testo) {
    const QString percorso = cartella.filePath(nome);
    QDir().mkpath(QFileInfo(percorso).absolutePath());
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(testo.toUtf8());
    return percorso;
}

// Each contents line names the page of its heading; the break after the contents starts the
// first chapter on page 2.
TEST(Guida2Pdf, ContentsListHeadingsWithTheirPages) {
    QTemporaryDir cartella;
    QString md = QStringLiteral("# Title\n\n<!-- toc: Contents -->\n\n---\n\n## First\n\n");
    for (int i = 0; i < 60; ++i)
        md += QStringLiteral(
            "Filler paragraph with enough words to take a line or two of the page, so that the "
            "layout has something to break.\n\n");
    Guida guida =
        CaricaGuida(Scrivi(cartella, QStringLiteral("g.md"), md + "### Sub\n\ntext\n\n## Second\n\nend\n"), Pagina{});
    QPdfWriter pdf(cartella.filePath(QStringLiteral("prova.pdf")));
    pdf.setResolution(Pagina{}.risoluzione);
    Impagina(guida, pdf, Pagina{});
    ASSERT_TRUE(guida.errori.isEmpty()) << guida.errori.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(guida.titolo, QStringLiteral("Title"));
    const QTextDocument& d = *guida.documento;
    EXPECT_TRUE(d.toPlainText().contains(QStringLiteral("Contents")));
    const struct {
        QString riga, titolo;
        int pagina;  // 0: beyond the first pages
    } righe[] = {{QStringLiteral("First\t"), QStringLiteral("First"), 2},
                 {QStringLiteral("\u2003\u2003Sub\t"), QStringLiteral("Sub"), 0},
                 {QStringLiteral("Second\t"), QStringLiteral("Second"), 0}};
    for (const auto& r : righe) {
        SCOPED_TRACE(r.titolo.toStdString());
        QTextBlock riga, intestazione;
        for (QTextBlock b = d.begin(); b.isValid(); b = b.next()) {
            if (!riga.isValid() && b.text().startsWith(r.riga)) riga = b;
            if (riga.isValid() && b.blockFormat().headingLevel() > 0 && b.text() == r.titolo) intestazione = b;
        }
        ASSERT_TRUE(intestazione.isValid());
        const int pagina = PaginaDelBlocco(d, intestazione.position());
        EXPECT_EQ(riga.text().section(QLatin1Char('\t'), 1).toInt(), pagina);
        if (r.pagina != 0)
            EXPECT_EQ(pagina, r.pagina);
        else
            EXPECT_GE(pagina, 3);
    }
}

// A picture wider than the text shrinks to it; a small one keeps its size (120 dpi shots).
TEST(Guida2Pdf, PicturesFitTheTextWidthAndNeverGrow) {
    QTemporaryDir cartella;
    for (const QSize dimensione : {QSize(3000, 1500), QSize(200, 100)}) {
        SCOPED_TRACE(dimensione.width());
        QDir().mkpath(cartella.filePath(QStringLiteral("img")));
        QImage figura(dimensione, QImage::Format_RGB32);
        figura.fill(Qt::gray);
        ASSERT_TRUE(figura.save(cartella.filePath(QStringLiteral("img/f.png"))));
        Guida guida = CaricaGuida(
            Scrivi(cartella, QStringLiteral("sub/g.md"), QStringLiteral("# T\n\n![pic](../img/f.png)\n")), Pagina{});
        ASSERT_TRUE(guida.errori.isEmpty());
        QTextImageFormat immagine;
        for (QTextBlock b = guida.documento->begin(); b.isValid(); b = b.next())
            for (auto it = b.begin(); !it.atEnd(); ++it)
                if (it.fragment().charFormat().isImageFormat()) immagine = it.fragment().charFormat().toImageFormat();
        ASSERT_TRUE(immagine.isValid());
        // A4 less 40 mm of margins, at 96 dots per inch.
        const double larghezzaTesto = (210.0 - 40.0) / 25.4 * 96.0;
        EXPECT_NEAR(immagine.width(), std::min(larghezzaTesto, dimensione.width() * 96.0 / 120.0), 0.5);
        EXPECT_NEAR(immagine.width() / immagine.height(), 2.0, 0.01);
    }
}

// Missing pictures are all reported and no file is written; a good guide gives a whole PDF
// (a page per part, the temporary file gone).
TEST(Guida2Pdf, PdfWrittenWholeOrNotAtAll) {
    QTemporaryDir cartella;
    const QString pdf = cartella.filePath(QStringLiteral("g.pdf"));
    const QStringList errori = ScriviPdf(
        Scrivi(cartella, QStringLiteral("g.md"), QStringLiteral("# T\n\n![a](none1.png)\n\n![b](none2.png)\n")), pdf);
    ASSERT_EQ(errori.size(), 2) << errori.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(errori[0].contains(QStringLiteral("none1.png")) && errori[1].contains(QStringLiteral("none2.png")));
    EXPECT_FALSE(QFile::exists(pdf));
    EXPECT_FALSE(ScriviPdf(cartella.filePath(QStringLiteral("missing.md")), pdf).isEmpty());

    ASSERT_TRUE(
        ScriviPdf(Scrivi(cartella, QStringLiteral("g.md"), QStringLiteral("# Guide title\n\n---\n\n## A\n\ntext\n")),
                  pdf)
            .isEmpty());
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray dati = file.readAll();
    EXPECT_TRUE(dati.startsWith("%PDF-") && dati.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(dati.count("/Type /Page\n") + dati.count("/Type /Page\r") + dati.count("/Type /Page "), 2);
    EXPECT_FALSE(QFile::exists(pdf + QStringLiteral(".part")));
    // Each page with its own text and footer (pdftotext, of poppler-utils, when present).
    for (const int pagina : {1, 2}) {
        QProcess pdftotext;
        pdftotext.start(QStringLiteral("pdftotext"), {QStringLiteral("-f"), QString::number(pagina), QStringLiteral("-l"),
                                                      QString::number(pagina), pdf, QStringLiteral("-")});
        if (!pdftotext.waitForFinished() || pdftotext.exitCode() != 0) GTEST_SKIP() << "pdftotext missing";
        const QString testo = QString::fromUtf8(pdftotext.readAllStandardOutput()).simplified().remove(u' ');
        EXPECT_EQ(testo, pagina == 1 ? "GuidetitleGuidetitle1/2" : "AtextGuidetitle2/2");
    }
}

}  // namespace
}  // namespace krt::guida

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication applicazione(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
