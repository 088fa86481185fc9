#include "mainwindow/ospite.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMainWindow>
#include <QSettings>
#include <QTemporaryDir>

namespace {

TEST(Ospite, ScorciatoieStandardSoloDoveMancano) {
    const struct {
        const char* azione;
        const char* giaImpostata;  // "" none
        QKeySequence attesa;
    } casi[] = {
        {"mnuEsci", "", QKeySequence(QKeySequence::Quit)},
        {"mnuManuale", "", QKeySequence(QKeySequence::HelpContents)},
        {"mnuManuale", "Ctrl+G", QKeySequence(QStringLiteral("Ctrl+G"))},
        {"mnuFont", "", QKeySequence()},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.azione) + " preset \"" + c.giaImpostata + "\"");
        QMainWindow finestra;
        auto* azione = new QAction(&finestra);
        azione->setObjectName(QLatin1String(c.azione));
        azione->setShortcut(QKeySequence(QLatin1String(c.giaImpostata)));
        krt::ApplicaScorciatoie(finestra);
        EXPECT_EQ(azione->shortcut(), c.attesa) << azione->shortcut().toString().toStdString();
    }
}

TEST(Ospite, GeometriaRicordataNelleImpostazioniDelSistema) {
    QTemporaryDir cartella;
    ASSERT_TRUE(cartella.isValid());
    QSettings impostazioni(cartella.filePath(QStringLiteral("krt.conf")), QSettings::IniFormat);

    QMainWindow vuota;
    vuota.resize(333, 222);
    EXPECT_FALSE(krt::RipristinaGeometria(vuota, impostazioni)) << "nothing stored yet";
    EXPECT_EQ(vuota.size(), QSize(333, 222));

    impostazioni.setValue(QStringLiteral("finestra/geometria"), QByteArray("not a geometry"));
    EXPECT_FALSE(krt::RipristinaGeometria(vuota, impostazioni));
    EXPECT_EQ(vuota.size(), QSize(333, 222));

    QMainWindow prima;
    prima.setGeometry(40, 50, 420, 310);
    krt::SalvaGeometria(prima, impostazioni);
    QMainWindow dopo;
    ASSERT_TRUE(krt::RipristinaGeometria(dopo, impostazioni));
    EXPECT_EQ(dopo.size(), QSize(420, 310));
}

TEST(Ospite, IconaDelProgrammaAncheSenzaTema) {
    const QIcon icona = krt::IconaProgramma();
    ASSERT_FALSE(icona.isNull());
    for (int lato : {16, 48, 256}) EXPECT_EQ(icona.pixmap(QSize(lato, lato)).size(), QSize(lato, lato)) << lato;
}

}  // namespace
