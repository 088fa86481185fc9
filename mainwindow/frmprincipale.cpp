#include "mainwindow/frmprincipale.h"

#include <cmath>
#include <algorithm>
#include <exception>
#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

#include "barcodes/errori.h"
#include "cycle/avvisi.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/attributi.h"
#include "mainwindow/configurazione.h"
#include "mainwindow/frmelenco.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/informazioni.h"
#include "mainwindow/rtf.h"
#include "mainwindow/scansione.h"
#include "mainwindow/stampa.h"
#include "support/cp1252.h"
#include "support/frmsplash.h"
#include "support/stringhe.h"
#include "support/varie.h"
#include "wizard/frmean128wizard.h"

namespace krt {

using namespace finestra;

namespace {

void MessaggioModale(QWidget* genitore, QMessageBox::Icon icona, const QString& titolo, const QString& testo,
                     const QString& dettaglio) {
    QMessageBox box(icona, titolo, testo, QMessageBox::Ok, genitore);
    if (!dettaglio.isEmpty()) box.setInformativeText(dettaglio);
    box.exec();
}

}  // namespace

frmPrincipale::frmPrincipale(ServiziFinestra servizi, QWidget* parent)
    : QMainWindow(parent), servizi_(std::move(servizi)) {
    setObjectName(QStringLiteral("frmPrincipale"));
    if (!servizi_.messaggio)
        servizi_.messaggio = [this](QMessageBox::Icon icona, const QString& titolo, const QString& testo,
                                    const QString& dettaglio) { MessaggioModale(this, icona, titolo, testo, dettaglio); };
    if (!servizi_.apriDocumento) servizi_.apriDocumento = [](const QString& percorso) { return ApriDocumento(percorso); };
    if (!servizi_.scegliFont)
        servizi_.scegliFont = [this](const QFont& iniziale) -> std::optional<QFont> {
            bool confermato = false;
            const QFont scelto =
                QFontDialog::getFont(&confermato, iniziale, this, QString(), QFontDialog::ScalableFonts);
            if (!confermato) return std::nullopt;
            return scelto;
        };
    if (!servizi_.wizard)
        servizi_.wizard = [this](std::string& contenuto, std::string& testoHRC) {
            frmEan128Wizard wizard(this);
            if (wizard.exec() != QDialog::Accepted) return false;
            contenuto = wizard.Contenuto();
            testoHRC = wizard.TestoHRC();
            return true;
        };

    CreaControlli();
    CreaMenu();
    CollegaEventi();
}

frmPrincipale::~frmPrincipale() { ImpostaAvvisoCartellaDati({}); }

// Every handler is reached from here. A fault that escapes a handler (the string
// table, the file system) is shown as an error instead of reaching the event loop.
void frmPrincipale::CollegaEventi() {
    auto protetto = [this](void (frmPrincipale::*gestore)()) {
        return [this, gestore] {
            try {
                (this->*gestore)();
            } catch (const std::exception& e) {
                MostraErrore(DettaglioImprevisto(e));
            }
        };
    };
    txtCodice->installEventFilter(this);
    rtfContenuto->installEventFilter(this);
    connect(txtCodice, &QLineEdit::textChanged, this, protetto(&frmPrincipale::AggiornaStato));
    txtDimensione->installEventFilter(this);
    connect(txtDimensione, &QLineEdit::textChanged, this, protetto(&frmPrincipale::txtDimensione_Change));
    connect(chkDigit, &QCheckBox::toggled, this, protetto(&frmPrincipale::chkDigit_Click));
    connect(chkHRC, &QCheckBox::toggled, this, protetto(&frmPrincipale::chkHRC_Click));
    connect(cmbSimbologia, &QComboBox::currentIndexChanged, this, protetto(&frmPrincipale::cmbSimbologia_Click));
    connect(cmbStile, &QComboBox::currentIndexChanged, this, protetto(&frmPrincipale::cmbStile_Click));
    connect(cmdClipboard, &QPushButton::clicked, this, protetto(&frmPrincipale::cmdClipboard_Click));
    connect(imgWizard, &QToolButton::clicked, this, protetto(&frmPrincipale::imgWizard_Click));
    connect(mnuIncludiCheckDigit, &QAction::triggered, this, protetto(&frmPrincipale::mnuIncludiCheckDigit_Click));
    connect(mnuFont, &QAction::triggered, this, protetto(&frmPrincipale::mnuFont_Click));
    connect(mnuLinguaItaliano, &QAction::triggered, this, protetto(&frmPrincipale::mnuLinguaItaliano_Click));
    connect(mnuLinguaEnglish, &QAction::triggered, this, protetto(&frmPrincipale::mnuLinguaEnglish_Click));
    connect(mnuManuale, &QAction::triggered, this, protetto(&frmPrincipale::mnuManuale_Click));
    connect(mnuInformazioni, &QAction::triggered, this, protetto(&frmPrincipale::mnuInformazioni_Click));
    connect(mnuEsci, &QAction::triggered, this, protetto(&frmPrincipale::mnuEsci_Click));
    connect(mnuElenco, &QAction::triggered, this, protetto(&frmPrincipale::mnuElenco_Click));
    connect(mnuEsporta, &QAction::triggered, this, protetto(&frmPrincipale::mnuEsporta_Click));
    connect(mnuStampa, &QAction::triggered, this, protetto(&frmPrincipale::mnuStampa_Click));
    connect(pannelloStampa_, &PannelloStampa::cambiato, this, protetto(&frmPrincipale::AggiornaMisuraStampa));
}

// ---- Start-up ---------------------------------------------------------------------------

void frmPrincipale::Avvia() {
    frmSplash splash;
    splash.show();
    QApplication::processEvents();

    ImpostaAvvisoCartellaDati([this](const QString& messaggio) {
        servizi_.messaggio(QMessageBox::Warning, CaricaStringa(IdStringa::TitoloAvviso), messaggio, QString());
    });
    CartellaDati();
    CaricaFont(*lstFont);
    CaricaConfigurazione(configurazione_);
    ImpostaLingua();
    CaricaTesti();
    try {
        ApplicaConfigurazione();
    } catch (const std::exception& e) {
        MostraErrore(DettaglioImprevisto(e));
    }
    splash.close();
    // Without any barcode font the window still works, but the user must know why the
    // preview shows letters: once, in the language chosen.
    if (lstFont->count() == 0)
        servizi_.messaggio(QMessageBox::Information, CaricaStringa(IdStringa::TitoloAvviso),
                           CaricaStringa(IdNessunFont), QString());
}

void frmPrincipale::ApplicaConfigurazione() {
    // What is read is shown, not written back: only a change by the user saves.
    salvataggioSospeso_ = true;
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{salvataggioSospeso_};
    // Setting a control runs its handler, which stores what the control shows:
    // the texts to select are read before any of that.
    const QString simbologia = DaWindows1252(configurazione_.Simbologia.Rifilato());
    const QString stile = DaWindows1252(configurazione_.Stile.Rifilato());
    chkDigit->setChecked(configurazione_.CheckDigit != 0);
    chkHRC->setChecked(configurazione_.HRC != 0);
    mnuIncludiCheckDigit->setChecked(configurazione_.CheckDigitInHRC != 0);
    DescriviFontHRC();
    const QString dimensione = QString::number(configurazione_.Dimensione);
    if (txtDimensione->text() != dimensione) txtDimensione->setText(dimensione);
    // A text not in the list (stored in the other language) leaves the list unselected.
    const int indiceSimbologia = cmbSimbologia->findText(simbologia);
    if (indiceSimbologia >= 0) cmbSimbologia->setCurrentIndex(indiceSimbologia);
    const int indiceStile = cmbStile->findText(stile);
    if (indiceStile >= 0) cmbStile->setCurrentIndex(indiceStile);
}

// ---- Options ----------------------------------------------------------------------------

void frmPrincipale::Salva() {
    if (!salvataggioSospeso_) SalvaConfigurazione(configurazione_);
}

const VoceCatalogo* frmPrincipale::VoceSelezionata() const {
    const auto testo = AWindows1252(cmbSimbologia->currentText());
    if (!testo) return nullptr;
    return TrovaVoce(*testo, OffsetLingua());
}

double frmPrincipale::ValoreDimensione() const { return ValoreNumerico(txtDimensione->text()); }

void frmPrincipale::AggiornaAttributi() {
    if (inAggiornaAttributi_) return;
    inAggiornaAttributi_ = true;
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{inAggiornaAttributi_};

    const VoceCatalogo* voce = VoceSelezionata();
    const RigaAttributi& riga = RigaAttributiPerVoce(voce ? voce->id : 0);
    const std::vector<int> stili = StiliOfferti(riga);

    {
        const QSignalBlocker blocco(cmbStile);
        cmbStile->clear();
        for (int id : stili) cmbStile->addItem(CaricaStringa(id));
        cmbStile->setCurrentIndex(-1);
    }
    cmbStile->setEnabled(riga.stileAttivo);
    MarcaStili(voce);
    // The style first, so that the option boxes below already run their cycles
    // with a style selected. The style the user chose is kept by name where the new
    // list has it; otherwise Normal, the first of every list.
    const auto scelto = std::find(stili.begin(), stili.end(), stileScelto_);
    cmbStile->setCurrentIndex(scelto == stili.end() ? 0 : static_cast<int>(scelto - stili.begin()));

    switch (riga.regola) {
    case RegolaOpzioni::Libera:
        chkHRC->setEnabled(true);
        chkDigit->setEnabled(true);
        break;
    case RegolaOpzioni::HRCSpuntato:
    case RegolaOpzioni::HRCBloccato:
        chkHRC->setChecked(true);
        chkHRC->setEnabled(riga.regola == RegolaOpzioni::HRCSpuntato);
        chkDigit->setEnabled(true);
        break;
    case RegolaOpzioni::ISBN:
        chkHRC->setChecked(true);
        chkHRC->setEnabled(false);
        chkDigit->setChecked(true);
        chkDigit->setEnabled(false);
        break;
    }

    const std::string suggerimento = ComponiSuggerimento(
        riga, chkDigit->isChecked(), [](int id) { return CaricaStringa(id).toStdString(); });
    labAttributi->setText(CaricaStringa(IdAttributi::Lunghezza) + QString::fromStdString(suggerimento));
}

void frmPrincipale::DescriviFontHRC() {
    const Configurazione& c = configurazione_;
    QString descrizione = DaWindows1252(c.NomeFontHRC.Rifilato()) + QStringLiteral(" (");
    QString attributi;
    if (c.GrassettoHRC) attributi += QLatin1Char('B');
    if (c.CorsivoHRC) attributi += QLatin1Char('I');
    if (c.SottolineatoHRC) attributi += QLatin1Char('U');
    if (c.BarratoHRC) attributi += QLatin1Char('S');
    if (!attributi.isEmpty()) descrizione += attributi + QStringLiteral("; ");
    descrizione += QString::number(c.DimensioneHRC) + QStringLiteral(" punti)");
    labFont->setText(descrizione);
}

// ---- Handlers ---------------------------------------------------------------------------

void frmPrincipale::txtCodice_KeyPress(int& KeyAscii) {
    if (KeyAscii != 13) return;
    txtCodice->selectAll();
    KeyAscii = 0;
    GeneraAnteprima(false);
}

void frmPrincipale::txtCodice_GotFocus() { QTimer::singleShot(0, txtCodice, &QLineEdit::selectAll); }

void frmPrincipale::txtDimensione_GotFocus() { QTimer::singleShot(0, txtDimensione, &QLineEdit::selectAll); }

void frmPrincipale::txtDimensione_KeyPress(int& KeyAscii) {
    if (KeyAscii >= '0' && KeyAscii <= '9') {
        // A digit that would take the size past what word processors accept is refused.
        QString dopo = txtDimensione->text();
        const int inizio =
            txtDimensione->hasSelectedText() ? txtDimensione->selectionStart() : txtDimensione->cursorPosition();
        dopo.remove(inizio, txtDimensione->selectedText().size());
        dopo.insert(inizio, QChar(KeyAscii));
        if (ValoreNumerico(dopo) <= DimensioneMassima) return;
        KeyAscii = 0;
        avvisoDimensione_ = true;
        AggiornaAvvisi();
        return;
    }
    if (KeyAscii == 8) return;
    if (KeyAscii == 13) {
        VerificaEGenera();
        txtDimensione->selectAll();
    }
    KeyAscii = 0;
}

void frmPrincipale::txtDimensione_Change() {
    if (inCaricamento_) return;
    const double valore = ValoreDimensione();
    if (valore == 0) {
        txtDimensione->setText(QString::number(DimensionePredefinita));  // stores it through this handler
        return;
    }
    if (valore > DimensioneMassima) {
        avvisoDimensione_ = true;
        txtDimensione->setText(QString::number(DimensioneMassima));  // stores it through this handler
        return;
    }
    const long arrotondato = std::lround(valore);
    configurazione_.Dimensione = static_cast<std::int16_t>(arrotondato);
    Salva();
    AggiornaStato();
    avvisoDimensione_ = false;  // said once, until the limit is met again
}

void frmPrincipale::txtDimensione_LostFocus() { VerificaEGenera(); }

void frmPrincipale::chkDigit_Click() {
    if (inCaricamento_) return;
    configurazione_.CheckDigit = chkDigit->isChecked() ? 1 : 0;
    Salva();
    AggiornaAttributi();
    VerificaEGenera();
}

void frmPrincipale::chkHRC_Click() {
    if (inCaricamento_) return;
    configurazione_.HRC = chkHRC->isChecked() ? 1 : 0;
    Salva();
    VerificaEGenera();
}

void frmPrincipale::cmbSimbologia_Click() {
    if (inCaricamento_) return;
    const QString testo = cmbSimbologia->currentText();
    configurazione_.Simbologia.Imposta(AWindows1252Sostituendo(testo));
    AggiornaAttributi();
    Salva();
    const bool ean128 = !testo.isEmpty() && testo == CaricaStringa(IdEan128);
    imgWizard->setVisible(ean128);
    if (!ean128) testoHRC_.clear();
    VerificaEGenera();
}

void frmPrincipale::cmbStile_Click() {
    if (inCaricamento_) return;
    configurazione_.Stile.Imposta(AWindows1252Sostituendo(cmbStile->currentText()));
    if (!inAggiornaAttributi_) {
        const VoceCatalogo* voce = VoceSelezionata();
        const std::vector<int> stili = StiliOfferti(RigaAttributiPerVoce(voce ? voce->id : 0));
        const int indice = cmbStile->currentIndex();
        if (indice >= 0 && indice < static_cast<int>(stili.size()))
            stileScelto_ = stili[static_cast<std::size_t>(indice)];
    }
    Salva();
    VerificaEGenera();
}

void frmPrincipale::mnuIncludiCheckDigit_Click() {
    if (inCaricamento_) return;
    // The action has already inverted its check mark.
    configurazione_.CheckDigitInHRC = Booleano16(mnuIncludiCheckDigit->isChecked());
    Salva();
    AggiornaAttributi();
    VerificaEGenera();
}

void frmPrincipale::cmdClipboard_Click() {
    // The user's clipboard is replaced only by a symbol that matches the settings.
    const QString titolo = CaricaStringa(IdStringa::TitoloAvviso);
    if (documento_->isEmpty()) {
        servizi_.messaggio(QMessageBox::Information, titolo, CaricaStringa(IdAppuntiVuoti), QString());
        return;
    }
    if (const QString motivo = motivoSuperata(); !motivo.isEmpty()) {
        servizi_.messaggio(QMessageBox::Warning, titolo, CaricaStringa(IdAppuntiSuperati), motivo);
        return;
    }
    const std::string rtf = ComponiRtf(SegmentiDocumento(*documento_));
    QMimeData* dati = DatiAppuntiRtf(rtf);
    // The glyph string as plain text too, for spreadsheets and label programs.
    dati->setText(DaWindows1252(glifiDisegnati_).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    QClipboard* appunti = QGuiApplication::clipboard();
    appunti->clear();
    appunti->setMimeData(dati);
}

void frmPrincipale::imgWizard_Click() {
    std::string contenuto, testoHRC;
    if (!servizi_.wizard(contenuto, testoHRC)) return;
    txtCodice->setText(DaWindows1252(contenuto));
    testoHRC_ = std::move(testoHRC);
    int tasto = 13;
    txtCodice_KeyPress(tasto);
}

void frmPrincipale::mnuFont_Click() {
    Configurazione& c = configurazione_;
    QFont iniziale(DaWindows1252(c.NomeFontHRC.Rifilato()));
    if (c.DimensioneHRC > 0) iniziale.setPointSize(c.DimensioneHRC);
    iniziale.setBold(c.GrassettoHRC != 0);
    iniziale.setItalic(c.CorsivoHRC != 0);
    iniziale.setStrikeOut(c.BarratoHRC != 0);
    iniziale.setUnderline(c.SottolineatoHRC != 0);
    const std::optional<QFont> scelto = servizi_.scegliFont(iniziale);
    if (!scelto) return;
    c.NomeFontHRC.Imposta(AWindows1252Sostituendo(scelto->family()));
    const long punti = std::lround(scelto->pointSizeF());
    if (punti > 0 && punti <= INT16_MAX) c.DimensioneHRC = static_cast<std::int16_t>(punti);
    c.GrassettoHRC = Booleano16(scelto->bold());
    c.CorsivoHRC = Booleano16(scelto->italic());
    c.BarratoHRC = Booleano16(scelto->strikeOut());
    c.SottolineatoHRC = Booleano16(scelto->underline());
    DescriviFontHRC();
    Salva();
    // The HRC line of the preview follows the new font at once.
    VerificaEGenera();
}

void frmPrincipale::mnuInformazioni_Click() {
    Informazioni informazioni(this);
    informazioni.exec();
}

void frmPrincipale::mnuEsci_Click() { close(); }

// The list window starts from the entry, style, size and options shown here; each
// opening is a new window of its own.
void frmPrincipale::mnuElenco_Click() {
    ImpostazioniElenco impostazioni;
    impostazioni.voce = VoceSelezionata();
    impostazioni.stile = AWindows1252Sostituendo(cmbStile->currentText());
    impostazioni.punti = ValoreDimensione() > 0 ? ValoreDimensione() : finestra::DimensionePredefinita;
    impostazioni.checkDigit = chkDigit->isChecked();
    impostazioni.hrc = chkHRC->isChecked();
    impostazioni.checkDigitInHRC = configurazione_.CheckDigitInHRC != 0;
    auto* elenco = new frmElenco(impostazioni, {}, this);
    elenco->setAttribute(Qt::WA_DeleteOnClose);
    elenco->show();
}

}  // namespace krt
