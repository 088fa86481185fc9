#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "support/cp1252.h"
#include "support/stringhe.h"
#include "gs1/catalogo_ai.h"
#include "wizard/frmean128wizard.h"
#include "gs1/validazione_ai.h"

namespace {

using namespace krt;

// The dialog, built in English (the language every test leaves), with its message boxes
// recorded instead of shown.
class Wizard : public ::testing::Test {
protected:
    void SetUp() override {
        dialogo.ImpostaMostraMessaggio([this](int id) { messaggi.push_back(id); });
        dialogo.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialogo));
    }
    void TearDown() override { ImpostaOffsetLingua(kOffsetInglese); }

    // Clicks the catalogue entry of an AI.
    void ScegliAI(std::string_view ai) {
        const auto indice = CercaAI(ai);
        ASSERT_TRUE(indice.has_value()) << ai;
        auto* voce = lstAI->item(static_cast<int>(*indice));
        lstAI->scrollToItem(voce);
        QTest::mouseClick(lstAI->viewport(), Qt::LeftButton, {}, lstAI->visualItemRect(voce).center());
        ASSERT_EQ(lstAI->selectedItems().value(0), voce) << ai;
    }

    // Types a value and presses Enter in the value box.
    void Inserisci(std::string_view ai, const QString& valore) {
        ScegliAI(ai);
        txtValore->clear();
        QTest::keyClicks(txtValore, valore);
        QTest::keyClick(txtValore, Qt::Key_Return);
    }

    std::vector<std::string> Righe() const {
        std::vector<std::string> righe;
        for (int i = 0; i < lstCodice->count(); ++i) righe.push_back(lstCodice->item(i)->text().toStdString());
        return righe;
    }
    using Testi = std::vector<std::string>;

    frmEan128Wizard dialogo;
    std::vector<int> messaggi;
    QListWidget* lstAI = dialogo.findChild<QListWidget*>("lstAI");
    QListWidget* lstCodice = dialogo.findChild<QListWidget*>("lstCodice");
    QLineEdit* txtValore = dialogo.findChild<QLineEdit*>("txtValore");
    QLabel* labDescrizione = dialogo.findChild<QLabel*>("labDescrizione");
    QLabel* labAI = dialogo.findChild<QLabel*>("labAI");
    QLabel* labAvviso = dialogo.findChild<QLabel*>("labAvviso");
    QPushButton* cmdUp = dialogo.findChild<QPushButton*>("cmdUp");
    QPushButton* cmdDown = dialogo.findChild<QPushButton*>("cmdDown");
    QPushButton* cmdOk = dialogo.findChild<QPushButton*>("cmdOk");
    QPushButton* cmdAnnulla = dialogo.findChild<QPushButton*>("cmdAnnulla");
};

// The catalogue, nothing selected; selecting an AI sets the value's limit and description.
TEST_F(Wizard, CatalogoEDescrizioni) {
    EXPECT_EQ(dialogo.windowTitle(), "Wizard EAN 128");
    EXPECT_GE(txtValore->minimumWidth(), 20 * txtValore->fontMetrics().horizontalAdvance(QLatin1Char('0')));
    EXPECT_EQ(lstAI->count(), 107);
    EXPECT_FALSE(txtValore->isEnabled());
    const struct {
        std::string_view ai;
        int limite;
        QString descrizione;
    } casi[] = {
        {"310", 11, "Float of length 6"},
        {"10", 20, "Alfanumerico variabile, massimo 20 caratteri"},
    };
    for (const auto& c : casi) {
        ScegliAI(c.ai);
        EXPECT_TRUE(txtValore->isEnabled()) << c.ai;
        EXPECT_EQ(txtValore->maxLength(), c.limite) << c.ai;
        EXPECT_EQ(labDescrizione->text(), c.descrizione) << c.ai;
    }
    ImpostaOffsetLingua(kOffsetItaliano);
    frmEan128Wizard italiano;
    italiano.findChild<QListWidget*>("lstAI")->setCurrentRow(static_cast<int>(*CercaAI("310")));
    EXPECT_EQ(italiano.findChild<QLabel*>("labDescrizione")->text(), "Decimale di lunghezza 6");
    // Each line of the list, in both languages, begins with the AI it inserts.
    for (const QListWidget* lista : {lstAI, italiano.findChild<QListWidget*>("lstAI")})
        for (int i = 0; i < lista->count(); ++i)
            EXPECT_EQ(lista->item(i)->text().left(4).trimmed(), DaWindows1252(CatalogoAI[i].ai)) << i;
}

// O&k on nothing is refused; a refused value stays in the box; an SSCC gains its check
// digit; a doubtful date is kept and pointed out; Down takes the last line back into the box
// with its AI selected, the AI label following the selection; Abort hands back nothing.
TEST_F(Wizard, RifiutiCompletamentiEAnnulla) {
    QTest::mouseClick(cmdOk, Qt::LeftButton);
    EXPECT_EQ(messaggi, std::vector<int>{MessaggioCodiceVuoto});
    EXPECT_TRUE(dialogo.isVisible());
    Inserisci("01", "123");
    EXPECT_EQ(messaggi.back(), MessaggioLunghezzaErrata);
    EXPECT_EQ(txtValore->text(), "123");
    Inserisci("00", "12345678901234567");
    Inserisci("10", "AB");
    Inserisci("17", "241399");  // month 13
    EXPECT_EQ(Righe(), Testi({"(00) 123456789012345675", "(10) AB", "(17) 241399"}));
    EXPECT_EQ(labAvviso->text(), "(17) " + CaricaStringa(519));
    ScegliAI("21");
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_EQ(txtValore->text(), "241399");
    EXPECT_EQ(lstAI->selectedItems().value(0), lstAI->item(static_cast<int>(*CercaAI("17"))));
    EXPECT_EQ(labAvviso->text(), "");
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_EQ(Righe(), Testi({"(00) 123456789012345675"}));
    EXPECT_EQ(labAI->text(), "AI: 00");
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_TRUE(Righe().empty());
    EXPECT_EQ(labAI->text(), "");
    EXPECT_EQ(txtValore->text(), "123456789012345675");
    messaggi.clear();
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_EQ(messaggi, std::vector<int>{MessaggioImpossibileAnnullare});
    QTest::mouseClick(cmdAnnulla, Qt::LeftButton);
    EXPECT_EQ(dialogo.result(), QDialog::Rejected);
    EXPECT_TRUE(dialogo.Contenuto().empty());
    EXPECT_TRUE(dialogo.TestoHRC().empty());
}

// The worked example, keys alone but for the Up button: the focus rests on AI 00 without
// selecting it, Enter on an AI goes to its value, Enter inserts (a wrong check digit is
// pointed out, not refused), the mnemonics reach the list, the value and O&k.
TEST_F(Wizard, EsempioDaTastiera) {
    dialogo.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialogo));
    ASSERT_EQ(QApplication::focusWidget(), lstAI);
    EXPECT_TRUE(lstAI->selectedItems().isEmpty());
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 01
    QTest::keyClick(lstAI, Qt::Key_Return);
    ASSERT_EQ(QApplication::focusWidget(), txtValore);
    QTest::keyClicks(txtValore, "09501234567890");
    QTest::keyClick(txtValore, Qt::Key_Return);
    EXPECT_EQ(labAvviso->text(), "(01) Check digit should be 1.");
    QTest::keyClick(txtValore, Qt::Key_L, Qt::AltModifier);
    ASSERT_EQ(QApplication::focusWidget(), lstAI);
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 02
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 10
    QTest::keyClick(lstAI, Qt::Key_V, Qt::AltModifier);
    ASSERT_EQ(QApplication::focusWidget(), txtValore);
    QTest::keyClicks(txtValore, "ABC");
    QTest::mouseClick(cmdUp, Qt::LeftButton);
    Inserisci("310", "12.5");
    EXPECT_EQ(Righe(), Testi({"(01) 09501234567890", "(10) ABC", "(310) 12.5"}));
    EXPECT_EQ(labAvviso->text(), "");
    EXPECT_TRUE(txtValore->text().isEmpty());
    EXPECT_TRUE(messaggi.empty());
    QTest::keyClick(txtValore, Qt::Key_K, Qt::AltModifier);  // an animated click
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialogo.result() == QDialog::Accepted; }));
    EXPECT_EQ(dialogo.Contenuto(), "010950123456789010ABC\\x813101000125");
    EXPECT_EQ(dialogo.TestoHRC(), "(01)09501234567890(10)ABC(3101)000125");
}

// The English message texts of krt-encode agree with the string table.
TEST(MessaggiAI, AgreeWithTheStringTable) {
    for (const int id : {MessaggioTitoloErrore, MessaggioValoreNonAmmesso, MessaggioImpossibileAnnullare,
                         MessaggioCodiceVuoto, MessaggioLunghezzaErrata, MessaggioNonIntero,
                         MessaggioPrime14NonCifre, MessaggioPrime3NonCifre, MessaggioNonNumero})
        EXPECT_EQ(CaricaStringaFissa(id), DaWindows1252(TestoMessaggioInglese(id))) << id;
}

}  // namespace
