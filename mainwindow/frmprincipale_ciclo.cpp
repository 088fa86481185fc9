// The generate cycle: check, encode, preview, and the messages of a refusal.
#include "mainwindow/frmprincipale.h"

#include <exception>
#include <optional>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>

#include "barcodes/errori.h"
#include "cycle/avvisi.h"
#include "cycle/motivi.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/scansione.h"
#include "cycle/voce.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

using namespace finestra;

namespace {

// 1-based position (in characters) of the first character Windows-1252 cannot hold.
std::size_t PrimoNon1252(const QString& testo) {
    std::size_t posizione = 0;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo.at(i).isLowSurrogate()) continue;
        ++posizione;
        const qsizetype n = testo.at(i).isHighSurrogate() && i + 1 < testo.size() ? 2 : 1;
        if (!AWindows1252(QStringView(testo).mid(i, n))) return posizione;
    }
    return posizione;
}

}  // namespace

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
    if (voce == nullptr) {
        // An option change stays silent; Enter says what is missing.
        if (!SoloVerifica)
            servizi_.messaggio(QMessageBox::Information, CaricaStringa(IdStringa::TitoloAvviso),
                               CaricaStringa(IdScegliSimbologia), QString());
        return false;
    }

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
                    // Control characters of an escaped content show as placeholders.
                    const std::string_view codice = voce->codice;
                    const bool escape =
                        codice == "C128" || codice == "E128" || codice == "C39FULL" || codice == "C93FULL";
                    ScriviAnteprima(
                        generazione.glifi, generazione.famiglia,
                        escape ? HRCLeggibile(generazione.hrc, codice == "C128" || codice == "E128") : generazione.hrc);
                    glifiDisegnati_ = generazione.glifi;
                    voceDisegnata_ = voce;
                    contenutoDisegnato_ = testo;
                    dimensioneDisegnata_ = ValoreDimensione();
                    motivoRifiuto_.clear();
                    avvisiContenuto_ = AvvisiContenuto(*voce, generazione);
                    AggiornaVista();
                    AggiornaStato();
                    scansione_->Richiedi(*voce, generazione, *documento_);
                }
                return true;
            }
            dettaglio = MotivoRifiuto(*voce, *contenuto, opzioni.checkDigit, generazione.rifiuto);
        } else {
            const Rifiuto rifiuto = Rifiuto::InCarattere(PrimoNon1252(testo), 0);
            dettaglio = QString::fromStdString(TestoRifiuto(rifiuto, voce->codice, OffsetLingua()));
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
    // The preview on screen stays, marked as not matching, until a cycle succeeds.
    motivoRifiuto_ = dettaglio;
    AggiornaStato();
    if (!SoloVerifica) MostraErrore(dettaglio);
    return false;
}

// Why a content is refused, as the user can act on it: a whole number typed with the
// check digit that KRT adds, or the reason the rules give.
QString frmPrincipale::MotivoRifiuto(const VoceCatalogo& voce, const std::string& contenuto, bool check,
                                     const Rifiuto& rifiuto) {
    if (CodiceAddOn(voce).empty()) {
        if (const auto inPiu = CheckDigitInPiu(voce.codice, contenuto, CheckVoce(voce, check))) {
            const bool isbn = voce.codice == "ISBN" || voce.codice == "ISBN13";
            QString motivo = CaricaStringa(isbn ? IdCifreInPiuISBN : IdCifreInPiu)
                                 .arg(static_cast<qulonglong>(inPiu->digitate))
                                 .arg(static_cast<qulonglong>(inPiu->daDigitare));
            if (inPiu->checkErrato)
                motivo += QLatin1Char(' ') + CaricaStringa(IdCheckDovrebbe).arg(QChar::fromLatin1(*inPiu->checkErrato));
            return motivo;
        }
    }
    const std::string testo = TestoRifiuto(rifiuto, voce.codice, OffsetLingua());
    if (!testo.empty()) return QString::fromStdString(testo);
    return CaricaStringa(IdRifiutoGenerico).arg(cmbSimbologia->currentText());
}

// Warnings about a content that is drawn but is probably not what the user meant.
QStringList frmPrincipale::AvvisiContenuto(const VoceCatalogo& voce, const GenerazioneVoce& generazione) {
    QStringList avvisi;
    const std::string& principale = generazione.parti.principale;
    std::optional<char> check;
    if (!generazione.check) check = CheckDigitErrato(voce.codice, principale);
    if (voce.codice == "E128") {
        // A GS1 key at the start of a content typed by hand: (00), (01), (02).
        const std::string_view testo = principale;
        const std::string_view ai = testo.substr(0, 2);
        const std::size_t lunghezza = ai == "00" ? 18 : (ai == "01" || ai == "02") ? 14 : 0;
        if (lunghezza != 0 && testo.size() >= 2 + lunghezza)
            check = CheckDigitChiaveGS1(ai, testo.substr(2, lunghezza));
    }
    if (check) avvisi << CaricaStringa(IdCheckDovrebbe).arg(QChar::fromLatin1(*check));
    if (voce.codice == "ISBN13" && PrefissoISBNErrato(principale)) avvisi << CaricaStringa(IdPrefissoISBN);
    return avvisi;
}

void frmPrincipale::ScriviAnteprima(const std::string& Glifi, const std::string& FontFamiglia,
                                    const std::string& TestoHRC) {
    QTextDocument* documento = documento_;
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
    const QString righe = LeggiGlifi(Glifi, fontBarre);
    cursore.insertText(righe, barre);
    famigliaBarre_ = DaWindows1252(FontFamiglia);
    righeBarre_ = righe.split(QRegularExpression(QStringLiteral("[\\r\\n\\x{2029}]+")), Qt::SkipEmptyParts);

    if (chkHRC->isChecked() && !TestoHRC.empty()) {
        const Configurazione& c = configurazione_;
        QTextCharFormat hrc;
        hrc.setFontFamilies(QStringList{DaWindows1252(c.NomeFontHRC.Rifilato())});
        hrc.setFontWeight(c.GrassettoHRC ? QFont::Bold : QFont::Normal);
        hrc.setFontItalic(c.CorsivoHRC != 0);
        if (c.DimensioneHRC > 0) hrc.setFontPointSize(c.DimensioneHRC);
        hrc.setFontUnderline(c.SottolineatoHRC != 0);
        hrc.setFontStrikeOut(c.BarratoHRC != 0);
        // Centred under the bars in the preview box (the copy keeps its own layout).
        QTextBlockFormat centrato;
        centrato.setAlignment(Qt::AlignHCenter);
        cursore.insertBlock(centrato, hrc);
        cursore.insertText(DaWindows1252(TestoHRC), hrc);
        hrcDisegnato_ = DaWindows1252(TestoHRC);
    } else {
        hrcDisegnato_.clear();
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
