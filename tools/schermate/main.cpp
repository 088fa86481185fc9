// schermate OUTPUT_FOLDER [FONT_FOLDER]
// schermate --guida OUTPUT_FOLDER FONT_FOLDER
//
// Drives the main window as a user would and saves what it shows, in both languages:
//   LANG-1-stale.png          a preview left behind by a change of symbology
//   LANG-2-width.png          a symbol wider than a page's text column
//   LANG-3-check-warning.png  a number whose own check digit is wrong
//   LANG-3-check-reason.png   the refusal of a whole number typed with Check Digit ticked
//   LANG-4-no-fonts.png       the window and its start-up notice without any barcode font
// The barcode fonts are taken from FONT_FOLDER (*.ttf); without it the installed ones
// are used, and with none installed only the missing-font pictures are meaningful.
// With --guida it draws the pictures of the user guide instead (docs/guide/images):
//   LANG-main.png, LANG-wizard.png, LANG-ean128.png, LANG-isbn.png
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale.h"
#include "support/stringhe.h"
#include "gs1/catalogo_ai.h"
#include "wizard/frmean128wizard.h"

namespace {

using namespace krt;

struct Sessione {
    QTemporaryDir cartella;
    std::unique_ptr<frmPrincipale> finestra;
    QImage ultimoMessaggio;

    std::string contenutoWizard, hrcWizard;

    explicit Sessione(bool italiano) {
        ImpostaCartellaDati(cartella.path());
        if (italiano) {
            QFile marcatore(cartella.filePath(QStringLiteral("ITALIANO.LNG")));
            marcatore.open(QIODevice::WriteOnly);
        }
        ServiziFinestra servizi;
        // A box is drawn, not run: the picture keeps it.
        servizi.messaggio = [this](QMessageBox::Icon icona, const QString& titolo, const QString& testo,
                                   const QString& dettaglio) {
            QMessageBox box(icona, titolo, testo, QMessageBox::Ok);
            if (!dettaglio.isEmpty()) box.setInformativeText(dettaglio);
            box.show();
            QTest::qWait(50);
            ultimoMessaggio = box.grab().toImage();
        };
        servizi.apriDocumento = [](const QString&) { return true; };
        servizi.wizard = [this](std::string& contenuto, std::string& hrc) {
            contenuto = contenutoWizard;
            hrc = hrcWizard;
            return true;
        };
        finestra = std::make_unique<frmPrincipale>(servizi);
        finestra->Avvia();
        finestra->show();
        QTest::qWaitForWindowExposed(finestra.get());
    }
    template <class T>
    T* Figlio(const char* nome) {
        return finestra->findChild<T*>(QLatin1String(nome));
    }
    void Voce(int id) { Figlio<QComboBox>("cmbSimbologia")->setCurrentIndex(id - 400); }
    void Spunta(const char* nome, bool valore) {
        auto* box = Figlio<QCheckBox>(nome);
        if (box->isChecked() != valore) box->click();
    }
    void Invio(const QString& testo) {
        auto* codice = Figlio<QLineEdit>("txtCodice");
        codice->setText(testo);
        QTest::keyClick(codice, Qt::Key_Return);
        QTest::qWait(100);  // the scan check runs after the cycle
    }
    void Salva(const QString& percorso, const QImage& sotto = {}) {
        QTest::qWait(100);
        QImage immagine = finestra->grab().toImage();
        if (!sotto.isNull()) {
            QImage insieme(std::max(immagine.width(), sotto.width()), immagine.height() + sotto.height() + 8,
                           QImage::Format_RGB32);
            insieme.fill(Qt::white);
            QPainter p(&insieme);
            p.drawImage(0, 0, immagine);
            p.drawImage(0, immagine.height() + 8, sotto);
            p.end();
            immagine = insieme;
        }
        immagine.save(percorso);
    }
};

}  // namespace

// The wizard with the guide's example: AI 01, 10 and 310 inserted, AI 10 selected.
QImage Wizard() {
    frmEan128Wizard wizard;
    wizard.show();
    QTest::qWaitForWindowExposed(&wizard);
    auto* lista = wizard.findChild<QListWidget*>(QStringLiteral("lstAI"));
    auto* valore = wizard.findChild<QLineEdit*>(QStringLiteral("txtValore"));
    for (const auto& [ai, testo] :
         {std::pair{"01", "09501101530003"}, std::pair{"10", "ABC"}, std::pair{"310", "12.5"}}) {
        lista->setCurrentRow(static_cast<int>(*CercaAI(ai)));
        valore->setText(QString::fromLatin1(testo));
        wizard.findChild<QPushButton*>(QStringLiteral("cmdUp"))->click();
    }
    lista->setCurrentRow(static_cast<int>(*CercaAI("10")));
    wizard.findChild<QListWidget*>(QStringLiteral("lstCodice"))->setCurrentRow(0);
    QTest::qWait(100);
    return wizard.grab().toImage();
}

int Guida(const QDir& uscita) {
    for (const bool italiano : {false, true}) {
        const QString lingua = italiano ? QStringLiteral("it") : QStringLiteral("en");
        const auto file = [&](const char* nome) {
            return uscita.filePath(lingua + QLatin1Char('-') + QLatin1String(nome));
        };
        Sessione s(italiano);
        s.Voce(400);  // Code 39
        s.Spunta("chkDigit", true);
        s.Spunta("chkHRC", true);
        s.Figlio<QLineEdit>("txtDimensione")->setText(QStringLiteral("60"));
        s.Invio(QStringLiteral("ABC-123"));
        s.Salva(file("main.png"));

        s.Voce(425);  // EAN 128, through the wizard's hand-back
        s.Figlio<QLineEdit>("txtDimensione")->setText(QStringLiteral("24"));
        s.contenutoWizard = "010950110153000310ABC\\x813101000125";
        s.hrcWizard = "(01)09501101530003(10)ABC(3101)000125";
        s.Figlio<QToolButton>("imgWizard")->click();
        QTest::qWait(100);
        s.finestra->grab().toImage().copy(0, 0, s.finestra->width(), 262).save(file("ean128.png"));

        s.Voce(434);  // ISBN-10
        s.Figlio<QLineEdit>("txtDimensione")->setText(QStringLiteral("24"));
        s.Invio(QStringLiteral("884271710"));
        QTest::qWait(100);
        s.finestra->grab().toImage().copy(0, 0, s.finestra->width(), 262).save(file("isbn.png"));

        Wizard().save(file("wizard.png"));
    }
    return 0;
}

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    if (argc == 4 && QByteArray(argv[1]) == "--guida") {
        const QDir font(QString::fromLocal8Bit(argv[3]));
        for (const QString& nome : font.entryList({QStringLiteral("*.ttf")}, QDir::Files))
            QFontDatabase::addApplicationFont(font.filePath(nome));
        QDir().mkpath(QString::fromLocal8Bit(argv[2]));
        return Guida(QDir(QString::fromLocal8Bit(argv[2])));
    }
    if (argc < 2) {
        qWarning("usage: schermate OUTPUT_FOLDER [FONT_FOLDER]");
        return 2;
    }
    const QDir uscita(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(uscita.path());
    if (argc > 2) {
        const QDir font(QString::fromLocal8Bit(argv[2]));
        for (const QString& nome : font.entryList({QStringLiteral("*.ttf")}, QDir::Files))
            QFontDatabase::addApplicationFont(font.filePath(nome));
    }
    const bool conFont = argc > 2;
    for (const bool italiano : {false, true}) {
        const QString lingua = italiano ? QStringLiteral("it") : QStringLiteral("en");
        const auto file = [&](const char* nome) {
            return uscita.filePath(lingua + QLatin1Char('-') + QLatin1String(nome));
        };
        Sessione s(italiano);
        if (!conFont) {
            s.Voce(400);
            s.Spunta("chkHRC", true);
            s.Invio(QStringLiteral("HELLO-1"));
            s.Salva(file("4-no-fonts.png"), s.ultimoMessaggio);
            continue;
        }
        s.Voce(424);  // Code 128
        s.Spunta("chkHRC", true);
        s.Invio(QStringLiteral("HELLO"));
        s.Voce(415);  // EAN 13: the content does not fit it
        s.Salva(file("1-stale.png"));

        s.Spunta("chkDigit", false);
        s.Invio(QStringLiteral("5901234123457"));
        s.Salva(file("2-width.png"));

        s.Figlio<QLineEdit>("txtDimensione")->setText(QStringLiteral("36"));
        s.Invio(QStringLiteral("5901234123458"));
        s.Salva(file("3-check-warning.png"));

        s.Spunta("chkDigit", true);
        s.Invio(QStringLiteral("5901234123457"));
        s.Salva(file("3-check-reason.png"), s.ultimoMessaggio);
    }
    return 0;
}
