// The widget tree of the main window and its layout.
#include "mainwindow/frmprincipale.h"

#include <cmath>
#include <numbers>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/scansione.h"
#include "mainwindow/stampa.h"

namespace krt {

using namespace finestra;

namespace {

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

}  // namespace

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
    labLarghezza = new QLabel(centrale);
    nomina(labLarghezza, "labLarghezza");
    labLarghezza->setMinimumWidth(labLarghezza->fontMetrics().horizontalAdvance(QStringLiteral("larghezza 0000.0 mm")));

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

    labSuperata = new QLabel(centrale);
    nomina(labSuperata, "labSuperata");
    labSuperata->setStyleSheet(QStringLiteral("color: #b00000; font-weight: bold;"));
    labSuperata->setWordWrap(true);
    labSuperata->setVisible(false);
    labAvvisi = new QLabel(centrale);
    nomina(labAvvisi, "labAvvisi");
    labAvvisi->setStyleSheet(QStringLiteral("color: #a04000;"));
    labAvvisi->setWordWrap(true);
    labAvvisi->setVisible(false);

    // The generated preview lives in documento_; the box shows a copy zoomed to fit.
    documento_ = new QTextDocument(this);
    rtfContenuto = new QTextEdit(centrale);
    nomina(rtfContenuto, "rtfContenuto");
    rtfContenuto->setReadOnly(true);
    rtfContenuto->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    rtfContenuto->setLineWrapMode(QTextEdit::NoWrap);
    rtfContenuto->setTabChangesFocus(true);
    rtfContenuto->setUndoRedoEnabled(false);

    scansione_ = new ControlloScansione(centrale);

    pannelloStampa_ = new PannelloStampa(centrale);

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
    rigaScelte->addWidget(labLarghezza);
    griglia->addLayout(rigaScelte, 2, 1);
    griglia->addWidget(pannelloStampa_, 3, 1);
    auto* rigaOpzioni = new QHBoxLayout;
    rigaOpzioni->addWidget(chkDigit);
    rigaOpzioni->addSpacing(12);
    rigaOpzioni->addWidget(chkHRC);
    rigaOpzioni->addSpacing(12);
    rigaOpzioni->addWidget(labFont, 1);
    rigaOpzioni->addWidget(cmdClipboard);
    griglia->addLayout(rigaOpzioni, 4, 1);
    griglia->setColumnStretch(1, 1);

    auto* verticale = new QVBoxLayout(centrale);
    verticale->addLayout(griglia);
    verticale->addWidget(Line1);
    verticale->addWidget(labAvvisoFont);
    verticale->addWidget(labAvvisi);
    verticale->addWidget(labSuperata);
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

}  // namespace krt
