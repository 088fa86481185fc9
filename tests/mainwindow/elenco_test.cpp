// The list window driven offscreen: files read (awkward, malformed, large), the content
// column and the options changed, refused rows filtered, paste, save and copy.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QMimeData>
#include <QTableView>
#include <QTemporaryDir>

#include "cycle/voce.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/frmelenco.h"
#include "support/stringhe.h"
#include "tests/mainwindow/file_prova.h"

namespace {

using namespace krt;
using prova::LeggiFile;

class Elenco : public ::testing::Test {
protected:
    void SetUp() override {
        ImpostaOffsetLingua(0);
        ASSERT_TRUE(cartella.isValid());
        impostazioni.voce = TrovaVoce("EAN 13", 0);
        ASSERT_NE(impostazioni.voce, nullptr);
        ServiziElenco servizi;
        servizi.errore = [this](const QString& testo) { errori << testo; };
        finestra = std::make_unique<frmElenco>(impostazioni, servizi);
    }
    QString File(const char* nome, const std::string& dati) {
        return prova::ScriviFile(cartella.filePath(QLatin1String(nome)), QByteArray::fromStdString(dati));
    }

    QTemporaryDir cartella;
    ImpostazioniElenco impostazioni;
    QStringList errori;
    std::unique_ptr<frmElenco> finestra;
};

TEST_F(Elenco, FileLetti) {
    struct Caso {
        const char* nome;
        std::string dati;
        bool letto;
        int righe, rifiutate;
        const char* errore;  // part of the error box, "" for none
    } const casi[] = {
        {"semicolons, quotes, CRLF, empty line", "code;name\r\n4006381333931;\"a;\"\"b\"\"\r\nc\"\r\n12X;x\r\n\r\n",
         true, 3, 2, ""},
        {"tab, byte-order mark, short and long rows",
         "\xEF\xBB\xBF"
         "code\tname\n4006381333931\n5901234123457\tb\tc\n",
         true, 2, 1, ""},
        {"quote not closed", "code\n4006381333931\n\"12\n", false, 0, 0, "line 3: a quoted field is not closed"},
        {"text after a closing quote", "code,x\n\"1\"2,3\n", false, 0, 0, "line 2: a character follows"},
        {"empty file", "", false, 0, 0, "line 1: the file holds no header line"},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        errori.clear();
        const QString percorso = File("lista.csv", c.dati);
        EXPECT_EQ(finestra->ApriFile(percorso), c.letto);
        EXPECT_EQ(errori.size(), c.letto ? 0 : 1);
        EXPECT_TRUE(errori.join(QLatin1Char('\n')).contains(QLatin1String(c.errore)))
            << errori.join(QLatin1Char('\n')).toStdString();
        if (c.letto) {
            EXPECT_EQ(finestra->Modello().rowCount(), c.righe);
            EXPECT_EQ(static_cast<int>(finestra->Modello().Rifiutate()), c.rifiutate);
        }
        EXPECT_EQ(LeggiFile(percorso), QByteArray::fromStdString(c.dati));
    }
}

TEST_F(Elenco, ColonnaFiltroSalvaCopia) {
    const std::string dati = "name,code\r\n\"a,b\",4006381333931\r\nc,12X\r\n";
    const QString percorso = File("articoli.csv", dati);
    ASSERT_TRUE(finestra->ApriFile(percorso));
    // The first column holds names: every row refused until the code column is chosen.
    EXPECT_EQ(finestra->Modello().Rifiutate(), 2u);
    auto* colonna = finestra->findChild<QComboBox*>(QStringLiteral("cmbColonna"));
    ASSERT_EQ(colonna->count(), 2);
    colonna->setCurrentIndex(1);
    finestra->Modello().ImpostaColonnaContenuto(2);  // past the last column: nothing changes
    EXPECT_EQ(finestra->Modello().Rifiutate(), 1u);
    auto* tabella = finestra->findChild<QTableView*>(QStringLiteral("tabella"));
    finestra->findChild<QCheckBox*>(QStringLiteral("chkSoloRifiutate"))->setChecked(true);
    ASSERT_EQ(tabella->model()->rowCount(), 1);
    EXPECT_EQ(tabella->model()->index(0, ModelloElenco::Contenuto).data().toString(), QStringLiteral("12X"));
    EXPECT_TRUE(
        tabella->model()->index(0, ModelloElenco::Stato).data().toString().startsWith(QLatin1String("Refused: ")));

    // Saved: every row (the filter only hides), the fields as read, the three columns.
    const QString salvato = cartella.filePath(QStringLiteral("uscita.csv"));
    ASSERT_TRUE(finestra->SalvaCsv(salvato));
    const QList<QByteArray> righe = LeggiFile(salvato).split('\n');
    ASSERT_EQ(righe.size(), 4);  // the last one empty
    EXPECT_EQ(righe[0], "\xEF\xBB\xBFname,code,barcode,hrc,error\r");
    EXPECT_TRUE(righe[1].startsWith("\"a,b\",4006381333931,") && righe[1].endsWith(",\r")) << righe[1].toStdString();
    EXPECT_TRUE(righe[2].startsWith("c,12X,,,")) << righe[2].toStdString();
    EXPECT_TRUE(righe[2].contains("\"\"X\"\" at position 3")) << righe[2].toStdString();
    // The file read is never written.
    EXPECT_FALSE(finestra->SalvaCsv(percorso));
    EXPECT_EQ(LeggiFile(percorso), QByteArray::fromStdString(dati));
    ASSERT_EQ(errori.size(), 1);

    // Copied: the refused row shown, as an RTF table with the barcode family, and as text.
    finestra->CopiaTabella();
    const QMimeData* appunti = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(appunti, nullptr);
    const QByteArray rtf = appunti->data(FormatoAppuntiRtf());
    EXPECT_TRUE(rtf.contains("\\trowd") && rtf.contains("ORBEAN")) << rtf.toStdString();
    EXPECT_EQ(rtf.count("\\row"), 1);
    EXPECT_TRUE(appunti->text().startsWith(QLatin1String("12X\t\t\tRefused: "))) << appunti->text().toStdString();

    // Another entry recodes every row.
    finestra->findChild<QCheckBox*>(QStringLiteral("chkSoloRifiutate"))->setChecked(false);
    auto* voce = finestra->findChild<QComboBox*>(QStringLiteral("cmbSimbologia"));
    voce->setCurrentIndex(voce->findText(QStringLiteral("Code 128")));
    EXPECT_EQ(finestra->Modello().Rifiutate(), 0u);
}

TEST_F(Elenco, Incolla) {
    QGuiApplication::clipboard()->setText(QStringLiteral("4006381333931\tx\n12X\n"));
    ASSERT_TRUE(finestra->Incolla());
    EXPECT_EQ(finestra->Modello().rowCount(), 2);
    EXPECT_EQ(finestra->Modello().Intestazione(), (std::vector<std::string>{"column1", "column2"}));
    EXPECT_EQ(finestra->Modello().Rifiutate(), 1u);
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(finestra->Incolla());
    EXPECT_EQ(errori.size(), 1);
}

// Export rows: one file per accepted row without the font, named from the content column.
TEST_F(Elenco, EsportaRighe) {
    const int font = QFontDatabase::addApplicationFont(QStringLiteral(KRT_FONT_PROVA "/ORBEAN.ttf"));
    if (font < 0) GTEST_SKIP() << "reference fonts not built";
    ASSERT_TRUE(finestra->ApriFile(File("righe.csv", "code\r\n4006381333931\r\n12X\r\n4006381333931\r\n")));
    const QString uscita = cartella.filePath(QStringLiteral("uscita"));
    ASSERT_TRUE(QDir().mkpath(uscita));
    EXPECT_EQ(finestra->EsportaRighe(QDir(uscita).filePath(QStringLiteral("x.svg"))), 2);
    EXPECT_EQ(QDir(uscita).entryList(QDir::Files, QDir::Name),
              QStringList({QStringLiteral("4006381333931-2.svg"), QStringLiteral("4006381333931.svg")}));
    EXPECT_EQ(finestra->EsportaRighe(QDir(uscita).filePath(QStringLiteral("x.gif"))), -1);
    EXPECT_EQ(errori.size(), 1);
    QFontDatabase::removeApplicationFont(font);
}

}  // namespace
