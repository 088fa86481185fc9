// The generate cycle: check, encode, preview, and the messages of a refusal.
#include "mainwindow/frmprincipale.h"

#include <exception>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>

#include "barcodes/errori.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/scansione.h"
#include "mainwindow/voce.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

using namespace finestra;

void frmPrincipale::VerificaEGenera() {
    if (GeneraAnteprima(true)) {
        int tasto = 13;
        txtCodice_KeyPress(tasto);
    }
}

QString frmPrincipale::Dettaglio(int id, const QString& argomento) {
    try {
        const QString testo = CaricaStringa(id);
        return argomento.isNull() ? testo : testo.arg(argomento);
    } catch (const std::exception&) {
        return argomento;
    }
}

QString frmPrincipale::DettaglioImprevisto(const std::exception& errore) {
    return Dettaglio(IdStringa::DettaglioImprevisto, QString::fromLocal8Bit(errore.what()));
}

void frmPrincipale::MostraErrore(const QString& dettaglio) {
    QString titolo = QStringLiteral("Error");
    QString testo = QStringLiteral("The value introduced is not allowed");
    try {
        titolo = CaricaStringa(IdTitoloErrore);
        testo = CaricaStringa(IdValoreNonAmmesso);
    } catch (const std::exception&) {
    }
    servizi_.messaggio(QMessageBox::Critical, titolo, testo, dettaglio);
}

bool frmPrincipale::GeneraAnteprima(bool SoloVerifica) {
    const QString testo = txtCodice->text();
    if (testo.isEmpty()) return false;
    const VoceCatalogo* voce = VoceSelezionata();
    if (voce == nullptr) return true;

    // A character that Windows-1252 cannot hold is refused like any other
    // character the symbology does not know.
    const auto contenuto = AWindows1252(testo);
    const std::string stile = AWindows1252Sostituendo(cmbStile->currentText());
    OpzioniVoce opzioni;
    opzioni.checkDigit = chkDigit->isChecked();
    opzioni.hrc = chkHRC->isChecked();
    opzioni.checkDigitInHRC = configurazione_.CheckDigitInHRC != 0;
    opzioni.stile = stile;
    opzioni.testoHRC = testoHRC_;

    // The check also encodes: a content that validates but makes the engine
    // fail (a bad escape, a check sum overflow) is refused here too, so that an
    // option change stays silent and only Enter reports it.
    QString dettaglio;
    try {
        if (contenuto) {
            const GenerazioneVoce generazione = GeneraVoce(*voce, *contenuto, opzioni);
            if (generazione.accettato) {
                if (!SoloVerifica) {
                    ScriviAnteprima(generazione.glifi, generazione.famiglia, generazione.hrc);
                    scansione_->Richiedi(*voce, generazione, *rtfContenuto->document());
                }
                return true;
            }
        }
    } catch (const EscapeNonValido&) {
        dettaglio = Dettaglio(IdStringa::DettaglioEscape);
    } catch (const OverflowCheckSum&) {
        dettaglio = Dettaglio(IdStringa::DettaglioCheckSum);
    } catch (const IntervalloNonValido&) {
        dettaglio = Dettaglio(IdStringa::DettaglioIntervallo);
    } catch (const std::exception& e) {
        dettaglio = DettaglioImprevisto(e);
    }
    if (!SoloVerifica) MostraErrore(dettaglio);
    return false;
}

void frmPrincipale::ScriviAnteprima(const std::string& Glifi, const std::string& FontFamiglia,
                                    const std::string& TestoHRC) {
    QTextDocument* documento = rtfContenuto->document();
    documento->clear();
    QTextCursor cursore(documento);

    QTextCharFormat barre;
    QFont fontBarre = documento->defaultFont();
    if (!FontFamiglia.empty()) {
        const QString famiglia = DaWindows1252(FontFamiglia);
        barre.setFontFamilies(QStringList{famiglia});
        fontBarre.setFamilies(QStringList{famiglia});
    }
    const double punti = ValoreDimensione();
    if (punti > 0) barre.setFontPointSize(punti);
    cursore.setBlockCharFormat(barre);
    cursore.insertText(LeggiGlifi(Glifi, fontBarre), barre);

    if (chkHRC->isChecked() && !TestoHRC.empty()) {
        const Configurazione& c = configurazione_;
        QTextCharFormat hrc;
        hrc.setFontFamilies(QStringList{DaWindows1252(c.NomeFontHRC.Rifilato())});
        hrc.setFontWeight(c.GrassettoHRC ? QFont::Bold : QFont::Normal);
        hrc.setFontItalic(c.CorsivoHRC != 0);
        if (c.DimensioneHRC > 0) hrc.setFontPointSize(c.DimensioneHRC);
        hrc.setFontUnderline(c.SottolineatoHRC != 0);
        hrc.setFontStrikeOut(c.BarratoHRC != 0);
        cursore.insertBlock(QTextBlockFormat(), hrc);
        cursore.insertText(DaWindows1252(TestoHRC), hrc);
    }
    AvvisaFont(FontFamiglia);
}

// One line above the preview when the bars cannot be drawn as they should:
// the family is not installed, or the style has no face in it.
void frmPrincipale::AvvisaFont(const std::string& famiglia) {
    if (famiglia.empty()) {
        avvisoId_ = IdStringa::StileSenzaFont;
        avvisoArgomento_ = cmbStile->currentText();
    } else if (lstFont->findItems(DaWindows1252(famiglia), Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty()) {
        avvisoId_ = IdStringa::FontNonInstallato;
        avvisoArgomento_ = DaWindows1252(famiglia);
    } else {
        avvisoId_ = 0;
        avvisoArgomento_.clear();
    }
    labAvvisoFont->setText(avvisoId_ != 0 ? CaricaStringa(avvisoId_).arg(avvisoArgomento_) : QString());
}

}  // namespace krt
