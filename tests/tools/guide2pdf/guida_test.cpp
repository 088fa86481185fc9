// guide2pdf: contents with page numbers, page breaks, pictures fitted to the page,
// missing pictures reported, the PDF written whole.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <gtest/gtest.h>

#include "tools/guide2pdf/guida.h"

namespace krt::guida {
namespace {

class Guida2Pdf : public ::testing::Test {
protected:
    QTemporaryDir cartella;

    QString Scrivi(const QString& nome, const QString& testo) {
        const QString percorso = cartella.filePath(nome);
        QDir().mkpath(QFileInfo(percorso).absolutePath());
        QFile file(percorso);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(testo.toUtf8());
        return percorso;
    }

    void Figura(const QString& nome, int larghezza, int altezza) {
        QDir().mkpath(QFileInfo(cartella.filePath(nome)).absolutePath());
        QImage figura(larghezza, altezza, QImage::Format_RGB32);
        figura.fill(Qt::gray);
        ASSERT_TRUE(figura.save(cartella.filePath(nome)));
    }

    // Loads and lays out a guide on the default page.
    Guida Impaginata(const QString& percorso) {
        Guida guida = CaricaGuida(percorso, Pagina{});
        writer_ = std::make_unique<QPdfWriter>(cartella.filePath(QStringLiteral("prova.pdf")));
        writer_->setResolution(Pagina{}.risoluzione);
        Impagina(guida, *writer_, Pagina{});
        return guida;
    }

    static QTextBlock Blocco(const QTextDocument& documento, const QString& inizio) {
        for (QTextBlock b = documento.begin(); b.isValid(); b = b.next())
            if (b.text().startsWith(inizio)) return b;
        return {};
    }

private:
    std::unique_ptr<QPdfWriter> writer_;
};

// Many paragraphs, to fill pages.
QString Riempitivo(int paragrafi) {
    QString testo;
    for (int i = 0; i < paragrafi; ++i)
        testo += QStringLiteral("Filler paragraph %1 with enough words to take a line or two of the page, "
                                "so that the layout has something to break.\n\n")
                     .arg(i);
    return testo;
}

// Each contents line names the page of its heading; the break after the contents starts the
// first chapter on page 2.
TEST_F(Guida2Pdf, ContentsListHeadingsWithTheirPages) {
    const QString md = QStringLiteral("# Title\n\n<!-- toc: Contents -->\n\n---\n\n## First\n\n") + Riempitivo(60) +
                       QStringLiteral("### Sub\n\ntext\n\n## Second\n\nend\n");
    Guida guida = Impaginata(Scrivi(QStringLiteral("g.md"), md));
    ASSERT_TRUE(guida.errori.isEmpty()) << guida.errori.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(guida.titolo, QStringLiteral("Title"));
    const QTextDocument& d = *guida.documento;
    EXPECT_TRUE(Blocco(d, QStringLiteral("Contents")).isValid());
    const struct {
        QString riga, titolo;
        int pagina;  // 0: beyond the first pages
    } righe[] = {{QStringLiteral("First\t"), QStringLiteral("First"), 2},
                 {QStringLiteral("\u2003\u2003Sub\t"), QStringLiteral("Sub"), 0},
                 {QStringLiteral("Second\t"), QStringLiteral("Second"), 0}};
    for (const auto& r : righe) {
        const QTextBlock riga = Blocco(d, r.riga);
        ASSERT_TRUE(riga.isValid()) << r.titolo.toStdString();
        QTextBlock intestazione;
        for (QTextBlock b = riga.next(); b.isValid(); b = b.next())
            if (b.blockFormat().headingLevel() > 0 && b.text() == r.titolo) intestazione = b;
        ASSERT_TRUE(intestazione.isValid()) << r.titolo.toStdString();
        const int pagina = PaginaDelBlocco(d, intestazione.position());
        EXPECT_EQ(riga.text().section(QLatin1Char('\t'), 1).toInt(), pagina) << r.titolo.toStdString();
        if (r.pagina != 0) EXPECT_EQ(pagina, r.pagina);
        else EXPECT_GE(pagina, 3);
    }
}

TEST_F(Guida2Pdf, PicturesFitTheTextWidthAndNeverGrow) {
    struct Caso {
        int larghezza, altezza;
        bool ridotta;
    } casi[] = {{3000, 1500, true}, {200, 100, false}};
    for (const Caso& c : casi) {
        Figura(QStringLiteral("img/f.png"), c.larghezza, c.altezza);
        Guida guida = CaricaGuida(Scrivi(QStringLiteral("sub/g.md"), QStringLiteral("# T\n\n![pic](../img/f.png)\n")),
                                  Pagina{});
        ASSERT_TRUE(guida.errori.isEmpty()) << c.larghezza;
        QTextImageFormat immagine;
        for (QTextBlock b = guida.documento->begin(); b.isValid(); b = b.next())
            for (auto it = b.begin(); !it.atEnd(); ++it)
                if (it.fragment().charFormat().isImageFormat()) immagine = it.fragment().charFormat().toImageFormat();
        ASSERT_TRUE(immagine.isValid()) << c.larghezza;
        // A4 less 40 mm of margins, at 96 dots per inch.
        const double larghezzaTesto = (210.0 - 40.0) / 25.4 * 96.0;
        EXPECT_LE(immagine.width(), larghezzaTesto + 0.5) << c.larghezza;
        EXPECT_NEAR(immagine.width() / immagine.height(), double(c.larghezza) / c.altezza, 0.01) << c.larghezza;
        if (!c.ridotta) {
            EXPECT_NEAR(immagine.width(), c.larghezza * 96.0 / 120.0, 0.5) << c.larghezza;
        }
    }
}

// Missing pictures are all reported and no file is written; a good guide gives a whole PDF
// (a page per part, the temporary file gone).
TEST_F(Guida2Pdf, PdfWrittenWholeOrNotAtAll) {
    const QString pdf = cartella.filePath(QStringLiteral("g.pdf"));
    const QStringList errori =
        ScriviPdf(Scrivi(QStringLiteral("g.md"), QStringLiteral("# T\n\n![a](none1.png)\n\n![b](none2.png)\n")), pdf);
    ASSERT_EQ(errori.size(), 2) << errori.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(errori[0].contains(QStringLiteral("none1.png")) && errori[1].contains(QStringLiteral("none2.png")));
    EXPECT_FALSE(QFile::exists(pdf));
    EXPECT_FALSE(ScriviPdf(cartella.filePath(QStringLiteral("missing.md")), pdf).isEmpty());

    ASSERT_TRUE(ScriviPdf(Scrivi(QStringLiteral("g.md"), QStringLiteral("# Guide title\n\n---\n\n## A\n\ntext\n")), pdf).isEmpty());
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray dati = file.readAll();
    EXPECT_TRUE(dati.startsWith("%PDF-") && dati.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(dati.count("/Type /Page\n") + dati.count("/Type /Page\r") + dati.count("/Type /Page "), 2);
    EXPECT_FALSE(QFile::exists(pdf + QStringLiteral(".part")));
}

}  // namespace
}  // namespace krt::guida

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication applicazione(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
