#include "mainwindow/frmprincipale.h"

#include <cmath>
#include <numbers>
#include <exception>

#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFocusEvent>
#include <QFontDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "barcodes/errori.h"
#include "cycle/motivi.h"
#include "cycle/voce.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/attributi.h"
#include "mainwindow/configurazione.h"
#include "mainwindow/informazioni.h"
#include "mainwindow/rtf.h"
#include "mainwindow/scansione.h"
#include "support/cp1252.h"
#include "support/frmsplash.h"
#include "support/stringhe.h"
#include "support/varie.h"
#include "wizard/frmean128wizard.h"

namespace krt {

namespace {

constexpr char kMarcatoreItaliano[] = "ITALIANO.LNG";
constexpr char kGuidaInglese[] = "KRTGuide.pdf";
constexpr char kGuidaItaliana[] = "KRTGuide_ita.pdf";

// String ids of the window.
constexpr int IdTitoloErrore = 92;
constexpr int IdValoreNonAmmesso = 93;
constexpr int IdEan128 = 425;
constexpr int IdPrimaVoce = 400;
constexpr int NumeroVoci = 36;
constexpr int DimensionePredefinita = 100;

// 10080 x 8685 twips at 15 twips a pixel.
constexpr int LarghezzaMinima = 672;
constexpr int AltezzaMinima = 579;

// VB-style key code of a key event: 13 Enter, 8 backspace, the Windows-1252
// code of a typed character; -1 for keys that type nothing (arrows, Tab,
// Delete, shortcuts with Ctrl), which never reach a key-press handler.
int CodiceTasto(const QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete: return -1;
    default: break;
    }
    if (evento->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) return -1;
    const QString testo = evento->text();
    if (testo.size() != 1) return -1;
    const std::string byte = AWindows1252Sostituendo(testo);
    return static_cast<unsigned char>(byte[0]);
}

// Numeric value of a text as the size box reads it: the leading digits, 0 for none.
double ValoreNumerico(const QString& testo) {
    double valore = 0;
    for (QChar c : testo.trimmed()) {
        if (!c.isDigit() || c.unicode() > '9') break;
        valore = valore * 10 + (c.unicode() - '0');
    }
    return valore;
}

std::int16_t Booleano16(bool valore) { return valore ? kVero : kFalso; }

// The wizard button's picture: a wand with a spark, drawn so that it stays
// sharp at any scale.
QIcon IconaWizard() {
    QIcon icona;
    for (int lato : {16, 24, 32, 48, 64}) {
        QPixmap immagine(lato, lato);
        immagine.fill(Qt::transparent);
        QPainter p(&immagine);
        p.setRenderHint(QPainter::Antialiasing);
        const double u = lato / 32.0;
        p.setPen(QPen(QColor(60, 60, 60), 4 * u, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(6 * u, 26 * u), QPointF(19 * u, 13 * u));
        p.setPen(QPen(QColor(255, 255, 255), 4 * u, Qt::SolidLine, Qt::FlatCap));
        p.drawLine(QPointF(17 * u, 15 * u), QPointF(19 * u, 13 * u));
        QPainterPath stella;
        const QPointF centro(23 * u, 9 * u);
        for (int k = 0; k < 8; ++k) {
            const double raggio = (k % 2 == 0 ? 8.0 : 3.0) * u;
            const double angolo = k * std::numbers::pi / 4;
            const QPointF punto = centro + QPointF(raggio * std::sin(angolo), -raggio * std::cos(angolo));
            if (k == 0)
                stella.moveTo(punto);
            else
                stella.lineTo(punto);
        }
        stella.closeSubpath();
        p.setPen(QPen(QColor(150, 100, 0), u));
        p.setBrush(QColor(255, 200, 40));
        p.drawPath(stella);
        p.end();
        icona.addPixmap(immagine);
    }
    return icona;
}

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

// ---- Controls ---------------------------------------------------------------------------

void frmPrincipale::CreaControlli() {
    auto* centrale = new QWidget(this);
    centrale->setObjectName(QStringLiteral("centrale"));
    setCentralWidget(centrale);

    auto nomina = [](QWidget* w, const char* nome) { w->setObjectName(QLatin1String(nome)); };

    labCodice = new QLabel(centrale);
    nomina(labCodice, "labCodice");
    txtCodice = new QLineEdit(centrale);
    nomina(txtCodice, "txtCodice");
    imgWizard = new QToolButton(centrale);
    nomina(imgWizard, "imgWizard");
    imgWizard->setIcon(IconaWizard());
    imgWizard->setIconSize(QSize(24, 24));
    imgWizard->setAutoRaise(true);
    imgWizard->setFocusPolicy(Qt::StrongFocus);
    imgWizard->setVisible(false);
    labAttributi = new QLabel(centrale);
    nomina(labAttributi, "labAttributi");
    labAttributi->setTextInteractionFlags(Qt::TextSelectableByMouse);

    labSimbologia = new QLabel(centrale);
    nomina(labSimbologia, "labSimbologia");
    cmbSimbologia = new QComboBox(centrale);
    nomina(cmbSimbologia, "cmbSimbologia");
    cmbSimbologia->setMaxVisibleItems(NumeroVoci);
    cmbSimbologia->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    labStile = new QLabel(centrale);
    nomina(labStile, "labStile");
    cmbStile = new QComboBox(centrale);
    nomina(cmbStile, "cmbStile");
    cmbStile->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    labDimensione = new QLabel(centrale);
    nomina(labDimensione, "labDimensione");
    txtDimensione = new QLineEdit(QString::number(DimensionePredefinita), centrale);
    nomina(txtDimensione, "txtDimensione");
    txtDimensione->setMaxLength(5);
    txtDimensione->setAlignment(Qt::AlignRight);
    txtDimensione->setFixedWidth(txtDimensione->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 12);

    chkDigit = new QCheckBox(centrale);
    nomina(chkDigit, "chkDigit");
    chkHRC = new QCheckBox(centrale);
    nomina(chkHRC, "chkHRC");
    labFont = new QLabel(centrale);
    nomina(labFont, "labFont");
    cmdClipboard = new QPushButton(centrale);
    nomina(cmdClipboard, "cmdClipboard");
    cmdClipboard->setAutoDefault(false);

    Line1 = new QFrame(centrale);
    nomina(Line1, "Line1");
    Line1->setFrameShape(QFrame::HLine);
    Line1->setFrameShadow(QFrame::Sunken);

    labAvvisoFont = new QLabel(centrale);
    nomina(labAvvisoFont, "labAvvisoFont");
    labAvvisoFont->setStyleSheet(QStringLiteral("color: #a04000;"));
    labAvvisoFont->setMinimumHeight(labAvvisoFont->fontMetrics().height());

    rtfContenuto = new QTextEdit(centrale);
    nomina(rtfContenuto, "rtfContenuto");
    rtfContenuto->setReadOnly(true);
    rtfContenuto->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    rtfContenuto->setLineWrapMode(QTextEdit::NoWrap);
    rtfContenuto->setTabChangesFocus(true);
    rtfContenuto->setUndoRedoEnabled(false);

    scansione_ = new ControlloScansione(centrale);

    lstFont = new QListWidget(centrale);
    nomina(lstFont, "lstFont");
    lstFont->setVisible(false);

    labCodice->setBuddy(txtCodice);
    labSimbologia->setBuddy(cmbSimbologia);
    labStile->setBuddy(cmbStile);
    labDimensione->setBuddy(txtDimensione);

    // Content on top with its hint; symbology, style and size in one row;
    // options and the clipboard button; then the preview, which takes the rest.
    auto* griglia = new QGridLayout;
    griglia->setHorizontalSpacing(8);
    griglia->addWidget(labCodice, 0, 0);
    auto* rigaCodice = new QHBoxLayout;
    rigaCodice->addWidget(txtCodice, 1);
    rigaCodice->addWidget(imgWizard);
    griglia->addLayout(rigaCodice, 0, 1);
    griglia->addWidget(labAttributi, 1, 1);
    griglia->addWidget(labSimbologia, 2, 0);
    auto* rigaScelte = new QHBoxLayout;
    rigaScelte->addWidget(cmbSimbologia, 3);
    rigaScelte->addSpacing(12);
    rigaScelte->addWidget(labStile);
    rigaScelte->addWidget(cmbStile, 2);
    rigaScelte->addSpacing(12);
    rigaScelte->addWidget(labDimensione);
    rigaScelte->addWidget(txtDimensione);
    griglia->addLayout(rigaScelte, 2, 1);
    auto* rigaOpzioni = new QHBoxLayout;
    rigaOpzioni->addWidget(chkDigit);
    rigaOpzioni->addSpacing(12);
    rigaOpzioni->addWidget(chkHRC);
    rigaOpzioni->addSpacing(12);
    rigaOpzioni->addWidget(labFont, 1);
    rigaOpzioni->addWidget(cmdClipboard);
    griglia->addLayout(rigaOpzioni, 3, 1);
    griglia->setColumnStretch(1, 1);

    auto* verticale = new QVBoxLayout(centrale);
    verticale->addLayout(griglia);
    verticale->addWidget(Line1);
    verticale->addWidget(labAvvisoFont);
    verticale->addWidget(rtfContenuto, 1);
    verticale->addWidget(scansione_->etichetta());

    setTabOrder(txtCodice, imgWizard);
    setTabOrder(imgWizard, cmbSimbologia);
    setTabOrder(cmbSimbologia, cmbStile);
    setTabOrder(cmbStile, txtDimensione);
    setTabOrder(txtDimensione, chkDigit);
    setTabOrder(chkDigit, chkHRC);
    setTabOrder(chkHRC, cmdClipboard);
    setTabOrder(cmdClipboard, rtfContenuto);

    setMinimumSize(LarghezzaMinima, AltezzaMinima);
    resize(LarghezzaMinima, AltezzaMinima);
    setWindowTitle(QStringLiteral("KRT"));
}

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
}

bool frmPrincipale::eventFilter(QObject* oggetto, QEvent* evento) {
    try {
        if (oggetto == txtCodice) {
            if (evento->type() == QEvent::KeyPress) {
                int tasto = CodiceTasto(static_cast<QKeyEvent*>(evento));
                if (tasto == 13) {
                    txtCodice_KeyPress(tasto);
                    return tasto == 0;
                }
            } else if (evento->type() == QEvent::FocusIn) {
                txtCodice_GotFocus();
            }
        } else if (oggetto == txtDimensione) {
            if (evento->type() == QEvent::KeyPress) {
                int tasto = CodiceTasto(static_cast<QKeyEvent*>(evento));
                if (tasto >= 0) {
                    txtDimensione_KeyPress(tasto);
                    if (tasto == 0) return true;
                }
            } else if (evento->type() == QEvent::FocusIn) {
                txtDimensione_GotFocus();
            } else if (evento->type() == QEvent::FocusOut) {
                // Only a move to another control of the window counts; opening a
                // menu or switching to another program does not.
                const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
                if (motivo != Qt::PopupFocusReason && motivo != Qt::ActiveWindowFocusReason) txtDimensione_LostFocus();
            }
        }
    } catch (const std::exception& e) {
        MostraErrore(DettaglioImprevisto(e));
        return true;
    }
    return QMainWindow::eventFilter(oggetto, evento);
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
}

void frmPrincipale::ApplicaConfigurazione() {
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

    inCaricamento_ = true;
    cmbSimbologia->clear();
    for (int i = 0; i < NumeroVoci; ++i) cmbSimbologia->addItem(CaricaStringa(IdPrimaVoce + i));
    cmbSimbologia->setCurrentIndex(-1);
    inCaricamento_ = false;
    // The list has no selection now, so no entry offers the wizard.
    imgWizard->setVisible(false);

    if (avvisoId_ != 0) labAvvisoFont->setText(CaricaStringa(avvisoId_).arg(avvisoArgomento_));
    scansione_->AggiornaTesti();
}

// ---- Options ----------------------------------------------------------------------------

void frmPrincipale::Salva() { SalvaConfigurazione(configurazione_); }

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

    const int ricordato = cmbStile->currentIndex();
    const VoceCatalogo* voce = VoceSelezionata();
    const RigaAttributi& riga = RigaAttributiPerVoce(voce ? voce->id : 0);

    {
        const QSignalBlocker blocco(cmbStile);
        cmbStile->clear();
        for (int id : StiliOfferti(riga)) cmbStile->addItem(CaricaStringa(id));
        cmbStile->setCurrentIndex(-1);
    }
    cmbStile->setEnabled(riga.stileAttivo);
    // The style first, so that the option boxes below already run their cycles
    // with a style selected.
    // A list that had no selection (the first entry chosen after start-up or a
    // language switch) starts from the first style too.
    cmbStile->setCurrentIndex(ricordato > cmbStile->count() - 1 || ricordato < 0 ? 0 : ricordato);

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

// ---- The generate cycle -----------------------------------------------------------------

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
    // A refusal says why in the box's additional text.
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
            dettaglio = QString::fromStdString(TestoRifiuto(generazione.rifiuto, voce->codice, OffsetLingua()));
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
    if ((KeyAscii >= '0' && KeyAscii <= '9') || KeyAscii == 8) return;
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
    const long arrotondato = std::lround(valore);
    if (arrotondato > INT16_MAX) return;
    configurazione_.Dimensione = static_cast<std::int16_t>(arrotondato);
    Salva();
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
    const std::string rtf = ComponiRtf(SegmentiDocumento(*rtfContenuto->document()));
    QClipboard* appunti = QGuiApplication::clipboard();
    appunti->clear();
    appunti->setMimeData(DatiAppuntiRtf(rtf));
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

void frmPrincipale::mnuLinguaItaliano_Click() {
    const QString marcatore = UnisciPercorsoNome(CartellaDati(), QLatin1String(kMarcatoreItaliano));
    if (!IsFile(marcatore)) {
        QFile file(marcatore);
        if (file.open(QIODevice::WriteOnly)) file.close();
        ImpostaLingua();
        CaricaTesti();
        AggiornaAttributi();
        Salva();
    }
    ImpostaLingua();
}

void frmPrincipale::mnuLinguaEnglish_Click() {
    const QString marcatore = UnisciPercorsoNome(CartellaDati(), QLatin1String(kMarcatoreItaliano));
    if (IsFile(marcatore)) {
        CancellaFile(marcatore);
        ImpostaLingua();
        CaricaTesti();
        AggiornaAttributi();
        Salva();
    }
    ImpostaLingua();
}

void frmPrincipale::mnuManuale_Click() {
    servizi_.apriDocumento(UnisciPercorsoNome(CartellaDati(), nomeGuida_));
}

void frmPrincipale::mnuInformazioni_Click() {
    Informazioni informazioni(this);
    informazioni.exec();
}

void frmPrincipale::mnuEsci_Click() { close(); }

}  // namespace krt
