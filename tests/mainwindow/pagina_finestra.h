// The main window as the tests drive it: its controls by name, the steps a user takes, the
// preview read back, and the services (messages, documents, font dialog, wizard) recorded.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolButton>

#include <gtest/gtest.h>

#include "barcodes/codifica.h"
#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt::prova {

struct Messaggio {
    QMessageBox::Icon icona;
    QString titolo, testo, dettaglio;
};

// One paragraph of the preview with the format of its first character.
struct Paragrafo {
    QString testo;
    QString famiglia;
    double punti = 0;
};

struct PaginaFinestra {
    // A window with a data folder of its own, in English.
    void Prepara() {
        ASSERT_TRUE(cartella.isValid());
        ImpostaCartellaDati(cartella.path());
        ImpostaOffsetLingua(kOffsetInglese);
        Apri();
    }
    void Chiudi() {
        finestra.reset();
        ImpostaOffsetLingua(kOffsetInglese);
    }

    // A new window on the same data folder, as at a restart.
    void Apri() {
        finestra.reset();
        ServiziFinestra servizi;
        servizi.messaggio = [this](QMessageBox::Icon i, const QString& t, const QString& x, const QString& d) {
            messaggi.push_back({i, t, x, d});
        };
        servizi.apriDocumento = [this](const QString& percorso) {
            documenti.push_back(percorso);
            return apreDocumenti;
        };
        servizi.scegliFont = [this](const QFont&) { return fontScelto; };
        servizi.wizard = [this](std::string& contenuto, std::string& hrc) {
            if (!risultatoWizard) return false;
            contenuto = risultatoWizard->first;
            hrc = risultatoWizard->second;
            return true;
        };
        servizi.fileEsportazione = [this](const QString&) { return fileEsportazione; };
        servizi.dialogoStampa = [this](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(fileStampa);
            if (paginaStampa) stampante.setPageLayout(*paginaStampa);
            return true;
        };
        finestra = std::make_unique<frmPrincipale>(servizi);
        finestra->Avvia();
        messaggiAvvio = std::exchange(messaggi, {});
        txtCodice = Figlio<QLineEdit>("txtCodice");
        txtDimensione = Figlio<QLineEdit>("txtDimensione");
        cmbSimbologia = Figlio<QComboBox>("cmbSimbologia");
        cmbStile = Figlio<QComboBox>("cmbStile");
        chkHRC = Figlio<QCheckBox>("chkHRC");
        chkDigit = Figlio<QCheckBox>("chkDigit");
        rtfContenuto = Figlio<QTextEdit>("rtfContenuto");
        labAttributi = Figlio<QLabel>("labAttributi");
        labFont = Figlio<QLabel>("labFont");
        labAvvisoFont = Figlio<QLabel>("labAvvisoFont");
        imgWizard = Figlio<QToolButton>("imgWizard");
        labSuperata = Figlio<QLabel>("labSuperata");
        labAvvisi = Figlio<QLabel>("labAvvisi");
        cmdClipboard = Figlio<QPushButton>("cmdClipboard");
        labScansione = Figlio<QLabel>("labScansione");
    }

    template <class T>
    T* Figlio(const char* nome) {
        auto* figlio = finestra->findChild<T*>(QLatin1String(nome));
        EXPECT_NE(figlio, nullptr) << nome;
        return figlio;
    }
    QAction* Azione(const char* nome) { return Figlio<QAction>(nome); }

    void Scegli(QComboBox* combo, const QString& testo) {
        const int indice = combo->findText(testo);
        ASSERT_GE(indice, 0) << testo.toStdString();
        combo->setCurrentIndex(indice);
    }
    void Voce(const char* nome) { Scegli(cmbSimbologia, QString::fromUtf8(nome)); }
    void Stile(const char* nome) { Scegli(cmbStile, QString::fromUtf8(nome)); }
    void Spunta(QCheckBox* box, bool valore) {
        if (box->isChecked() != valore) box->click();
    }
    // Types the content and presses Enter in the content box.
    void Invio(const QString& contenuto) {
        txtCodice->setText(contenuto);
        QTest::keyClick(txtCodice, Qt::Key_Return);
    }

    std::vector<Paragrafo> Anteprima() const {
        std::vector<Paragrafo> paragrafi;
        for (QTextBlock b = finestra->DocumentoAnteprima().begin(); b.isValid(); b = b.next()) {
            Paragrafo p;
            p.testo = b.text();
            const QTextCharFormat f = b.begin().atEnd() ? b.charFormat() : b.begin().fragment().charFormat();
            p.famiglia = f.font().family();
            p.punti = f.fontPointSize();
            paragrafi.push_back(p);
        }
        return paragrafi;
    }

    QString FileConfigurazione() const { return cartella.filePath(QStringLiteral("KRT.CFG")); }
    QString Marcatore() const { return cartella.filePath(QStringLiteral("ITALIANO.LNG")); }

    static QString Glifi(const std::string& contenuto, const std::string& codice, bool check) {
        return DaWindows1252(CodificaBarcode(contenuto, codice, check))
            .replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    }

    QTemporaryDir cartella;
    std::unique_ptr<frmPrincipale> finestra;
    std::vector<Messaggio> messaggi, messaggiAvvio;
    bool apreDocumenti = true;
    std::vector<QString> documenti;
    std::optional<QFont> fontScelto;
    std::optional<std::pair<std::string, std::string>> risultatoWizard;
    QString fileEsportazione, fileStampa;     // what the file and print dialogs answer
    std::optional<QPageLayout> paginaStampa;  // A4 when not set

    QLineEdit* txtCodice = nullptr;
    QLineEdit* txtDimensione = nullptr;
    QComboBox* cmbSimbologia = nullptr;
    QComboBox* cmbStile = nullptr;
    QCheckBox* chkHRC = nullptr;
    QCheckBox* chkDigit = nullptr;
    QTextEdit* rtfContenuto = nullptr;
    QLabel* labAttributi = nullptr;
    QLabel* labFont = nullptr;
    QLabel* labAvvisoFont = nullptr;
    QToolButton* imgWizard = nullptr;
    QLabel* labSuperata = nullptr;
    QLabel* labAvvisi = nullptr;
    QPushButton* cmdClipboard = nullptr;
    QLabel* labScansione = nullptr;
};

}  // namespace krt::prova
