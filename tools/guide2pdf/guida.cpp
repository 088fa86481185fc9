#include "tools/guide2pdf/guida.h"

#include <cmath>
#include <functional>
#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <QUrl>

namespace krt::guida {

namespace {

// Lengths in a QTextDocument (margins, padding, image sizes) are given at 96 dots per
// inch and scaled by the layout to the device.
constexpr double kPuntiDocumento = 96.0;
constexpr double kMmPerPollice = 25.4;

// Screenshots are shown as if the screen had this many dots per inch, so that a window
// keeps about its size on paper; wider ones are scaled down to the text width.
constexpr double kDpiSchermate = 120.0;

// A heading whose following text would start with fewer free lines than this on its
// page moves to the next page.
constexpr double kRigheDopoTitolo = 4.0;
constexpr int kPassiImpaginazione = 8;

const QString kSegnapostoIndice = QStringLiteral("\u2060TOC\u2060");
const QString kTabulazione = QStringLiteral("\t");

const QColor kColoreTitoli(0x1f, 0x3b, 0x63);
const QColor kColoreBordo(0x9a, 0xa5, 0xb1);
const QColor kSfondoIntestazione(0xe6, 0xec, 0xf2);
const QColor kSfondoCodice(0xf2, 0xf3, 0xf5);
const QColor kSfondoNota(0xfd, 0xf6, 0xe3);
const QColor kColorePiede(0x60, 0x60, 0x60);

struct StileTitolo {
    int livello;
    double punti;
    double spazioSopra;  // 96-dpi units
    double spazioSotto;
};

constexpr StileTitolo kStiliTitoli[] = {
    {1, 22, 0, 14},
    {2, 15, 18, 6},
    {3, 12, 12, 4},
    {4, 10.5, 10, 3},
};

const QStringList& FamiglieTesto() {
    static const QStringList famiglie{QStringLiteral("DejaVu Sans"), QStringLiteral("Noto Sans"),
                                      QStringLiteral("Segoe UI"), QStringLiteral("Helvetica Neue"),
                                      QStringLiteral("Arial")};
    return famiglie;
}

const QStringList& FamiglieCodice() {
    static const QStringList famiglie{QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Noto Sans Mono"),
                                      QStringLiteral("Consolas"), QStringLiteral("Menlo"),
                                      QStringLiteral("Courier New")};
    return famiglie;
}

double MmInDocumento(double mm) { return mm / kMmPerPollice * kPuntiDocumento; }

double LarghezzaTesto(const Pagina& pagina) {
    const QSizeF mm = pagina.formato.size(QPageSize::Millimeter);
    return MmInDocumento(mm.width() - pagina.marginiMm.left() - pagina.marginiMm.right());
}

double AltezzaTesto(const Pagina& pagina) {
    const QSizeF mm = pagina.formato.size(QPageSize::Millimeter);
    return MmInDocumento(mm.height() - pagina.marginiMm.top() - pagina.marginiMm.bottom() -
                         pagina.altezzaPiedeMm);
}

// Applies a change to the character format of every fragment of a block, and to the
// block's own character format (which gives empty blocks their height).
void ModificaCaratteri(QTextDocument& documento, const QTextBlock& blocco,
                       const std::function<void(QTextCharFormat&)>& modifica) {
    QTextCursor cursore(&documento);
    for (auto it = blocco.begin(); !it.atEnd(); ++it) {
        const QTextFragment frammento = it.fragment();
        QTextCharFormat formato = frammento.charFormat();
        modifica(formato);
        cursore.setPosition(frammento.position());
        cursore.setPosition(frammento.position() + frammento.length(), QTextCursor::KeepAnchor);
        cursore.setCharFormat(formato);
    }
    QTextCharFormat formatoBlocco = blocco.charFormat();
    modifica(formatoBlocco);
    cursore.setPosition(blocco.position());
    cursore.setBlockCharFormat(formatoBlocco);
}

void ImpostaFormatoBlocco(QTextDocument& documento, const QTextBlock& blocco, const QTextBlockFormat& formato) {
    QTextCursor cursore(&documento);
    cursore.setPosition(blocco.position());
    cursore.setBlockFormat(formato);
}

const StileTitolo* StilePerLivello(int livello) {
    for (const StileTitolo& stile : kStiliTitoli)
        if (stile.livello == livello) return &stile;
    return nullptr;
}

void StilizzaTitolo(QTextDocument& documento, const QTextBlock& blocco, const StileTitolo& stile) {
    QTextBlockFormat formato = blocco.blockFormat();
    formato.setTopMargin(stile.spazioSopra);
    formato.setBottomMargin(stile.spazioSotto);
    formato.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    ImpostaFormatoBlocco(documento, blocco, formato);
    ModificaCaratteri(documento, blocco, [&](QTextCharFormat& c) {
        c.clearProperty(QTextFormat::FontSizeAdjustment);
        c.setFontFamilies(FamiglieTesto());
        c.setFontPointSize(stile.punti);
        c.setFontWeight(QFont::Bold);
        c.setForeground(kColoreTitoli);
    });
}

bool InCodice(const QTextBlock& blocco) {
    return blocco.blockFormat().hasProperty(QTextFormat::BlockCodeFence) ||
           blocco.blockFormat().nonBreakableLines();
}

bool ConImmagine(const QTextBlock& blocco) {
    for (auto it = blocco.begin(); !it.atEnd(); ++it)
        if (it.fragment().charFormat().isImageFormat()) return true;
    return false;
}

void StilizzaTesto(QTextDocument& documento, const QTextBlock& blocco, const Pagina& pagina) {
    QTextBlockFormat formato = blocco.blockFormat();
    const bool codice = InCodice(blocco);
    if (codice) {
        // Each line of a fenced block is a block of its own: the first and the last
        // carry the space around the whole.
        const bool primo = !InCodice(blocco.previous());
        const bool ultimo = !InCodice(blocco.next());
        formato.setBackground(kSfondoCodice);
        formato.setTopMargin(primo ? 4 : 0);
        formato.setBottomMargin(ultimo ? 8 : 0);
        formato.setLeftMargin(6);
        formato.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    } else {
        formato.setBottomMargin(blocco.textList() ? 3 : 6);
        // Extra leading would add a gap under a picture.
        formato.setLineHeight(ConImmagine(blocco) ? 100 : 118, QTextBlockFormat::ProportionalHeight);
        if (formato.intProperty(QTextFormat::BlockQuoteLevel) > 0) {
            formato.setBackground(kSfondoNota);
            formato.setLeftMargin(8);
            formato.setRightMargin(8);
        }
    }
    ImpostaFormatoBlocco(documento, blocco, formato);
    ModificaCaratteri(documento, blocco, [&](QTextCharFormat& c) {
        if (c.isImageFormat()) return;
        const bool fisso = codice || c.fontFixedPitch();
        c.setFontFamilies(fisso ? FamiglieCodice() : FamiglieTesto());
        c.setFontPointSize(fisso ? pagina.corpoPunti * 0.9 : pagina.corpoPunti);
        if (fisso && !codice) c.setBackground(kSfondoCodice);
    });
}

// A thematic break: the block becomes an invisible page break.
void RendiSaltoPagina(QTextDocument& documento, const QTextBlock& blocco) {
    QTextBlockFormat formato = blocco.blockFormat();
    formato.clearProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
    formato.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysAfter);
    formato.setTopMargin(0);
    formato.setBottomMargin(0);
    formato.setLineHeight(1, QTextBlockFormat::FixedHeight);
    ImpostaFormatoBlocco(documento, blocco, formato);
}

void StilizzaTabella(QTextTable& tabella, const Pagina& pagina) {
    QTextTableFormat formato = tabella.format();
    formato.setBorder(1);
    formato.setBorderBrush(kColoreBordo);
    formato.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    formato.setBorderCollapse(true);
    formato.setCellPadding(4);
    formato.setCellSpacing(0);
    formato.setTopMargin(4);
    formato.setBottomMargin(10);
    formato.setHeaderRowCount(1);
    formato.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    tabella.setFormat(formato);
    for (int colonna = 0; colonna < tabella.columns(); ++colonna) {
        QTextTableCell cella = tabella.cellAt(0, colonna);
        QTextTableCellFormat formatoCella = cella.format().toTableCellFormat();
        formatoCella.setBackground(kSfondoIntestazione);
        cella.setFormat(formatoCella);
    }
    QTextDocument& documento = *tabella.document();
    for (int riga = 0; riga < tabella.rows(); ++riga) {
        for (int colonna = 0; colonna < tabella.columns(); ++colonna) {
            const QTextTableCell cella = tabella.cellAt(riga, colonna);
            for (QTextBlock b = documento.findBlock(cella.firstPosition());
                 b.isValid() && b.position() <= cella.lastPosition(); b = b.next()) {
                QTextBlockFormat formatoBlocco = b.blockFormat();
                formatoBlocco.setBottomMargin(0);
                formatoBlocco.setLineHeight(110, QTextBlockFormat::ProportionalHeight);
                ImpostaFormatoBlocco(documento, b, formatoBlocco);
                ModificaCaratteri(documento, b, [&](QTextCharFormat& c) {
                    const bool fisso = c.fontFixedPitch();
                    c.setFontFamilies(fisso ? FamiglieCodice() : FamiglieTesto());
                    c.setFontPointSize(pagina.corpoPunti * (fisso ? 0.85 : 0.92));
                    if (riga == 0) c.setFontWeight(QFont::Bold);
                });
            }
        }
    }
}

void CercaTabelle(QTextFrame* cornice, std::vector<QTextTable*>& tabelle) {
    for (QTextFrame* figlia : cornice->childFrames()) {
        if (auto* tabella = qobject_cast<QTextTable*>(figlia)) tabelle.push_back(tabella);
        CercaTabelle(figlia, tabelle);
    }
}

// Loads every image of the document from the Markdown file's folder and gives it a size
// that fits the text width. Missing or unreadable images are reported.
void CaricaImmagini(QTextDocument& documento, const QString& cartella, const Pagina& pagina,
                    QStringList& errori) {
    const double larghezzaMassima = LarghezzaTesto(pagina);
    const double altezzaMassima = AltezzaTesto(pagina) * 0.8;
    QTextCursor cursore(&documento);
    for (QTextBlock blocco = documento.begin(); blocco.isValid(); blocco = blocco.next()) {
        for (auto it = blocco.begin(); !it.atEnd(); ++it) {
            const QTextFragment frammento = it.fragment();
            if (!frammento.charFormat().isImageFormat()) continue;
            QTextImageFormat immagine = frammento.charFormat().toImageFormat();
            const QUrl url(immagine.name());
            const QString percorso =
                url.isLocalFile() ? url.toLocalFile() : QFileInfo(QDir(cartella), url.path()).absoluteFilePath();
            QImage figura(percorso);
            if (figura.isNull()) {
                errori << QStringLiteral("image not found or unreadable: %1").arg(percorso);
                continue;
            }
            documento.addResource(QTextDocument::ImageResource, url, figura);
            double larghezza = figura.width() * kPuntiDocumento / kDpiSchermate;
            double altezza = figura.height() * kPuntiDocumento / kDpiSchermate;
            const double scala = std::min({1.0, larghezzaMassima / larghezza, altezzaMassima / altezza});
            larghezza *= scala;
            altezza *= scala;
            immagine.setWidth(larghezza);
            immagine.setHeight(altezza);
            cursore.setPosition(frammento.position());
            cursore.setPosition(frammento.position() + frammento.length(), QTextCursor::KeepAnchor);
            cursore.setCharFormat(immagine);
        }
    }
}

// Height of a body line in 96-dpi units: the point size, the font's leading, the
// proportional line height of the body.
double AltezzaRiga(const Pagina& pagina) { return pagina.corpoPunti / 72.0 * kPuntiDocumento * 1.2 * 1.18; }

// After an edit the layout is redone only from the edited block, and blocks that follow a
// table may be left without lines; the whole document is laid out again instead.
void RifaiImpaginazione(QTextDocument& documento) { documento.markContentsDirty(0, documento.characterCount()); }


}  // namespace

Guida CaricaGuida(const QString& percorsoMarkdown, const Pagina& pagina) {
    Guida guida;
    guida.documento = std::make_unique<QTextDocument>();
    QTextDocument& documento = *guida.documento;

    QFile file(percorsoMarkdown);
    if (!file.open(QIODevice::ReadOnly)) {
        guida.errori << QStringLiteral("cannot read %1").arg(percorsoMarkdown);
        return guida;
    }
    QString testo = QString::fromUtf8(file.readAll());

    // The table of contents marker becomes a paragraph that survives the Markdown reader;
    // its title follows the marker in the text.
    static const QRegularExpression marcatore(QStringLiteral("^<!--[ \\t]*toc:[ \\t]*(.*?)[ \\t]*-->[ \\t]*$"),
                                              QRegularExpression::MultilineOption);
    const QRegularExpressionMatch trovato = marcatore.match(testo);
    QString titoloIndice;
    if (trovato.hasMatch()) {
        titoloIndice = trovato.captured(1);
        testo.replace(trovato.capturedStart(), trovato.capturedLength(), kSegnapostoIndice);
    }

    const QFileInfo info(percorsoMarkdown);
    documento.setBaseUrl(QUrl::fromLocalFile(info.absolutePath() + QLatin1Char('/')));
    QFont base;
    base.setFamilies(FamiglieTesto());
    base.setPointSizeF(pagina.corpoPunti);
    documento.setDefaultFont(base);
    documento.setDocumentMargin(0);
    documento.setMarkdown(testo, QTextDocument::MarkdownDialectGitHub);

    CaricaImmagini(documento, info.absolutePath(), pagina, guida.errori);

    std::vector<QTextTable*> tabelle;
    CercaTabelle(documento.rootFrame(), tabelle);
    for (QTextTable* tabella : tabelle) StilizzaTabella(*tabella, pagina);

    for (QTextBlock blocco = documento.begin(); blocco.isValid(); blocco = blocco.next()) {
        if (blocco.text() == kSegnapostoIndice) {
            QTextBlockFormat formato;
            formato.setProperty(QTextFormat::UserProperty, true);  // marks the contents title
            ImpostaFormatoBlocco(documento, blocco, formato);
            QTextCursor cursore(&documento);
            cursore.setPosition(blocco.position());
            cursore.setPosition(blocco.position() + blocco.length() - 1, QTextCursor::KeepAnchor);
            cursore.insertText(titoloIndice);
            StilizzaTitolo(documento, documento.findBlock(blocco.position()), *StilePerLivello(2));
            continue;
        }
        if (QTextCursor(blocco).currentTable()) continue;
        const int livello = blocco.blockFormat().headingLevel();
        if (const StileTitolo* stile = StilePerLivello(livello)) {
            if (livello == 1 && guida.titolo.isEmpty()) guida.titolo = blocco.text();
            StilizzaTitolo(documento, blocco, *stile);
        } else if (blocco.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth)) {
            RendiSaltoPagina(documento, blocco);
        } else {
            StilizzaTesto(documento, blocco, pagina);
        }
    }
    return guida;
}

int PaginaDelBlocco(const QTextDocument& documento, int posizione) {
    const QTextBlock blocco = documento.findBlock(posizione);
    const QTextLayout* layout = blocco.layout();
    double y = documento.documentLayout()->blockBoundingRect(blocco).top();
    if (layout && layout->lineCount() > 0) y = layout->position().y() + layout->lineAt(0).y();
    const double altezza = documento.pageSize().height();
    return static_cast<int>(std::floor(y / altezza)) + 1;
}

void Impagina(Guida& guida, QPagedPaintDevice& dispositivo, const Pagina& pagina) {
    QTextDocument& documento = *guida.documento;
    const double scala = dispositivo.logicalDpiY() / kPuntiDocumento;
    documento.documentLayout()->setPaintDevice(&dispositivo);
    documento.setPageSize(QSizeF(LarghezzaTesto(pagina) * scala, AltezzaTesto(pagina) * scala));

    // The contents: one line per "##" and "###" heading after the contents title,
    // the page number at a right tab stop; numbers are filled in once the pages settle.
    std::size_t righeIndice = 0;  // number of contents lines
    QTextBlock titoloIndice;
    for (QTextBlock b = documento.begin(); b.isValid(); b = b.next())
        if (b.blockFormat().boolProperty(QTextFormat::UserProperty)) titoloIndice = b;
    if (titoloIndice.isValid()) {
        std::vector<std::pair<int, QString>> titoli;
        for (QTextBlock b = titoloIndice.next(); b.isValid(); b = b.next()) {
            const int livello = b.blockFormat().headingLevel();
            if (livello == 2 || livello == 3) titoli.emplace_back(livello, b.text());
        }
        QTextCursor cursore(&documento);
        cursore.setPosition(titoloIndice.position() + titoloIndice.length() - 1);
        for (const auto& [livello, testo] : titoli) {
            // Tab stops count from the text's left edge and must fall inside the line, so
            // sub-entries are indented with spaces rather than a margin.
            QTextBlockFormat formato;
            formato.setTopMargin(livello == 2 ? 4 : 0);
            formato.setLineHeight(125, QTextBlockFormat::ProportionalHeight);
            formato.setTabPositions({QTextOption::Tab(LarghezzaTesto(pagina) - 1, QTextOption::RightTab)});
            QTextCharFormat caratteri;
            caratteri.setFontFamilies(FamiglieTesto());
            caratteri.setFontPointSize(livello == 2 ? pagina.corpoPunti : pagina.corpoPunti * 0.92);
            caratteri.setFontWeight(livello == 2 ? QFont::DemiBold : QFont::Normal);
            cursore.insertBlock(formato, caratteri);
            ++righeIndice;
            const QString rientro = livello == 3 ? QStringLiteral("\u2003\u2003") : QString();
            cursore.insertText(rientro + testo + kTabulazione + QStringLiteral("00"), caratteri);
        }
    }

    // Headings stay with what follows them.
    const double altezzaPagina = documento.pageSize().height();
    const double minimo = AltezzaRiga(pagina) * kRigheDopoTitolo * scala;
    for (int passo = 0; passo < kPassiImpaginazione; ++passo) {
        documento.pageCount();  // lays out the whole document now
        bool spostato = false;
        for (QTextBlock b = documento.begin(); b.isValid(); b = b.next()) {
            if (b.blockFormat().headingLevel() < 2) continue;
            if (b.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) continue;
            const QRectF area = documento.documentLayout()->blockBoundingRect(b);
            const double finePagina = (std::floor(area.top() / altezzaPagina) + 1) * altezzaPagina;
            if (finePagina - area.bottom() >= minimo) continue;
            if (std::fmod(area.top(), altezzaPagina) < 1) continue;  // already at the top
            QTextBlockFormat formato = b.blockFormat();
            formato.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            ImpostaFormatoBlocco(documento, b, formato);
            RifaiImpaginazione(documento);
            spostato = true;
            break;  // one at a time: each move shifts everything after it
        }
        if (!spostato) break;
    }

    // The numbers are read from a complete layout and written from the last line up (an
    // edit moves every position after it); a number of another width may move a line, so
    // this repeats until the numbers hold. Lines and headings are found afresh each time.
    std::vector<int> scritti;
    for (int passo = 0; righeIndice > 0 && passo < kPassiImpaginazione; ++passo) {
        RifaiImpaginazione(documento);
        documento.pageCount();  // lays out the whole document now
        std::vector<QTextBlock> righe;
        QTextBlock b = documento.findBlock(titoloIndice.position()).next();
        for (; b.isValid() && righe.size() < righeIndice; b = b.next()) righe.push_back(b);
        std::vector<int> numeri;
        for (; b.isValid(); b = b.next()) {
            const int livello = b.blockFormat().headingLevel();
            if (livello == 2 || livello == 3) numeri.push_back(PaginaDelBlocco(documento, b.position()));
        }
        if (numeri == scritti) break;
        for (std::size_t i = std::min(numeri.size(), righe.size()); i-- > 0;) {
            const QString testo = righe[i].text();
            QTextCursor cursore(&documento);
            cursore.setPosition(righe[i].position() + testo.lastIndexOf(kTabulazione) + 1);
            cursore.setPosition(righe[i].position() + testo.size(), QTextCursor::KeepAnchor);
            cursore.insertText(QString::number(numeri[i]));
        }
        scritti = numeri;
    }
    RifaiImpaginazione(documento);
    guida.pagine = documento.pageCount();
}

void Disegna(const Guida& guida, QPagedPaintDevice& dispositivo, const Pagina& pagina) {
    const QTextDocument& documento = *guida.documento;
    const double scala = dispositivo.logicalDpiY() / kPuntiDocumento;
    const QSizeF area = documento.pageSize();
    QPainter pittore(&dispositivo);
    QFont fontPiede;
    fontPiede.setFamilies(FamiglieTesto());
    fontPiede.setPointSizeF(pagina.corpoPunti * 0.8);
    const double piede = MmInDocumento(pagina.altezzaPiedeMm) * scala;
    for (int i = 0; i < guida.pagine; ++i) {
        if (i > 0) dispositivo.newPage();
        pittore.save();
        pittore.setClipRect(QRectF(QPointF(0, 0), area));
        pittore.translate(0, -i * area.height());
        QAbstractTextDocumentLayout::PaintContext contesto;
        contesto.clip = QRectF(0, i * area.height(), area.width(), area.height());
        contesto.palette.setColor(QPalette::Text, Qt::black);
        documento.documentLayout()->draw(&pittore, contesto);
        pittore.restore();

        const double y = area.height() + piede * 0.35;
        pittore.setPen(QPen(kColoreBordo, 0.5 * scala));
        pittore.drawLine(QPointF(0, y), QPointF(area.width(), y));
        pittore.setPen(kColorePiede);
        pittore.setFont(fontPiede);
        const QRectF riga(0, y + 2 * scala, area.width(), piede * 0.6);
        pittore.drawText(riga, Qt::AlignLeft | Qt::AlignVCenter, guida.titolo);
        pittore.drawText(riga, Qt::AlignRight | Qt::AlignVCenter,
                         QStringLiteral("%1 / %2").arg(i + 1).arg(guida.pagine));
    }
}

QStringList ScriviPdf(const QString& percorsoMarkdown, const QString& percorsoPdf, const Pagina& pagina) {
    Guida guida = CaricaGuida(percorsoMarkdown, pagina);
    if (!guida.errori.isEmpty()) return guida.errori;

    // Written beside the target and renamed, so that a failed run leaves no half file.
    const QString provvisorio = percorsoPdf + QStringLiteral(".part");
    {
        QPdfWriter scrittore(provvisorio);
        scrittore.setResolution(pagina.risoluzione);
        scrittore.setPageLayout(QPageLayout(pagina.formato, QPageLayout::Portrait, pagina.marginiMm,
                                            QPageLayout::Millimeter));
        scrittore.setTitle(guida.titolo);
        scrittore.setCreator(QStringLiteral("KRT guide2pdf"));
        Impagina(guida, scrittore, pagina);
        Disegna(guida, scrittore, pagina);
    }
    QFile::remove(percorsoPdf);
    if (!QFile::rename(provvisorio, percorsoPdf)) return {QStringLiteral("cannot write %1").arg(percorsoPdf)};
    return {};
}

}  // namespace krt::guida
