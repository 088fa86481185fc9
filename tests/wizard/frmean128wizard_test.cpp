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

// The dialog with its message boxes recorded instead of shown.
class Wizard : public ::testing::Test {
protected:
    void SetUp() override {
        ImpostaOffsetLingua(kOffsetInglese);
        dialogo = std::make_unique<frmEan128Wizard>();
        dialogo->ImpostaMostraMessaggio([this](int id) { messaggi.push_back(id); });
        dialogo->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialogo.get()));
        lstAI = Figlio<QListWidget>("lstAI");
        lstCodice = Figlio<QListWidget>("lstCodice");
        txtValore = Figlio<QLineEdit>("txtValore");
        labDescrizione = Figlio<QLabel>("labDescrizione");
        labAI = Figlio<QLabel>("labAI");
        cmdUp = Figlio<QPushButton>("cmdUp");
        cmdDown = Figlio<QPushButton>("cmdDown");
        cmdOk = Figlio<QPushButton>("cmdOk");
        cmdAnnulla = Figlio<QPushButton>("cmdAnnulla");
    }
    void TearDown() override { ImpostaOffsetLingua(kOffsetInglese); }

    template <class T>
    T* Figlio(const char* nome) {
        auto* figlio = dialogo->findChild<T*>(nome);
        EXPECT_NE(figlio, nullptr) << nome;
        return figlio;
    }

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

    std::unique_ptr<frmEan128Wizard> dialogo;
    std::vector<int> messaggi;
    QListWidget* lstAI = nullptr;
    QListWidget* lstCodice = nullptr;
    QLineEdit* txtValore = nullptr;
    QLabel* labDescrizione = nullptr;
    QLabel* labAI = nullptr;
    QPushButton* cmdUp = nullptr;
    QPushButton* cmdDown = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdAnnulla = nullptr;
};

TEST_F(Wizard, OpensWithTheCatalogueAndNothingSelected) {
    EXPECT_EQ(dialogo->windowTitle(), " Wizard EAN 128");
    EXPECT_EQ(lstAI->count(), 107);
    EXPECT_TRUE(lstAI->selectedItems().isEmpty());
    EXPECT_FALSE(txtValore->isEnabled());
    EXPECT_EQ(lstCodice->count(), 0);
    EXPECT_EQ(cmdOk->text(), "O&k");
    EXPECT_EQ(cmdAnnulla->text(), "&Abort");
}

TEST_F(Wizard, WorkedExample) {
    Inserisci("01", "09501234567890");
    ScegliAI("10");
    QTest::keyClicks(txtValore, "ABC");
    QTest::mouseClick(cmdUp, Qt::LeftButton);
    Inserisci("310", "12.5");
    EXPECT_EQ(Righe(), Testi({"09501234567890", "ABC", "12.5"}));
    EXPECT_TRUE(txtValore->text().isEmpty());
    EXPECT_TRUE(messaggi.empty());

    QTest::mouseClick(cmdOk, Qt::LeftButton);
    EXPECT_EQ(dialogo->result(), QDialog::Accepted);
    EXPECT_EQ(dialogo->Contenuto(), "010950123456789010ABC\\x813101000125");
    EXPECT_EQ(dialogo->TestoHRC(), "(01)09501234567890(10)ABC(3101)000125");
}

TEST_F(Wizard, SelectingAnAISetsLimitAndDescription) {
    struct Caso {
        std::string_view ai;
        int limite;
        QString descrizione;
    };
    const Caso casi[] = {
        {"01", 14, "Integer of length 14"},
        {"310", 11, "Float of length 6"},
        {"391", 19, "Float of length 18"},
        {"23", 19, "Integer, max length 19"},
        {"10", 20, "Alfanumerico variabile, massimo 20 caratteri"},
        {"8003", 30, "Integer of length 14 followed by a string of variable length, max 16 characters"},
    };
    for (const auto& c : casi) {
        ScegliAI(c.ai);
        EXPECT_TRUE(txtValore->isEnabled()) << c.ai;
        EXPECT_EQ(txtValore->maxLength(), c.limite) << c.ai;
        EXPECT_EQ(labDescrizione->text(), c.descrizione) << c.ai;
    }
}

TEST_F(Wizard, RefusedValueStaysInTheBox) {
    Inserisci("01", "123");
    EXPECT_EQ(messaggi, std::vector<int>{MessaggioLunghezzaErrata});
    EXPECT_EQ(txtValore->text(), "123");
    EXPECT_EQ(lstCodice->count(), 0);
}

TEST_F(Wizard, SsccCompletedWithItsCheckDigit) {
    Inserisci("00", "12345678901234567");
    EXPECT_EQ(Righe(), Testi({"123456789012345675"}));
}

TEST_F(Wizard, RemoveLastAndEmptyOk) {
    QTest::mouseClick(cmdOk, Qt::LeftButton);
    EXPECT_EQ(messaggi, std::vector<int>{MessaggioCodiceVuoto});
    EXPECT_TRUE(dialogo->isVisible());

    Inserisci("01", "09501234567890");
    Inserisci("10", "AB");
    ScegliAI("21");
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_EQ(Righe(), Testi({"09501234567890"}));
    EXPECT_EQ(txtValore->text(), "AB");
    EXPECT_EQ(lstAI->selectedItems().value(0), lstAI->item(static_cast<int>(*CercaAI("10"))));
    EXPECT_EQ(labAI->text(), "AI: 01");

    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_TRUE(Righe().empty());
    EXPECT_EQ(txtValore->text(), "09501234567890");
    messaggi.clear();
    QTest::mouseClick(cmdDown, Qt::LeftButton);
    EXPECT_EQ(messaggi, std::vector<int>{MessaggioImpossibileAnnullare});
}

TEST_F(Wizard, CancelLeavesNothing) {
    Inserisci("10", "AB");
    QTest::mouseClick(cmdAnnulla, Qt::LeftButton);
    EXPECT_EQ(dialogo->result(), QDialog::Rejected);
    EXPECT_TRUE(dialogo->Contenuto().empty());
    EXPECT_TRUE(dialogo->TestoHRC().empty());
}

TEST_F(Wizard, KeyboardAlone) {
    dialogo->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialogo.get()));
    ASSERT_EQ(QApplication::focusWidget(), lstAI);
    // The focus rests on the first entry, AI 00, without selecting it.
    EXPECT_TRUE(lstAI->selectedItems().isEmpty());
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 01
    QTest::keyClick(lstAI, Qt::Key_Return);
    ASSERT_EQ(QApplication::focusWidget(), txtValore);
    QTest::keyClicks(txtValore, "09501234567890");
    QTest::keyClick(txtValore, Qt::Key_Return);
    QTest::keyClick(txtValore, Qt::Key_L, Qt::AltModifier);  // mnemonic of the AI list
    ASSERT_EQ(QApplication::focusWidget(), lstAI);
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 02
    QTest::keyClick(lstAI, Qt::Key_Down);  // AI 10
    QTest::keyClick(lstAI, Qt::Key_V, Qt::AltModifier);  // mnemonic of the value box
    ASSERT_EQ(QApplication::focusWidget(), txtValore);
    QTest::keyClicks(txtValore, "AB");
    QTest::keyClick(txtValore, Qt::Key_Return);
    ASSERT_EQ(Righe(), Testi({"09501234567890", "AB"}));
    QTest::keyClick(txtValore, Qt::Key_K, Qt::AltModifier);  // O&k, an animated click
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialogo->result() == QDialog::Accepted; }));
    EXPECT_EQ(dialogo->Contenuto(), "010950123456789010AB");
    EXPECT_EQ(dialogo->TestoHRC(), "(01)09501234567890(10)AB");
}

TEST_F(Wizard, ItalianTexts) {
    ImpostaOffsetLingua(kOffsetItaliano);
    frmEan128Wizard italiano;
    italiano.findChild<QListWidget*>("lstAI")->setCurrentRow(static_cast<int>(*CercaAI("310")));
    EXPECT_EQ(italiano.findChild<QLabel*>("labDescrizione")->text(), "Decimale di lunghezza 6");
    EXPECT_EQ(italiano.findChild<QPushButton*>("cmdAnnulla")->text(), CaricaStringa(91));
}

// The catalogue's AIs and the English message texts of krt-encode agree with the
// string table, in both languages.
TEST(CatalogoAIETabella, AgreeWithTheStringTable) {
    for (const auto offset : {kOffsetInglese, kOffsetItaliano}) {
        for (const auto& voce : CatalogoAI) {
            const auto testo = CaricaStringaFissa(voce.idTesto + offset);
            EXPECT_EQ(testo.left(4).trimmed(), DaWindows1252(voce.ai)) << voce.idTesto + offset;
            EXPECT_GT(testo.size(), 5) << voce.idTesto + offset;
        }
    }
    for (const int id : {MessaggioTitoloErrore, MessaggioValoreNonAmmesso, MessaggioImpossibileAnnullare,
                         MessaggioCodiceVuoto, MessaggioLunghezzaErrata, MessaggioNonIntero,
                         MessaggioPrime14NonCifre, MessaggioPrime3NonCifre, MessaggioNonNumero}) {
        EXPECT_EQ(CaricaStringaFissa(id), DaWindows1252(TestoMessaggioInglese(id))) << id;
    }
}

}  // namespace
