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

// Nothing stored, or not a geometry: the window keeps its size.
TEST(Ospite, GeometriaRicordataNelleImpostazioniDelSistema) {
    QTemporaryDir cartella;
    QSettings impostazioni(cartella.filePath(QStringLiteral("krt.conf")), QSettings::IniFormat);
    QMainWindow finestra;
    finestra.resize(333, 222);
    for (const char* prima : {"nothing", "not a geometry"}) {
        EXPECT_FALSE(krt::RipristinaGeometria(finestra, impostazioni)) << prima;
        EXPECT_EQ(finestra.size(), QSize(333, 222)) << prima;
        impostazioni.setValue(QStringLiteral("finestra/geometria"), QByteArray(prima));
    }
    finestra.setGeometry(40, 50, 420, 310);
    krt::SalvaGeometria(finestra, impostazioni);
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
