// The main window driven offscreen: generate cycle, preview, clipboard, options
// file, languages, hints, fonts, wizard hand-back.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolButton>

#include "barcodes/codifica.h"
#include "barcodes/controllo.h"
#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale.h"
#include "mainwindow/informazioni.h"
#include "mainwindow/stampa.h"
#include "tests/mainwindow/pagina_finestra.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

// Readable failures: QString as text, not as a list of QChar.
void PrintTo(const QString& testo, std::ostream* os) { *os << '"' << testo.toStdString() << '"'; }

namespace {

using namespace krt;
using namespace krt::prova;

class Finestra : public ::testing::Test, protected prova::PaginaFinestra {
protected:
    void SetUp() override { Prepara(); }
    void TearDown() override { Chiudi(); }
};

TEST_F(Finestra, PrimoAvvio) {
    EXPECT_EQ(txtDimensione->text(), "100");
    EXPECT_EQ(labFont->text(), "Courier (10 punti)");
    EXPECT_EQ(cmbSimbologia->count(), 36);
    EXPECT_EQ(cmbSimbologia->currentIndex(), -1);
    EXPECT_FALSE(QFile::exists(FileConfigurazione())) << "nothing is saved before the first change";
    EXPECT_TRUE(Figlio<QListWidget>("lstFont")->isHidden());
    EXPECT_TRUE(Azione("mnuLinguaEnglish")->isChecked());
    EXPECT_EQ(Figlio<QLabel>("labCodice")->text(), "&Code:");
    EXPECT_EQ(Figlio<QLabel>("labCodice")->buddy(), txtCodice);
    EXPECT_GE(finestra->minimumWidth(), 672);
    EXPECT_GE(finestra->minimumHeight(), 579);
    // The test machine has no barcode font: one notice at start, and the window works on.
    ASSERT_EQ(messaggiAvvio.size(), 1u);
    EXPECT_EQ(messaggiAvvio[0].testo, CaricaStringa(513));
    EXPECT_EQ(rtfContenuto->placeholderText(), CaricaStringa(516)) << "the steps, in the empty preview";
    Invio(QStringLiteral("AB"));
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, "Choose a symbology.");

    // Start-up shows what it reads and writes nothing back, even what it could not read.
    QFile file(FileConfigurazione());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(100, '\x01'));
    file.close();
    Apri();
    EXPECT_EQ(QFile(FileConfigurazione()).size(), 100);
}

struct CasoCiclo {
    const char* voce;
    const char* stile;
    bool check;
    bool hrc;
    const char* contenuto;
    // Expected: glyphs of each barcode line (engine code, content, check), family, HRC line.
    const char* codice;
    const char* contenutoCodificato;
    bool checkCodifica;
    const char* famiglia;
    const char* hrcAtteso;  // nullptr: no HRC paragraph
};

TEST_F(Finestra, InvioRiempieLAnteprima) {
    const CasoCiclo casi[] = {
        {"Code 39", "Normal", false, true, "abc-1", "C39", "ABC-1", false, "ORB39", "*ABC-1*"},
        {"Code 39", "Wide short", false, false, "A_B", "C39", "A_B", false, "ORB39 Wide Short", nullptr},
        {"Code 93", "Narrow", true, true, "A_B", "C93", "A_B", true, "ORB93 Narrow", "A B"},
        {"Codabar/Monarch", "Short", false, true, "A123B", "CBAR", "A123B", false, "ORBCODABAR Short", "a123b"},
        {"Code 128", "Normal", false, true, "AB\\t12\\x0412", "C128", "AB\\t12\\x0412", false, "ORB128",
         "AB<HT>12<EOT>12"},
        {"EAN 13", "Normal", true, true, "590123412345", "EAN13", "590123412345", true, "ORBEAN", nullptr},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.voce);
        Voce(c.voce);
        Stile(c.stile);
        Spunta(chkDigit, c.check);
        Spunta(chkHRC, c.hrc);
        Invio(QString::fromLatin1(c.contenuto));
        const auto anteprima = Anteprima();
        ASSERT_EQ(anteprima.size(), c.hrcAtteso ? 2u : 1u);
        EXPECT_EQ(anteprima[0].testo, Glifi(c.contenutoCodificato, c.codice, c.checkCodifica));
        EXPECT_EQ(anteprima[0].famiglia, QLatin1String(c.famiglia));
        EXPECT_EQ(anteprima[0].punti, 100);
        if (c.hrcAtteso) {
            EXPECT_EQ(anteprima[1].testo, QLatin1String(c.hrcAtteso));
            EXPECT_EQ(anteprima[1].famiglia, "Courier");
            EXPECT_EQ(anteprima[1].punti, 10);
            EXPECT_EQ(finestra->DocumentoAnteprima().lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
        }
        EXPECT_TRUE(messaggi.empty());
        EXPECT_EQ(txtCodice->selectedText(), txtCodice->text()) << "Enter selects the content";
    }
}

TEST_F(Finestra, VociAddOnCodice32EISBN) {
    Voce("EAN 8 Add-on 2");
    Spunta(chkDigit, true);
    Invio(QStringLiteral("123456712999"));  // 7 + 2, the rest ignored
    ASSERT_EQ(Anteprima().size(), 1u);
    EXPECT_EQ(Anteprima()[0].testo, Glifi("1234567", "EAN8", true) + Glifi("12", "ADD2", true));

    txtCodice->setText(QStringLiteral("123456712"));
    Spunta(chkDigit, false);  // main part 8 characters, the add-on the ninth alone
    EXPECT_EQ(Anteprima()[0].testo, Glifi("12345671", "EAN8", false) + Glifi("2", "ADD2", true));

    Voce("Code 32");
    Spunta(chkHRC, true);
    Invio(QStringLiteral("12345678"));
    auto anteprima = Anteprima();
    ASSERT_EQ(anteprima.size(), 2u) << "two lines in the Code 32 family, no HRC paragraph";
    EXPECT_EQ(anteprima[0].testo + "\n" + anteprima[1].testo, Glifi("12345678", "C32HRC", false));
    EXPECT_EQ(anteprima[1].famiglia, "ORB32");
    EXPECT_FALSE(cmbStile->isEnabled());

    Voce("ISBN-13");
    EXPECT_TRUE(chkHRC->isChecked());
    EXPECT_FALSE(chkHRC->isEnabled());
    EXPECT_TRUE(chkDigit->isChecked());
    Invio(QStringLiteral("978030640615"));
    anteprima = Anteprima();
    ASSERT_EQ(anteprima.size(), 2u) << "text line above the bars";
    EXPECT_EQ(anteprima[0].testo + "\n" + anteprima[1].testo, Glifi("978030640615", "ISBN13", true));
    EXPECT_EQ(anteprima[0].famiglia, "ORBEAN");
    EXPECT_TRUE(messaggi.empty());
}

TEST_F(Finestra, RifiutiSoloConInvio) {
    cmdClipboard->click();  // nothing drawn yet: the user's clipboard stays
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(503));
    messaggi.clear();
    Voce("EAN 13");
    Invio(QStringLiteral("5901234123457"));
    const auto prima = Anteprima();
    ASSERT_EQ(prima.size(), 1u);

    txtCodice->setText(QStringLiteral("AB!"));  // "!" is refused everywhere: no message on a change
    Voce("Code 39");
    Voce("Code 93");
    Spunta(chkHRC, false);
    Stile("Short");
    EXPECT_TRUE(messaggi.empty());
    EXPECT_EQ(Anteprima()[0].testo, prima[0].testo) << "the old preview stays";
    // ... marked as not matching, and Clipboard says why instead of copying it.
    const QString motivo = QStringLiteral("The character \"!\" at position 3 cannot be encoded in this symbology.");
    EXPECT_TRUE(finestra->AnteprimaSuperata());
    EXPECT_EQ(labSuperata->text(), CaricaStringa(500).arg(motivo));
    EXPECT_NE(rtfContenuto->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
    cmdClipboard->click();
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(504));
    EXPECT_EQ(messaggi[0].dettaglio, motivo);
    messaggi.clear();

    QTest::keyClick(txtCodice, Qt::Key_Return);
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].icona, QMessageBox::Critical);
    EXPECT_EQ(messaggi[0].testo, "The value introduced is not allowed");
    EXPECT_EQ(messaggi[0].titolo, "Error");
    EXPECT_EQ(messaggi[0].dettaglio, motivo);
    EXPECT_EQ(Anteprima()[0].testo, prima[0].testo);
    Invio(QStringLiteral("AB"));
    EXPECT_FALSE(finestra->AnteprimaSuperata());
    EXPECT_TRUE(labSuperata->isHidden());
    txtCodice->setText(QStringLiteral("ABC"));  // typed, not yet drawn
    EXPECT_EQ(labSuperata->text(), CaricaStringa(500).arg(CaricaStringa(502)));

    messaggi.clear();
    txtCodice->clear();  // empty content: nothing at all
    QTest::keyClick(txtCodice, Qt::Key_Return);
    EXPECT_TRUE(messaggi.empty());
}

// Check digits: a wrong digit is said on the status line, a whole number in the refusal's reason
// (the texts themselves: the cycle's tests).
TEST_F(Finestra, CheckDigitDetti) {
    const struct {
        const char* voce;
        bool check;
        const char* contenuto;
        const char* avviso;  // status line after an accepted Enter, nullptr: refused
        const char* motivo;  // the refusal's additional text
    } casi[] = {
        {"EAN 13", false, "5901234123458", "Check digit should be 7.", nullptr},
        {"EAN 13", true, "5901234123457", nullptr, "13 digits typed: with Check Digit ticked, type 12 (or untick it)."},
        {"UPC-A", true, "036000291450", nullptr,
         "12 digits typed: with Check Digit ticked, type 11 (or untick it). Check digit should be 2."},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.contenuto);
        messaggi.clear();
        Voce(c.voce);
        if (chkDigit->isEnabled()) Spunta(chkDigit, c.check);
        Invio(QString::fromLatin1(c.contenuto));
        if (c.avviso) {
            EXPECT_TRUE(messaggi.empty());
            EXPECT_EQ(labAvvisi->text(), QLatin1String(c.avviso));
        } else {
            ASSERT_EQ(messaggi.size(), 1u);
            EXPECT_EQ(messaggi[0].dettaglio, QLatin1String(c.motivo));
        }
    }
}

// A refusal or an engine fault on Enter: message 93, and why in the additional text.
TEST_F(Finestra, RifiutiEGuastiDiconoPerche) {
    const struct {
        const char* voce;
        QString contenuto;
        QString dettaglio;
    } casi[] = {
        {"Code 128", QStringLiteral("A\\q"), CaricaStringa(IdStringa::DettaglioEscape)},
        {"Code 39", QStringLiteral("AB!"),
         QStringLiteral("The character \"!\" at position 3 cannot be encoded in this symbology.")},
        {"Code 39", QStringLiteral("A\u0101"), QStringLiteral("The character at position 2 has no Windows-1252")},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.voce) + " " + c.contenuto.toStdString());
        Voce(c.voce);
        const auto prima = Anteprima();
        messaggi.clear();
        Invio(c.contenuto);
        ASSERT_EQ(messaggi.size(), 1u);
        EXPECT_EQ(messaggi[0].testo, CaricaStringa(93));
        EXPECT_TRUE(messaggi[0].dettaglio.startsWith(c.dettaglio)) << messaggi[0].dettaglio.toStdString();
        EXPECT_EQ(Anteprima()[0].testo, prima[0].testo);
    }
    messaggi.clear();
    Stile("Short");  // a fault on a change stays silent
    EXPECT_TRUE(messaggi.empty());
}

TEST_F(Finestra, CambiDiOpzioneRigenerano) {
    Voce("Code 39");
    Spunta(chkHRC, true);
    Invio(QStringLiteral("AB"));
    Stile("Short");
    EXPECT_EQ(Anteprima()[0].famiglia, "ORB39 Short");
    Spunta(chkDigit, true);
    EXPECT_EQ(Anteprima()[0].testo, Glifi("AB", "C39", true));
    EXPECT_EQ(Anteprima()[1].testo, "*AB*") << "check digit in HRC is off";
    Azione("mnuIncludiCheckDigit")->trigger();
    EXPECT_EQ(Anteprima()[1].testo, "*" + DaWindows1252(CalcolaCheck39("AB")) + "*");
    Spunta(chkHRC, false);
    EXPECT_EQ(Anteprima().size(), 1u);

    // The size box: Enter, and leaving it, regenerate with the typed size.
    txtDimensione->setFocus();
    txtDimensione->setText(QStringLiteral("72"));
    QTest::keyClick(txtDimensione, Qt::Key_Return);
    EXPECT_EQ(Anteprima()[0].punti, 72);
    EXPECT_EQ(finestra->configurazione().Dimensione, 72);
    txtDimensione->setText(QStringLiteral("60"));
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(txtDimensione, &menu);
    EXPECT_EQ(Anteprima()[0].punti, 72) << "opening a menu is no leaving";
    QFocusEvent via(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(txtDimensione, &via);
    EXPECT_EQ(Anteprima()[0].punti, 60);
    EXPECT_TRUE(messaggi.empty());
}

// The symbol's printed width beside the size, a warning past a page's text column, and
// a preview zoomed out to show the whole symbol in the window's default size.
TEST_F(Finestra, LarghezzaStampata) {
    const QString file = QStringLiteral(KRT_FONT_PROVA "/ORBEAN.ttf");
    if (!QFile::exists(file)) GTEST_SKIP() << "reference fonts not built";
    const int font = QFontDatabase::addApplicationFont(file);
    ASSERT_GE(font, 0);
    Apri();
    finestra->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(finestra.get()));
    Voce("EAN 13");
    Invio(QStringLiteral("5901234123457"));
    const auto millimetri = [this] { return labLarghezza->text().section(QLatin1Char(' '), 0, 0).toDouble(); };
    const double a100 = millimetri();
    EXPECT_GT(a100, 160);
    EXPECT_EQ(labAvvisi->text(), CaricaStringa(506).arg(160));
    EXPECT_EQ(rtfContenuto->horizontalScrollBar()->maximum(), 0) << "the whole symbol is in view";
    txtDimensione->setText(QStringLiteral("24"));
    EXPECT_NEAR(millimetri(), a100 * 0.24, 0.1);
    EXPECT_TRUE(labAvvisi->isHidden());
    finestra.reset();
    QFontDatabase::removeApplicationFont(font);
}

TEST_F(Finestra, CasellaDimensione) {
    const struct {
        QString testo;
        QString atteso;
        std::int16_t memorizzato;
    } casi[] = {
        {QStringLiteral("48"), QStringLiteral("48"), 48},
        {QStringLiteral("0"), QStringLiteral("100"), 100},
        {QString(), QStringLiteral("100"), 100},
        {QStringLiteral("999"), QStringLiteral("999"), 999},
        {QStringLiteral("40000"), QStringLiteral("999"), 999},  // past what word processors accept
    };
    for (const auto& c : casi) {
        txtDimensione->setText(c.testo);
        EXPECT_EQ(txtDimensione->text(), c.atteso) << c.testo.toStdString();
        EXPECT_EQ(finestra->configurazione().Dimensione, c.memorizzato) << c.testo.toStdString();
    }
    EXPECT_EQ(labAvvisi->text(), CaricaStringa(507).arg(999));
    txtDimensione->setText(QStringLiteral("100"));
    txtDimensione->setCursorPosition(3);
    QTest::keyClicks(txtDimensione, QStringLiteral("0"));
    EXPECT_EQ(txtDimensione->text(), "100") << "a fourth digit is refused, with the message";
    EXPECT_EQ(labAvvisi->text(), CaricaStringa(507).arg(999));
    txtDimensione->setText(QStringLiteral("12"));
    txtDimensione->setCursorPosition(2);
    QTest::keyClicks(txtDimensione, QStringLiteral("a-3.b"));
    EXPECT_EQ(txtDimensione->text(), "123") << "only digits get through";
    QTest::keyClick(txtDimensione, Qt::Key_Backspace);
    EXPECT_EQ(txtDimensione->text(), "12");
}

TEST_F(Finestra, AppuntiRtfETesto) {
    Voce("Code 39");
    Spunta(chkHRC, true);
    Invio(QStringLiteral("AB"));
    cmdClipboard->click();
    const QMimeData* dati = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(dati, nullptr);
    EXPECT_EQ(dati->formats(), (QStringList{QStringLiteral("text/rtf"), QStringLiteral("text/plain")}));
    EXPECT_EQ(dati->text(), Glifi("AB", "C39", false)) << "the glyph string, for other programs";
    const QByteArray rtf = dati->data(QStringLiteral("text/rtf"));
    EXPECT_TRUE(rtf.startsWith("{\\rtf1\\ansi\\ansicpg1252"));
    for (const char* parte : {"{\\f0\\fnil\\fcharset0 ORB39;}", "{\\f1\\fnil\\fcharset0 Courier;}", "\\f0\\fs200 ", "\\par",
                              "\\f1\\fs20 *AB*}"})
        EXPECT_TRUE(rtf.contains(parte)) << parte << "\n" << rtf.toStdString();
}

TEST_F(Finestra, OpzioniSopravvivonoAlRiavvio) {
    Voce("Code 128");
    Stile("Short");
    Spunta(chkDigit, true);
    Spunta(chkHRC, true);
    Azione("mnuIncludiCheckDigit")->trigger();
    txtDimensione->setText(QStringLiteral("64"));
    fontScelto = QFont(QStringLiteral("DejaVu Serif"), 12);
    fontScelto->setBold(true);
    fontScelto->setItalic(true);
    Azione("mnuFont")->trigger();
    EXPECT_EQ(labFont->text(), "DejaVu Serif (BI; 12 punti)");
    EXPECT_EQ(QFile(FileConfigurazione()).size(), 240);

    Apri();
    EXPECT_EQ(cmbSimbologia->currentText(), "Code 128");
    EXPECT_EQ(cmbStile->currentText(), "Short");
    EXPECT_TRUE(chkDigit->isChecked());
    EXPECT_TRUE(chkHRC->isChecked());
    EXPECT_TRUE(Azione("mnuIncludiCheckDigit")->isChecked());
    EXPECT_EQ(txtDimensione->text(), "64");
    EXPECT_EQ(labFont->text(), "DejaVu Serif (BI; 12 punti)");

    // Cancelling the font dialog changes and writes nothing.
    fontScelto.reset();
    QFile::remove(FileConfigurazione());
    Azione("mnuFont")->trigger();
    EXPECT_EQ(labFont->text(), "DejaVu Serif (BI; 12 punti)");
    EXPECT_FALSE(QFile::exists(FileConfigurazione()));
}

TEST_F(Finestra, CambioDiLingua) {
    Voce("Code 39");
    Invio(QStringLiteral("AB"));
    const auto prima = Anteprima();

    Azione("mnuLinguaItaliano")->trigger();
    EXPECT_TRUE(QFile::exists(Marcatore()));
    EXPECT_TRUE(Azione("mnuLinguaItaliano")->isChecked());
    EXPECT_FALSE(Azione("mnuLinguaEnglish")->isChecked());
    EXPECT_EQ(Figlio<QLabel>("labCodice")->text(), "&Codice:");
    EXPECT_EQ(Figlio<QPushButton>("cmdClipboard")->text(), "App&unti");
    EXPECT_EQ(cmbSimbologia->currentText(), "Codice 39") << "the same entry stays selected";
    EXPECT_EQ(labAttributi->text(), "Lunghezza: variabile, alfabeto 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%");
    EXPECT_EQ(Anteprima()[0].testo, prima[0].testo) << "the preview keeps its content";
    Azione("mnuManuale")->trigger();
    ASSERT_EQ(documenti.size(), 1u);
    EXPECT_EQ(documenti[0], cartella.filePath(QStringLiteral("KRTGuide_ita.pdf")));

    Azione("mnuLinguaItaliano")->trigger();  // already active: nothing happens
    EXPECT_TRUE(Azione("mnuLinguaItaliano")->isChecked());

    Apri();  // the marker keeps Italian across a restart
    EXPECT_EQ(Figlio<QLabel>("labCodice")->text(), "&Codice:");
    Voce("Codice 39");
    EXPECT_EQ(labAttributi->text(), "Lunghezza: variabile, alfabeto 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%");

    Azione("mnuLinguaEnglish")->trigger();
    EXPECT_FALSE(QFile::exists(Marcatore()));
    EXPECT_TRUE(Azione("mnuLinguaEnglish")->isChecked());
    EXPECT_EQ(Figlio<QLabel>("labCodice")->text(), "&Code:");
    Azione("mnuManuale")->trigger();
    EXPECT_EQ(documenti.back(), cartella.filePath(QStringLiteral("KRTGuide.pdf")));
    EXPECT_TRUE(messaggi.empty());
    apreDocumenti = false;  // no viewer: the user gets the guide's path
    Azione("mnuManuale")->trigger();
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(517).arg(QDir::toNativeSeparators(documenti.back())));
}

TEST_F(Finestra, SuggerimentiEStiliPerVoce) {
    const struct {
        const char* voce;
        bool check;
        const char* suggerimento;
        int stili;
        bool hrcAttivo;
    } casi[] = {
        {"Code 39", false, "Length: variable, alphabet 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%", 6, true},
        {"EAN 13", false, "Length: 13 digits", 2, true},
        {"EAN 8", false, "Length: 8 digits", 2, false},
        {"UPC-E Add-on 5", true, "Length: 0/1 + 11 digits", 2, true},
        {"Code 32", false, "Length: 9 digits", 1, true},
        {"ISBN-10", true, "Length: 9 digits", 2, false},
        {"Delta-Distance A", false, "Length: variable, max 16 characters, alphabet 0123456789KLMO", 2, true},
        {"Codabar/Monarch", false, "Length: variable, a/b/c/d + alphabet: 0123456789+.-$:/ + e/m/t/*", 2, true},
    };
    for (const auto& c : casi) {
        Voce("Code 39");  // an entry without fixed rules first
        Spunta(chkDigit, c.check);
        Voce(c.voce);
        EXPECT_EQ(labAttributi->text(), QLatin1String(c.suggerimento)) << c.voce;
        EXPECT_EQ(cmbStile->count(), c.stili) << c.voce;
        EXPECT_EQ(cmbStile->currentIndex(), 0) << c.voce;
        EXPECT_EQ(chkHRC->isEnabled(), c.hrcAttivo) << c.voce;
    }
    // The chosen style is kept by name when the new list has it, else Normal.
    Voce("Code 39");
    Stile("Wide short");
    Voce("Code 93");
    EXPECT_EQ(cmbStile->currentText(), "Wide short");
    Voce("Code 128");
    EXPECT_EQ(cmbStile->currentText(), "Normal");
    Stile("Short");
    Voce("Code 39");
    EXPECT_EQ(cmbStile->currentText(), "Short");
    Azione("mnuLinguaItaliano")->trigger();
    EXPECT_EQ(cmbStile->currentText(), "Corto") << "by name across languages";
    Azione("mnuLinguaEnglish")->trigger();
    // No face is installed here: every style is marked, with the family it needs.
    EXPECT_EQ(cmbStile->itemData(3, Qt::ToolTipRole).toString(), CaricaStringa(518).arg("ORB39 Short"));
}

TEST_F(Finestra, AvvisoFontMancante) {
    Voce("Interleaved 2 of 5");
    Invio(QStringLiteral("1234"));
    EXPECT_EQ(labAvvisoFont->text(), CaricaStringa(IdStringa::FontNonInstallato).arg(QStringLiteral("ORB25 ITF")));
    Voce("Code 39");
    Stile("Narrow");
    Voce("Interleaved 2 of 5");  // no Narrow here: Normal
    EXPECT_EQ(cmbStile->currentText(), "Normal");
    const QString famiglia = QStringLiteral("ORB25 ITF");
    QCoreApplication::processEvents();  // the scan check does not blame the symbol
    EXPECT_EQ(Figlio<QLabel>("labScansione")->text(), CaricaStringa(514));
    EXPECT_EQ(labAvvisoFont->text(), CaricaStringa(IdStringa::FontNonInstallato).arg(famiglia));
    Azione("mnuLinguaItaliano")->trigger();
    EXPECT_EQ(labAvvisoFont->text(), CaricaStringa(IdStringa::FontNonInstallato).arg(famiglia))
        << "the notice follows the language";
    EXPECT_NE(labAvvisoFont->text(), CaricaStringaFissa(IdStringa::FontNonInstallato).arg(famiglia));
}

TEST_F(Finestra, WizardRestituisceContenutoEHRC) {
    Voce("Code 39");
    EXPECT_TRUE(imgWizard->isHidden());
    Voce("EAN 128");
    EXPECT_FALSE(imgWizard->isHidden());
    Spunta(chkHRC, true);
    risultatoWizard = {{"010950123456789010ABC\\x813101000125", "(01)09501234567890(10)ABC(3101)000125"}};
    imgWizard->click();
    EXPECT_EQ(txtCodice->text(), "010950123456789010ABC\\x813101000125");
    auto anteprima = Anteprima();
    ASSERT_EQ(anteprima.size(), 2u);
    EXPECT_EQ(anteprima[0].testo, Glifi("010950123456789010ABC\\x813101000125", "E128", false));
    EXPECT_EQ(anteprima[1].testo, "(01)09501234567890(10)ABC(3101)000125");

    Invio(QStringLiteral("0109501234567890"));  // hand-edited: the wizard's HRC stays
    EXPECT_EQ(Anteprima()[1].testo, "(01)09501234567890(10)ABC(3101)000125");
    Voce("Code 128");
    EXPECT_TRUE(imgWizard->isHidden());
    EXPECT_TRUE(finestra->TestoHRC().empty());
    Voce("EAN 128");
    EXPECT_EQ(Anteprima()[1].testo, "0109501234567890");

    risultatoWizard.reset();  // cancelled: nothing changes
    imgWizard->click();
    EXPECT_EQ(txtCodice->text(), "0109501234567890");
}

TEST_F(Finestra, InformazioniInDueLingue) {
    for (std::int16_t offset : {kOffsetInglese, kOffsetItaliano}) {
        ImpostaOffsetLingua(offset);
        Informazioni informazioni;
        EXPECT_EQ(informazioni.windowTitle(), CaricaStringa(IdStringa::TitoloInformazioni));
        const auto* versione = informazioni.findChild<QLabel*>(QStringLiteral("labVersione"));
        ASSERT_NE(versione, nullptr);
        EXPECT_TRUE(versione->text().contains(QRegularExpression(QStringLiteral("\\d+\\.\\d+\\.\\d+"))));
        const auto* assistenza = informazioni.findChild<QLabel*>(QStringLiteral("labAssistenza"));
        ASSERT_NE(assistenza, nullptr);
        EXPECT_EQ(assistenza->text(), CaricaStringa(IdStringa::Assistenza));
    }
}

// File > Export (Ctrl+E) and File > Print (Ctrl+P) on the preview drawn, at the module width
// and resolution of the row under the size; nothing out of date is exported or printed.
TEST_F(Finestra, EsportaEStampa) {
    const QString file = QStringLiteral(KRT_FONT_PROVA "/ORB39.ttf");
    if (!QFile::exists(file)) GTEST_SKIP() << "reference fonts not built";
    const int font = QFontDatabase::addApplicationFont(file);
    ASSERT_GE(font, 0);
    Apri();
    EXPECT_EQ(Azione("mnuEsporta")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_EQ(Azione("mnuStampa")->shortcut(), QKeySequence(QKeySequence::Print));
    auto* txtModulo = Figlio<QLineEdit>("txtModulo");
    auto* spnDpi = Figlio<QSpinBox>("spnDpi");
    auto* spnCopie = Figlio<QSpinBox>("spnCopie");
    auto* labMisura = Figlio<QLabel>("labMisura");
    Voce("Code 39");
    Invio(QStringLiteral("KRT"));
    txtModulo->setText(QStringLiteral("0.25"));
    spnDpi->setValue(300);
    // 0.25 mm at 300 dpi is 2.95 dots: 3 dots, 0.254 mm.
    EXPECT_TRUE(labMisura->text().startsWith(CaricaStringa(778).section(QLatin1Char('%'), 0, 0) + "0.254"))
        << labMisura->text().toStdString();
    EXPECT_TRUE(labMisura->text().contains(QLatin1String("(3 ")));

    const struct {
        const char* nome;
        const char* azione;
        const char* file;
        const char* contenuto;  // typed without Enter first, nullptr for none
        int messaggio;          // string id of the message shown, 0 for none
    } casi[] = {
        {"png", "mnuEsporta", "k.png", nullptr, 0},
        {"svg", "mnuEsporta", "k.svg", nullptr, 0},
        {"pdf", "mnuEsporta", "k.pdf", nullptr, 0},
        {"unknown_type", "mnuEsporta", "k.jpg", nullptr, 782},
        {"print_pdf", "mnuStampa", "stampa.pdf", nullptr, 0},
        {"out_of_date", "mnuEsporta", "vecchio.png", "KRT2", 781},
        {"out_of_date_print", "mnuStampa", "vecchio.pdf", "KRT2", 781},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        if (c.contenuto != nullptr) txtCodice->setText(QString::fromUtf8(c.contenuto));
        messaggi.clear();
        fileEsportazione = fileStampa = cartella.filePath(QLatin1String(c.file));
        spnCopie->setValue(12);
        Azione(c.azione)->trigger();
        if (c.messaggio == 0) {
            EXPECT_TRUE(messaggi.empty()) << messaggi.front().testo.toStdString();
            EXPECT_GT(QFile(fileEsportazione).size(), 100);
        } else {
            ASSERT_EQ(messaggi.size(), 1u);
            EXPECT_TRUE(messaggi[0].testo.startsWith(CaricaStringa(c.messaggio).section(QLatin1Char('%'), 0, 0)));
            EXPECT_FALSE(QFile::exists(fileEsportazione));
        }
    }
    // Twelve small copies share one page.
    if (!QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty()) {
        QProcess pdfinfo;
        pdfinfo.start(QStringLiteral("pdfinfo"), {cartella.filePath(QStringLiteral("stampa.pdf"))});
        ASSERT_TRUE(pdfinfo.waitForFinished());
        EXPECT_TRUE(QString::fromUtf8(pdfinfo.readAllStandardOutput()).contains(QRegularExpression(QStringLiteral("Pages:\\s+1\\n"))));
    }
    // The row's values survive a restart through the host's settings store.
    {
        QSettings impostazioni(cartella.filePath(QStringLiteral("krt.conf")), QSettings::IniFormat);
        finestra->findChild<PannelloStampa*>()->Salva(impostazioni);
        PannelloStampa altro(nullptr);
        altro.Ripristina(impostazioni);
        EXPECT_EQ(altro.Copie(), 12);
        EXPECT_EQ(altro.Misura(10).dpi, 300);
        EXPECT_DOUBLE_EQ(altro.Misura(10).moduloMm, 0.25);
    }
    // The PNG is whole dots of 3 per module across, at the resolution asked.
    const QImage png(cartella.filePath(QStringLiteral("k.png")));
    EXPECT_EQ(png.width() % 3, 0);
    EXPECT_EQ(png.dotsPerMeterX(), std::lround(300 / 0.0254));
    finestra.reset();
    QFontDatabase::removeApplicationFont(font);
}

}  // namespace
