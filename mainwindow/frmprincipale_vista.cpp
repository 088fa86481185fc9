// What the preview box shows around the generated preview: the copy zoomed to fit, the
// mark of a preview that no longer matches the settings, the printed width and the
// warnings of the status line, the styles whose font is missing.
#include "mainwindow/frmprincipale.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <QApplication>
#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include "cycle/avvisi.h"
#include "mainwindow/attributi.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/scansione.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

using namespace finestra;

namespace {

// The bars and the HRC line on one line each, as wide as they need.
void SenzaACapo(QTextDocument& documento) {
    QTextOption opzione = documento.defaultTextOption();
    opzione.setWrapMode(QTextOption::NoWrap);
    documento.setDefaultTextOption(opzione);
}

}  // namespace

QString frmPrincipale::motivoSuperata() const {
    if (documento_->isEmpty()) return {};
    if (!motivoRifiuto_.isEmpty()) return motivoRifiuto_;
    if (txtCodice->text() != contenutoDisegnato_ || ValoreDimensione() != dimensioneDisegnata_)
        return CaricaStringa(IdContenutoCambiato);
    return {};
}

// The preview stays on screen when the settings move away from it, dimmed, with one line
// saying why; the scan line under it then speaks of the old symbol and is dimmed too.
void frmPrincipale::AggiornaStato() {
    const QString motivo = motivoSuperata();
    labSuperata->setText(motivo.isEmpty() ? QString() : CaricaStringa(IdAnteprimaSuperata).arg(motivo));
    labSuperata->setVisible(!motivo.isEmpty());
    QPalette tavolozza = rtfContenuto->palette();
    const QPalette normale = QApplication::palette(rtfContenuto);
    tavolozza.setColor(QPalette::Text, motivo.isEmpty() ? normale.color(QPalette::Text) : QColor(170, 170, 170));
    rtfContenuto->setPalette(tavolozza);
    scansione_->etichetta()->setEnabled(motivo.isEmpty());
    AggiornaAvvisi();
}

double frmPrincipale::LarghezzaSimboloMm() const {
    const double punti = ValoreDimensione();
    if (punti <= 0 || righeBarre_.isEmpty() || famigliaBarre_.isEmpty() ||
        lstFont->findItems(famigliaBarre_, Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty())
        return 0;
    // Measured at 1000 pixels to the em, so that the screen's resolution plays no part.
    QFont font(famigliaBarre_);
    font.setPixelSize(1000);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metriche(font);
    double em = 0;
    for (const QString& riga : righeBarre_) em = std::max(em, metriche.horizontalAdvance(riga) / 1000.0);
    return LarghezzaMm(em, punti);
}

void frmPrincipale::AggiornaAvvisi() {
    // The warnings about the content and its width belong to the preview drawn: while it is
    // out of date they are not shown, and its width is greyed like the preview.
    const bool superata = !motivoSuperata().isEmpty();
    QStringList righe = superata ? QStringList() : avvisiContenuto_;
    const double mm = LarghezzaSimboloMm();
    const bool largo = mm > LarghezzaColonnaMm && !superata;
    labLarghezza->setText(mm > 0 ? CaricaStringa(IdLarghezzaMm).arg(mm, 0, 'f', 1) : QString());
    labLarghezza->setStyleSheet(superata ? QStringLiteral("color: #aaaaaa;")
                                : largo  ? QStringLiteral("color: #b00000; font-weight: bold;")
                                         : QString());
    if (largo) righe << CaricaStringa(IdTroppoLargo).arg(LarghezzaColonnaMm, 0, 'f', 0);
    if (avvisoDimensione_) righe << CaricaStringa(IdDimensioneMassima).arg(DimensioneMassima);
    AggiornaMisuraStampa();
    labAvvisi->setText(righe.join(QLatin1Char('\n')));
    labAvvisi->setVisible(!righe.isEmpty());
}

// The box shows a copy of the preview, zoomed out until the whole symbol fits (never
// in): the generated preview keeps the real size for Clipboard and the scan check.
void frmPrincipale::AggiornaVista() {
    if (inAggiornaVista_) return;  // setDocument may resize the box: one pass is enough
    inAggiornaVista_ = true;
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{inAggiornaVista_};
    auto* vista = documento_->clone(rtfContenuto);
    SenzaACapo(*vista);
    vista->setTextWidth(-1);
    const QSizeF naturale = vista->size();
    // The room inside the box's frame, less the document's margins and a pixel or two for
    // rounding, so that no scroll bar appears.
    const double margini = 2 * vista->documentMargin() + 4;
    const QSizeF spazio = QSizeF(rtfContenuto->contentsRect().size()) - QSizeF(margini, margini);
    double zoom = 1;
    if (naturale.width() > 0 && naturale.height() > 0)
        zoom = std::min({1.0, spazio.width() / naturale.width(), spazio.height() / naturale.height()});
    zoom = std::max(zoom, 0.01);
    if (zoom < 1) {
        for (QTextBlock blocco = vista->begin(); blocco.isValid(); blocco = blocco.next()) {
            for (auto it = blocco.begin(); !it.atEnd(); ++it) {
                const QTextFragment frammento = it.fragment();
                const double punti = frammento.charFormat().fontPointSize();
                if (punti <= 0) continue;
                QTextCursor cursore(vista);
                cursore.setPosition(frammento.position());
                cursore.setPosition(frammento.position() + frammento.length(), QTextCursor::KeepAnchor);
                QTextCharFormat formato;
                formato.setFontPointSize(punti * zoom);
                cursore.mergeCharFormat(formato);
            }
        }
    }
    // The HRC line is centred on the width of the bars.
    vista->setTextWidth(-1);
    vista->setTextWidth(vista->idealWidth());
    // The box's first document belongs to it and goes with setDocument; the copies are ours.
    QTextDocument* prima = rtfContenuto->document();
    const bool nostra = prima->parent() == rtfContenuto;
    rtfContenuto->setDocument(vista);
    if (nostra) delete prima;
    rtfContenuto->setToolTip(zoom < 1 ? QStringLiteral("%1%").arg(std::lround(zoom * 100)) : QString());
}

// Styles whose face is not installed stay in the list, greyed, with the family missing.
void frmPrincipale::MarcaStili(const VoceCatalogo* voce) {
    if (voce == nullptr) return;
    for (int i = 0; i < cmbStile->count(); ++i) {
        const std::string famiglia = ScegliFontFamiglia(voce->famiglia, AWindows1252Sostituendo(cmbStile->itemText(i)));
        const QString nome = DaWindows1252(famiglia.empty() ? std::string(voce->famiglia) : famiglia);
        const bool installato =
            !famiglia.empty() && !lstFont->findItems(nome, Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty();
        cmbStile->setItemData(i, installato ? QVariant() : QVariant(QColor(150, 150, 150)), Qt::ForegroundRole);
        cmbStile->setItemData(i, installato ? QVariant() : QVariant(CaricaStringa(IdStileNonInstallato).arg(nome)),
                              Qt::ToolTipRole);
    }
}

}  // namespace krt
