// A user guide written in Markdown, laid out on A4 pages and written as PDF.
//
// The Markdown is GitHub's dialect as QTextDocument reads it, with three house rules:
// - a line "<!-- toc: Title -->" (invisible on any Markdown viewer) becomes a table of
//   contents of the "##" and "###" headings, with their page numbers;
// - a thematic break ("---" on a line of its own) starts a new page;
// - images are resolved relative to the Markdown file, scaled down to the text width
//   (never enlarged), and a missing image is an error, not an empty frame.
#pragma once
#include <memory>

#include <QMarginsF>
#include <QPageSize>
#include <QString>
#include <QStringList>

class QPagedPaintDevice;
class QTextDocument;

namespace krt::guida {

struct Pagina {
    QPageSize formato{QPageSize::A4};
    QMarginsF marginiMm{20, 18, 20, 14};  // left, top, right, bottom
    double altezzaPiedeMm = 9;            // footer band at the bottom of the text area
    double corpoPunti = 10;               // body text size
    int risoluzione = 300;                // dots per inch of the PDF coordinates
};

struct Guida {
    std::unique_ptr<QTextDocument> documento;
    QString titolo;       // text of the first "#" heading
    QStringList errori;   // missing images, unreadable file; empty when all is well
    int pagine = 0;       // known after Impagina
};

// Reads and styles the guide. Errors are collected in the result; the document is
// still built so that one run reports every missing image at once.
Guida CaricaGuida(const QString& percorsoMarkdown, const Pagina& pagina);

// Lays the document out for the pages of the device: headings are kept with what
// follows them, the table of contents gets its page numbers. Sets guida.pagine.
void Impagina(Guida& guida, QPagedPaintDevice& dispositivo, const Pagina& pagina);

// Page (1-based) on which a block of the laid-out document starts.
int PaginaDelBlocco(const QTextDocument& documento, int posizione);

// Draws every page with its footer (guide title, "n / N").
void Disegna(const Guida& guida, QPagedPaintDevice& dispositivo, const Pagina& pagina);

// CaricaGuida + Impagina + Disegna into a PDF file. Returns the errors (empty on success);
// with errors no file is written.
QStringList ScriviPdf(const QString& percorsoMarkdown, const QString& percorsoPdf, const Pagina& pagina = {});

}  // namespace krt::guida
