// Menus, language and the captions of every control.
#include "mainwindow/frmprincipale.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/scansione.h"
#include "mainwindow/stampa.h"
#include "support/stringhe.h"
#include "support/varie.h"

namespace krt {

using namespace finestra;

void frmPrincipale::CreaMenu() {
    auto menu = [this](const char* nome) {
        QMenu* m = menuBar()->addMenu(QString());
        m->setObjectName(QLatin1String(nome));
        return m;
    };
    auto voce = [this](QMenu* m, const char* nome) {
        auto* a = new QAction(this);
        a->setObjectName(QLatin1String(nome));
        m->addAction(a);
        return a;
    };
    mnuFile = menu("mnuFile");
    mnuElenco = voce(mnuFile, "mnuElenco");
    mnuElenco->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    mnuEsporta = voce(mnuFile, "mnuEsporta");
    mnuEsporta->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    mnuStampa = voce(mnuFile, "mnuStampa");
    mnuStampa->setShortcut(QKeySequence::Print);
    mnuFile->addSeparator();
    mnuEsci = voce(mnuFile, "mnuEsci");
    mnuModifica = menu("mnuModifica");
    mnuFont = voce(mnuModifica, "mnuFont");
    mnuIncludiCheckDigit = voce(mnuModifica, "mnuIncludiCheckDigit");
    mnuIncludiCheckDigit->setCheckable(true);
    mnuLingua = menu("mnuLingua");
    mnuLinguaItaliano = voce(mnuLingua, "mnuLinguaItaliano");
    mnuLinguaEnglish = voce(mnuLingua, "mnuLinguaEnglish");
    gruppoLingua = new QActionGroup(this);
    for (QAction* a : {mnuLinguaItaliano, mnuLinguaEnglish}) {
        a->setCheckable(true);
        gruppoLingua->addAction(a);
    }
    mnuQmark = menu("mnuQmark");
    mnuManuale = voce(mnuQmark, "mnuManuale");
    mnuInformazioni = voce(mnuQmark, "mnuInformazioni");
}

// ---- Language -----------------------------------------------------------------------------

void frmPrincipale::ImpostaLingua() {
    const bool italiano = IsFile(UnisciPercorsoNome(CartellaDati(), QLatin1String(kMarcatoreItaliano)));
    mnuLinguaItaliano->setChecked(italiano);
    mnuLinguaEnglish->setChecked(!italiano);
    ImpostaOffsetLingua(italiano ? kOffsetItaliano : kOffsetInglese);
    nomeGuida_ = QLatin1String(italiano ? kGuidaItaliana : kGuidaInglese);
}

void frmPrincipale::CaricaTesti() {
    labCodice->setText(CaricaStringa(268));
    txtCodice->setToolTip(CaricaStringa(269));
    labSimbologia->setText(CaricaStringa(262));
    cmbSimbologia->setToolTip(CaricaStringa(263));
    labDimensione->setText(CaricaStringa(260));
    txtDimensione->setToolTip(CaricaStringa(261));
    labStile->setText(CaricaStringa(284));
    cmbStile->setToolTip(CaricaStringa(285));
    chkDigit->setText(CaricaStringa(266));
    chkDigit->setToolTip(CaricaStringa(267));
    chkHRC->setText(CaricaStringa(264));
    chkHRC->setToolTip(CaricaStringa(265));
    cmdClipboard->setText(CaricaStringa(270));
    cmdClipboard->setToolTip(CaricaStringa(271));
    mnuFile->setTitle(CaricaStringa(272));
    mnuEsci->setText(CaricaStringa(273));
    mnuElenco->setText(CaricaStringa(IdElenco));
    mnuEsporta->setText(CaricaStringa(IdStampa::Esporta));
    mnuStampa->setText(CaricaStringa(IdStampa::Stampa));
    pannelloStampa_->CaricaTesti();
    mnuModifica->setTitle(CaricaStringa(274));
    mnuFont->setText(CaricaStringa(275));
    mnuQmark->setTitle(CaricaStringa(276));
    mnuInformazioni->setText(CaricaStringa(277));
    mnuManuale->setText(CaricaStringa(286));
    mnuLingua->setTitle(CaricaStringa(289));
    mnuLinguaItaliano->setText(CaricaStringa(290));
    mnuLinguaEnglish->setText(CaricaStringa(291));
    mnuIncludiCheckDigit->setText(CaricaStringa(292));
    imgWizard->setToolTip(CaricaStringa(IdStringa::SuggerimentoWizard));
    imgWizard->setAccessibleName(CaricaStringa(IdStringa::SuggerimentoWizard));
    rtfContenuto->setPlaceholderText(CaricaStringa(IdPassiIniziali));

    inCaricamento_ = true;
    cmbSimbologia->clear();
    for (int i = 0; i < NumeroVoci; ++i) cmbSimbologia->addItem(CaricaStringa(IdPrimaVoce + i));
    cmbSimbologia->setCurrentIndex(-1);
    inCaricamento_ = false;
    // The list has no selection now, so no entry offers the wizard.
    imgWizard->setVisible(false);

    if (avvisoId_ != 0) labAvvisoFont->setText(CaricaStringa(avvisoId_).arg(avvisoArgomento_));
    AggiornaStato();
    scansione_->AggiornaTesti();
}

void frmPrincipale::mnuLinguaItaliano_Click() {
    const QString marcatore = UnisciPercorsoNome(CartellaDati(), QLatin1String(kMarcatoreItaliano));
    if (!IsFile(marcatore)) {
        QFile file(marcatore);
        if (file.open(QIODevice::WriteOnly)) file.close();
        CambiaLingua();
    }
    ImpostaLingua();
}

void frmPrincipale::mnuLinguaEnglish_Click() {
    const QString marcatore = UnisciPercorsoNome(CartellaDati(), QLatin1String(kMarcatoreItaliano));
    if (IsFile(marcatore)) {
        CancellaFile(marcatore);
        CambiaLingua();
    }
    ImpostaLingua();
}

// Texts in the language just chosen; the same entry stays selected (with its hint, its
// style and the wizard's HRC text) and the preview is drawn again.
void frmPrincipale::CambiaLingua() {
    const VoceCatalogo* voce = VoceSelezionata();
    ImpostaLingua();
    CaricaTesti();
    if (voce != nullptr) cmbSimbologia->setCurrentIndex(voce->id - IdPrimaVoce);
    AggiornaAttributi();
    Salva();
}

void frmPrincipale::mnuManuale_Click() {
    const QString percorso = UnisciPercorsoNome(CartellaDati(), nomeGuida_);
    if (!servizi_.apriDocumento(percorso))
        servizi_.messaggio(QMessageBox::Information, CaricaStringa(IdStringa::TitoloAvviso),
                           CaricaStringa(IdGuidaNonAperta).arg(QDir::toNativeSeparators(percorso)), QString());
}

}  // namespace krt
