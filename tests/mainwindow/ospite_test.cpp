#include "mainwindow/ospite.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMainWindow>

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

TEST(Ospite, IconaDelProgrammaAncheSenzaTema) {
    const QIcon icona = krt::IconaProgramma();
    ASSERT_FALSE(icona.isNull());
    for (int lato : {16, 48, 256}) EXPECT_EQ(icona.pixmap(QSize(lato, lato)).size(), QSize(lato, lato)) << lato;
}

}  // namespace
