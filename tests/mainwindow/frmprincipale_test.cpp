// The main window driven offscreen: generate cycle, preview, clipboard, options
// file, languages, hints, fonts, wizard hand-back, export and print.
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QMimeData>
#include <QScrollBar>
#include <QSpinBox>
#include <QTextCursor>

#include "barcodes/controllo.h"
#include "mainwindow/scansione.h"
#include "mainwindow/stampa.h"
#include "tests/mainwindow/file_prova.h"
#include "tests/mainwindow/pagina_finestra.h"

// Readable failures: QString as text, not as a list of QChar.
void PrintTo(const QString& testo, std::ostream* os) { *os << '"' << testo.toStdString() << '"'; }

namespace {

using namespace krt;
using namespace krt::prova;

class Finestra : public ::testing::Test, protected prova::PaginaFinestra {
protected:
    void SetUp() override { Prepara(); }
    void TearDown() override {
        Chiudi();
        if (fontProva_ >= 0) QFontDatabase::removeApplicationFont(fontProva_);
    }
    // One reference barcode font for this process only, and the window opened again to see it.
    bool FontProva(const char* file) {
        fontProva_ = QFontDatabase::addApplicationFont(QStringLiteral(KRT_FONT_PROVA "/") + QLatin1String(file));
        if (fontProva_ >= 0) Apri();
        return fontProva_ >= 0;
    }
    int fontProva_ = -1;
};

TEST_F(Finestra, PrimoAvvio) {
    EXPECT_EQ(txtDimensione->text(), "100");
    EXPECT_EQ(cmbSimbologia->currentIndex(), -1);
    EXPECT_FALSE(QFile::exists(FileConfigurazione())) << "nothing is saved before the first change";
    // No barcode font is seen here: one notice at start, and the window works on.
    ASSERT_EQ(messaggiAvvio.size(), 1u);
    EXPECT_EQ(messaggiAvvio[0].testo, CaricaStringa(513));
    Invio(QStringLiteral("AB"));
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, "Choose a symbology.");

    // Start-up shows what it reads and writes nothing back, even what it could not read.
    ScriviFile(FileConfigurazione(), QByteArray(100, '\x01'));
    Apri();
    EXPECT_EQ(QFile(FileConfigurazione()).size(), 100);
}

// Enter draws the bars (every paragraph in the barcode family) and the HRC line under them; an
// accepted content with a wrong check digit is said on the status line. A refused content gives
// the error with why in the additional text (the reasons themselves: the cycle's tests) and keeps
// the old preview.
TEST_F(Finestra, Invio) {
    const struct {
        const char* voce;
        const char* stile;  // nullptr: the entry's only style
        bool check, hrc;
        QString contenuto;
        QString barre;  // the barcode paragraphs, one per line; empty: refused
        const char* famiglia;
        const char* hrcAtteso;  // nullptr: no HRC paragraph
        QString avviso;         // the status line, or the start of the refusal's additional text
    } casi[] = {
        {"Code 39", "Normal", false, true, "abc-1", Glifi("ABC-1", "C39", false), "ORB39", "*ABC-1*"},
        {"Code 39", "Wide short", false, false, "A_B", Glifi("A_B", "C39", false), "ORB39 Wide Short", nullptr},
        {"Code 93", "Narrow", true, true, "A_B", Glifi("A_B", "C93", true), "ORB93 Narrow", "A B"},
        {"Code 128", "Normal", false, true, "AB\\t12\\x0412", Glifi("AB\\t12\\x0412", "C128", false), "ORB128",
         "AB<HT>12<EOT>12"},
        {"EAN 13", "Normal", true, true, "590123412345", Glifi("590123412345", "EAN13", true), "ORBEAN", nullptr},
        {"EAN 13", "Normal", false, true, "5901234123458", Glifi("5901234123458", "EAN13", false), "ORBEAN", nullptr,
         "Check digit should be 7."},
        // Add-on entries: the main part, then the add-on from what follows (the rest ignored).
        {"EAN 8 Add-on 2", nullptr, false, true, "123456712",
         Glifi("12345671", "EAN8", false) + Glifi("2", "ADD2", true), "ORBEAN", nullptr},
        // Two lines in the barcode family: the text line is part of the symbol.
        {"Code 32", nullptr, false, true, "12345678", Glifi("12345678", "C32HRC", false), "ORB32", nullptr},
        {"UPC-A",
         nullptr,
         true,
         true,
         "036000291450",
         {},
         {},
         {},
         "12 digits typed: with Check Digit ticked, type 11 (or untick it). Check digit should be 2."},
        {"Code 128", "Normal", false, true, "A\\q", {}, {}, {}, CaricaStringa(IdStringa::DettaglioEscape)},
        {"Code 39", "Normal", false, true, "A\u0101", {}, {}, {}, "The character at position 2 has no Windows-1252"},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.voce) + " " + c.contenuto.toStdString());
        Voce(c.voce);
        if (c.stile) Stile(c.stile);
        Spunta(chkDigit, c.check);
        Spunta(chkHRC, c.hrc);
        const auto prima = Anteprima();
        messaggi.clear();
        Invio(c.contenuto);
        if (c.barre.isEmpty()) {
            ASSERT_EQ(messaggi.size(), 1u);
            EXPECT_EQ(messaggi[0].icona, QMessageBox::Critical);
            EXPECT_EQ(messaggi[0].titolo + ": " + messaggi[0].testo, "Error: The value introduced is not allowed");
            EXPECT_TRUE(messaggi[0].dettaglio.startsWith(c.avviso)) << messaggi[0].dettaglio.toStdString();
            EXPECT_EQ(Anteprima()[0].testo, prima[0].testo);
            continue;
        }
        QStringList barre, hrc;
        for (const auto& p : Anteprima()) {
            const bool testo = p.famiglia == "Courier";
            (testo ? hrc : barre) << p.testo;
            EXPECT_EQ(p.famiglia + " " + QString::number(p.punti),
                      testo ? "Courier 10" : c.famiglia + QStringLiteral(" 100"));
        }
        EXPECT_EQ(barre.join(QLatin1Char('\n')), c.barre);
        EXPECT_EQ(hrc, c.hrcAtteso ? QStringList{QLatin1String(c.hrcAtteso)} : QStringList{});
        if (!c.avviso.isEmpty()) EXPECT_EQ(labAvvisi->text(), c.avviso);
        EXPECT_TRUE(messaggi.empty());
        EXPECT_EQ(txtCodice->selectedText(), txtCodice->text()) << "Enter selects the content";
    }
}

// A change the entry refuses keeps the old preview, marked and without a message; Clipboard
// says why instead of copying it.
TEST_F(Finestra, AnteprimaSuperata) {
    cmdClipboard->click();  // nothing drawn yet: the user's clipboard stays
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(503));
    Voce("EAN 13");
    Invio(QStringLiteral("5901234123457"));
    const QString prima = Anteprima()[0].testo;
    messaggi.clear();
    txtCodice->setText(QStringLiteral("AB!"));  // "!" is refused everywhere
    Voce("Code 39");
    Voce("Code 93");
    Spunta(chkHRC, false);
    Stile("Short");
    EXPECT_TRUE(messaggi.empty());
    EXPECT_EQ(Anteprima()[0].testo, prima);
    const QString motivo = QStringLiteral("The character \"!\" at position 3 cannot be encoded in this symbology.");
    EXPECT_EQ(labSuperata->text(), CaricaStringa(500).arg(motivo));
    EXPECT_NE(rtfContenuto->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
    cmdClipboard->click();
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(504));
    EXPECT_EQ(messaggi[0].dettaglio, motivo);

    Invio(QStringLiteral("AB"));
    EXPECT_FALSE(finestra->AnteprimaSuperata());
    EXPECT_TRUE(labSuperata->isHidden());
    // Copied as RTF (the writer: its own tests) and as the glyph string, for other programs.
    cmdClipboard->click();
    const QMimeData* dati = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(dati, nullptr);
    EXPECT_EQ(dati->formats(), (QStringList{QStringLiteral("text/rtf"), QStringLiteral("text/plain")}));
    EXPECT_EQ(dati->text(), Glifi("AB", "C93", false));
    EXPECT_TRUE(dati->data(QStringLiteral("text/rtf")).contains("ORB93 Short;")) << "the style's family";
    txtCodice->setText(QStringLiteral("ABC"));  // typed, not yet drawn
    EXPECT_EQ(labSuperata->text(), CaricaStringa(500).arg(CaricaStringa(502)));
    messaggi.clear();
    Invio(QString());  // empty content: nothing at all
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

    // The size box: Enter, and leaving it for another control, regenerate with the typed size;
    // opening a menu or going to another program is no leaving.
    txtDimensione->setFocus();
    txtDimensione->setText(QStringLiteral("72"));
    QTest::keyClick(txtDimensione, Qt::Key_Return);
    EXPECT_EQ(Anteprima()[0].punti, 72);
    const struct {
        Qt::FocusReason motivo;
        const char* testo;
        double punti;
    } uscite[] = {
        {Qt::PopupFocusReason, "60", 72},
        {Qt::ActiveWindowFocusReason, "60", 72},
        {Qt::TabFocusReason, "60", 60},
        {Qt::MouseFocusReason, "48", 48},
    };
    for (const auto& u : uscite) {
        SCOPED_TRACE(u.motivo);
        txtDimensione->setText(QLatin1String(u.testo));
        QFocusEvent uscita(QEvent::FocusOut, u.motivo);
        QApplication::sendEvent(txtDimensione, &uscita);
        EXPECT_EQ(Anteprima()[0].punti, u.punti);
    }
    EXPECT_TRUE(messaggi.empty());
}

TEST_F(Finestra, CasellaDimensione) {
    const struct {
        QString testo, atteso;
        std::int16_t memorizzato;
    } casi[] = {
        {QStringLiteral("48"), QStringLiteral("48"), 48},
        {QStringLiteral("0"), QStringLiteral("100"), 100},
        {QString(), QStringLiteral("100"), 100},
        {QStringLiteral("999"), QStringLiteral("999"), 999},
        {QStringLiteral("40000"), QStringLiteral("999"), 999},  // past what word processors accept
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.testo.toStdString());
        txtDimensione->setText(c.testo);
        EXPECT_EQ(txtDimensione->text(), c.atteso);
        EXPECT_EQ(finestra->configurazione().Dimensione, c.memorizzato);
    }
    EXPECT_EQ(labAvvisi->text(), CaricaStringa(507).arg(999));
    // Typed at the end: a fourth digit is refused with the message, only digits get through.
    for (const auto& [prima, tasti, dopo, avviso] :
         {std::tuple{"100", "0", "100", true}, {"12", "a-3.b", "123", false}, {"123", "\b", "12", false}}) {
        txtDimensione->setText(QLatin1String(prima));
        txtDimensione->setCursorPosition(txtDimensione->text().size());
        QTest::keyClicks(txtDimensione, QLatin1String(tasti));
        EXPECT_EQ(txtDimensione->text(), QLatin1String(dopo)) << prima << " + " << tasti;
        EXPECT_EQ(labAvvisi->text() == CaricaStringa(507).arg(999), avviso) << prima << " + " << tasti;
    }
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
    EXPECT_EQ(QFile(FileConfigurazione()).size(), 240);
    const auto opzioni = [this] {
        const int spunte =
            chkDigit->isChecked() * 100 + chkHRC->isChecked() * 10 + Azione("mnuIncludiCheckDigit")->isChecked();
        return QStringList{cmbSimbologia->currentText(), cmbStile->currentText(), txtDimensione->text(),
                           labFont->text(), QString::number(spunte)};
    };
    const QStringList scelte{"Code 128", "Short", "64", "DejaVu Serif (BI; 12 punti)", "111"};
    EXPECT_EQ(opzioni(), scelte);
    Apri();
    EXPECT_EQ(opzioni(), scelte);

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
    EXPECT_FALSE(Azione("mnuLinguaEnglish")->isChecked());
    EXPECT_EQ(cmbSimbologia->currentText(), "Codice 39") << "the same entry stays selected";
    EXPECT_TRUE(labAttributi->text().startsWith("Lunghezza: variabile")) << "the hint follows";
    EXPECT_EQ(Anteprima()[0].testo, prima[0].testo) << "the preview keeps its content";
    Azione("mnuManuale")->trigger();
    ASSERT_EQ(documenti.size(), 1u);
    EXPECT_EQ(documenti[0], cartella.filePath(QStringLiteral("KRTGuide_ita.pdf")));
    Azione("mnuLinguaItaliano")->trigger();  // already active: nothing happens
    EXPECT_TRUE(Azione("mnuLinguaItaliano")->isChecked());

    Apri();  // the marker keeps Italian across a restart
    EXPECT_EQ(cmbSimbologia->currentText(), "Codice 39");
    Azione("mnuLinguaEnglish")->trigger();
    EXPECT_FALSE(QFile::exists(Marcatore()));
    apreDocumenti = false;  // no viewer: the user gets the guide's path
    Azione("mnuManuale")->trigger();
    EXPECT_EQ(documenti.back(), cartella.filePath(QStringLiteral("KRTGuide.pdf")));
    ASSERT_EQ(messaggi.size(), 1u);
    EXPECT_EQ(messaggi[0].testo, CaricaStringa(517).arg(QDir::toNativeSeparators(documenti.back())));
}

TEST_F(Finestra, SuggerimentiEStiliPerVoce) {
    const struct {
        const char* voce;
        bool check;
        const char* suggerimento;
        int stili;
    } casi[] = {
        {"Code 39", false, "Length: variable, alphabet 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%", 6},
        {"UPC-E Add-on 5", true, "Length: 0/1 + 11 digits", 2},
        {"Code 32", false, "Length: 9 digits", 1},
        {"Codabar/Monarch", false, "Length: variable, a/b/c/d + alphabet: 0123456789+.-$:/ + e/m/t/*", 2},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.voce);
        Voce("Code 39");  // an entry without fixed rules first
        Spunta(chkDigit, c.check);
        Voce(c.voce);
        EXPECT_EQ(labAttributi->text(), QLatin1String(c.suggerimento));
        EXPECT_EQ(cmbStile->count(), c.stili);
        EXPECT_EQ(cmbStile->currentIndex(), 0);
        EXPECT_TRUE(chkHRC->isEnabled());
    }
    // The chosen style is kept by name when the new list has it, else Normal; across languages too.
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
    EXPECT_EQ(cmbStile->currentText(), "Corto");
    Azione("mnuLinguaEnglish")->trigger();
    // No face is installed here: every style is marked, with the family it needs.
    EXPECT_EQ(cmbStile->itemData(3, Qt::ToolTipRole).toString(), CaricaStringa(518).arg("ORB39 Short"));
}

TEST_F(Finestra, AvvisoFontMancante) {
    const QString avviso = CaricaStringa(IdStringa::FontNonInstallato).arg(QStringLiteral("ORB25 ITF"));
    Voce("Code 39");
    Stile("Narrow");
    Voce("Interleaved 2 of 5");
    EXPECT_EQ(cmbStile->currentText(), "Normal") << "no Narrow here";
    Invio(QStringLiteral("1234"));
    EXPECT_EQ(labAvvisoFont->text(), avviso);
    QCoreApplication::processEvents();  // the scan check does not blame the symbol
    EXPECT_EQ(labScansione->text(), CaricaStringa(514));
    Azione("mnuLinguaItaliano")->trigger();  // the notice follows the language
    EXPECT_EQ(labAvvisoFont->text(), CaricaStringa(IdStringa::FontNonInstallato).arg(QStringLiteral("ORB25 ITF")));
}

// The scan check reads nothing from an image without pixels, whatever the expected format.
TEST(Scansione, ImmagineVuotaNonLetta) {
    const std::uint8_t grigi[16] = {};
    AttesaScansione attesa;
    attesa.formato = FormatoPerCodice("C39");
    ASSERT_NE(attesa.formato, FormatoLettore::Nessuno);
    for (const auto& [larghezza, altezza] : {std::pair{0, 0}, {0, 4}, {4, 0}, {-4, 4}}) {
        const LetturaScansione lettura = LeggiImmagine(larghezza ? grigi : nullptr, larghezza, altezza, 4, attesa);
        EXPECT_FALSE(lettura.letto) << larghezza << "x" << altezza;
        EXPECT_EQ(lettura.formato, "") << larghezza << "x" << altezza;
    }
}

// The line under the preview: a text of its own for each outcome, every placeholder filled, the
// data with its control characters named.
TEST(Scansione, RigaSottoLAnteprima) {
    AttesaScansione attesa;
    attesa.testo = "A\035B";  // GS
    const LetturaScansione lettura{.letto = true, .formato = "Code128", .testo = "\0351"};
    QStringList righe;
    for (const auto esito : {EsitoScansione::Letto, EsitoScansione::LettoDiverso, EsitoScansione::NonLetto,
                             EsitoScansione::NonLetto93, EsitoScansione::NessunLettore, EsitoScansione::FontMancante})
        righe << TestoScansione(esito, attesa, lettura);
    EXPECT_EQ(righe.removeDuplicates(), 0) << righe.join(QLatin1Char('\n')).toStdString();
    EXPECT_FALSE(righe.join(QString()).contains(QLatin1Char('%')));
    EXPECT_TRUE(righe[0].contains(QLatin1String("Code128")) && righe[0].contains(QLatin1String("<GS>1")));
    EXPECT_TRUE(righe[1].contains(QLatin1String("<GS>1")) && righe[1].contains(QLatin1String("A<GS>B")));
}

// The image for the reader holds the bar paragraphs only: text lines before or after add nothing.
TEST(Scansione, ImmagineDelleSoleBarre) {
    QTextDocument soloBarre, conTesto;
    QTextCharFormat barre;
    barre.setFontFamilies({QStringLiteral("ORB39")});
    barre.setFontPointSize(48);
    QTextCursor(&soloBarre).insertText(QStringLiteral("*AB*"), barre);
    QTextCursor cursore(&conTesto);
    cursore.insertText(QStringLiteral("sopra\n"));
    cursore.insertText(QStringLiteral("*AB*"), barre);
    cursore.insertText(QStringLiteral("\n*AB*"), {});
    EXPECT_EQ(ImmagineBarre(conTesto, "ORB39").size(), ImmagineBarre(soloBarre, "ORB39").size());
}

TEST_F(Finestra, WizardRestituisceContenutoEHRC) {
    const std::string contenuto = "010950123456789010ABC\\x813101000125", hrc = "(01)09501234567890(10)ABC(3101)000125";
    Voce("Code 39");
    EXPECT_TRUE(imgWizard->isHidden());
    Voce("EAN 128");
    EXPECT_FALSE(imgWizard->isHidden());
    Spunta(chkHRC, true);
    risultatoWizard = {{contenuto, hrc}};
    imgWizard->click();
    EXPECT_EQ(txtCodice->text(), QString::fromStdString(contenuto));
    ASSERT_EQ(Anteprima().size(), 2u);
    EXPECT_EQ(Anteprima()[0].testo, Glifi(contenuto, "E128", false));
    EXPECT_EQ(Anteprima()[1].testo, QString::fromStdString(hrc));

    Invio(QStringLiteral("0109501234567890"));  // hand-edited: the wizard's HRC stays
    EXPECT_EQ(Anteprima()[1].testo, QString::fromStdString(hrc));
    Voce("Code 128");
    EXPECT_TRUE(imgWizard->isHidden());
    EXPECT_TRUE(finestra->TestoHRC().empty());
    Voce("EAN 128");
    EXPECT_EQ(Anteprima()[1].testo, "0109501234567890");
    risultatoWizard.reset();  // cancelled: nothing changes
    imgWizard->click();
    EXPECT_EQ(txtCodice->text(), "0109501234567890");
}

// The symbol's printed width beside the size, a warning past a page's text column, and a preview
// zoomed out to show the whole symbol in the window's default size. File > Export and File > Print
// on the preview drawn, at the module width and resolution of the row under the size; nothing out
// of date is exported or printed.
TEST_F(Finestra, MisureEsportaEStampa) {
    if (!FontProva("ORBEAN.ttf")) GTEST_SKIP() << "reference fonts not built";
    finestra->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(finestra.get()));
    Voce("EAN 13");
    Invio(QStringLiteral("5901234123457"));
    auto* larghezza = Figlio<QLabel>("labLarghezza");
    const auto millimetri = [larghezza] { return larghezza->text().section(QLatin1Char(' '), 0, 0).toDouble(); };
    const double a100 = millimetri();
    EXPECT_GT(a100, 160);
    EXPECT_EQ(labAvvisi->text(), CaricaStringa(506).arg(160));
    EXPECT_EQ(rtfContenuto->horizontalScrollBar()->maximum(), 0) << "the whole symbol is in view";
    txtDimensione->setText(QStringLiteral("24"));
    EXPECT_NEAR(millimetri(), a100 * 0.24, 0.1);
    EXPECT_TRUE(labAvvisi->isHidden());

    Invio(QStringLiteral("5901234123457"));  // drawn at the new size
    Figlio<QSpinBox>("spnCopie")->setValue(12);
    Figlio<QLineEdit>("txtModulo")->setText(QStringLiteral("0.25"));
    Figlio<QSpinBox>("spnDpi")->setValue(300);
    // 0.25 mm at 300 dpi is 2.95 dots: 3 dots, 0.254 mm.
    const QString misura = Figlio<QLabel>("labMisura")->text();
    EXPECT_TRUE(misura.startsWith(CaricaStringa(778).section(QLatin1Char('%'), 0, 0) + "0.254"))
        << misura.toStdString();
    EXPECT_TRUE(misura.contains(QLatin1String("(3 ")));

    const struct {
        const char* azione;
        const char* file;
        const char* contenuto;  // typed without Enter first, nullptr for none
        int messaggio;          // string id of the message shown, 0 for none
    } casi[] = {
        {"mnuEsporta", "k.png", nullptr, 0},
        {"mnuEsporta", "k.jpg", nullptr, 782},
        {"mnuStampa", "stampa.pdf", nullptr, 0},
        {"mnuEsporta", "vecchio.png", "4006381333931", 781},
        {"mnuStampa", "vecchio.pdf", "4006381333931", 781},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.file);
        if (c.contenuto != nullptr) txtCodice->setText(QString::fromUtf8(c.contenuto));
        messaggi.clear();
        fileEsportazione = fileStampa = cartella.filePath(QLatin1String(c.file));
        Azione(c.azione)->trigger();
        ASSERT_EQ(messaggi.size(), c.messaggio ? 1u : 0u);
        EXPECT_EQ(QFile(fileEsportazione).size() > 100, c.messaggio == 0);
        EXPECT_TRUE(!c.messaggio ||
                    messaggi[0].testo.startsWith(CaricaStringa(c.messaggio).section(QLatin1Char('%'), 0, 0)));
    }
    // The PNG is whole dots of 3 per module across, at the resolution asked.
    const QImage png(cartella.filePath(QStringLiteral("k.png")));
    EXPECT_EQ(png.width() % 3, 0);
    EXPECT_EQ(png.dotsPerMeterX(), std::lround(300 / 0.0254));
    // A label printer's page holds one copy: each copy on a page of its own.
    paginaStampa = QPageLayout(QPageSize(QSizeF(40, 12), QPageSize::Millimeter), QPageLayout::Portrait, {});
    fileStampa = cartella.filePath(QStringLiteral("etichette.pdf"));
    Figlio<QSpinBox>("spnCopie")->setValue(3);
    Invio(QStringLiteral("5901234123457"));
    Azione("mnuStampa")->trigger();
    EXPECT_EQ(LeggiFile(fileStampa).count("/Type /Page\n"), 3);
}

}  // namespace
