#include "mainwindow/guide.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray Leggi(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Scrivi(const QString& percorso, const QByteArray& dati) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(percorso).absolutePath()));
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(dati), dati.size());
}

// Each test in a tree of its own (the runner moves the host's data folders away, so a package
// installed on the machine does not take part).
class Guide : public ::testing::Test {
protected:
    QString Percorso(const char* relativo) const { return radice_.filePath(QLatin1String(relativo)); }
    QTemporaryDir radice_;
};

TEST_F(Guide, CopiaSoloLaGuidaMancante) {
    const struct {
        const char* caso;
        const char* nellaCartellaDati;  // nullptr: missing; "/": a folder of that name
        const char* nellaPrima;
        const char* nellaSeconda;
        bool esito;
        const char* attesa;  // content in the data folder afterwards, nullptr: no file
    } casi[] = {
        {"missing, first origin wins", nullptr, "installed", "build", true, "installed"},
        {"missing, found in the second origin", nullptr, nullptr, "build", true, "build"},
        {"the user's guide is never replaced", "mine", "installed", "build", true, "mine"},
        {"an empty guide of the user's stays too", "", "installed", nullptr, true, ""},
        {"installed nowhere", nullptr, nullptr, nullptr, false, nullptr},
        {"a folder in the way", "/", "installed", nullptr, false, nullptr},
    };
    int n = 0;
    for (const auto& c : casi) {
        SCOPED_TRACE(c.caso);
        const QString base = Percorso("caso") + QString::number(++n);
        const QString dati = base + QStringLiteral("/dati"), prima = base + QStringLiteral("/prima"),
                      seconda = base + QStringLiteral("/seconda");
        ASSERT_TRUE(QDir().mkpath(dati));
        const QString guida = dati + QStringLiteral("/KRTGuide.pdf");
        if (c.nellaCartellaDati && QLatin1String(c.nellaCartellaDati) == QLatin1String("/"))
            ASSERT_TRUE(QDir().mkpath(guida));
        else if (c.nellaCartellaDati)
            Scrivi(guida, c.nellaCartellaDati);
        if (c.nellaPrima) Scrivi(prima + QStringLiteral("/KRTGuide.pdf"), c.nellaPrima);
        if (c.nellaSeconda) Scrivi(seconda + QStringLiteral("/KRTGuide.pdf"), c.nellaSeconda);

        EXPECT_EQ(krt::CopiaGuidaMancante(dati, QStringLiteral("KRTGuide.pdf"), {prima, seconda}), c.esito);
        if (c.attesa) {
            EXPECT_TRUE(QFileInfo(guida).isFile());
            EXPECT_EQ(Leggi(guida), QByteArray(c.attesa));
        } else {
            EXPECT_FALSE(QFileInfo(guida).isFile());
        }
    }
}

TEST_F(Guide, LaCopiaDiUnaGuidaDiSolaLetturaSiPuoSostituire) {
    const QString origine = Percorso("share/krt/KRTGuide_ita.pdf");
    Scrivi(origine, "guida");
    ASSERT_TRUE(QFile::setPermissions(origine, QFileDevice::ReadOwner | QFileDevice::ReadGroup));
    ASSERT_TRUE(QDir().mkpath(Percorso("dati")));
    ASSERT_TRUE(krt::CopiaGuidaMancante(Percorso("dati"), QStringLiteral("KRTGuide_ita.pdf"), {Percorso("share/krt")}));
    EXPECT_TRUE(QFile::permissions(Percorso("dati/KRTGuide_ita.pdf")) & QFileDevice::WriteOwner);
}

// An installed tree: bin/krt, share/krt, and the build tree's docs beside bin.
TEST_F(Guide, CartelleCercateDaDoveSiTrovaIlProgramma) {
    QStringList cartelle = krt::CartelleGuideInstallate(Percorso("prefisso/bin"));
    ASSERT_GE(cartelle.size(), 4);
    EXPECT_EQ(cartelle[0], Percorso("prefisso/bin"));
    EXPECT_EQ(cartelle[1], Percorso("prefisso/share/krt"));
    EXPECT_EQ(cartelle[2], Percorso("prefisso/Resources"));
    EXPECT_EQ(cartelle.back(), Percorso("prefisso/docs")) << "the build tree comes last";
    EXPECT_EQ(cartelle.removeDuplicates(), 0);
}

TEST_F(Guide, PrimoAvvioCopiaEntrambeLeGuide) {
    // English only under share/krt, Italian only in the build tree.
    Scrivi(Percorso("prefisso/share/krt/KRTGuide.pdf"), "en installed");
    Scrivi(Percorso("prefisso/docs/KRTGuide.pdf"), "en build");
    Scrivi(Percorso("prefisso/docs/KRTGuide_ita.pdf"), "it build");
    ASSERT_TRUE(QDir().mkpath(Percorso("dati")));

    krt::InstallaGuide(Percorso("dati"), krt::CartelleGuideInstallate(Percorso("prefisso/bin")));
    EXPECT_EQ(Leggi(Percorso("dati/KRTGuide.pdf")), "en installed");
    EXPECT_EQ(Leggi(Percorso("dati/KRTGuide_ita.pdf")), "it build");

    // The next start finds both and replaces neither.
    Scrivi(Percorso("dati/KRTGuide_ita.pdf"), "edited");
    krt::InstallaGuide(Percorso("dati"), krt::CartelleGuideInstallate(Percorso("prefisso/bin")));
    EXPECT_EQ(Leggi(Percorso("dati/KRTGuide_ita.pdf")), "edited");

    krt::InstallaGuide(QString(), {Percorso("prefisso/docs")});  // no data folder: nothing, no fault
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
// /usr/share/krt and /usr/local/share/krt come from $XDG_DATA_DIRS.
TEST_F(Guide, GuideDelleCartelleCondiviseDelSistema) {
    qputenv("XDG_DATA_DIRS", Percorso("xdg").toLocal8Bit());  // the runner's own folder otherwise
    Scrivi(Percorso("xdg/krt/KRTGuide.pdf"), "system");
    const QStringList cartelle = krt::CartelleGuideInstallate(Percorso("altrove/bin"));
    EXPECT_TRUE(cartelle.contains(Percorso("xdg/krt"))) << cartelle.join(QLatin1Char(' ')).toStdString();
    ASSERT_TRUE(QDir().mkpath(Percorso("dati")));
    EXPECT_TRUE(krt::CopiaGuidaMancante(Percorso("dati"), QStringLiteral("KRTGuide.pdf"), cartelle));
    EXPECT_EQ(Leggi(Percorso("dati/KRTGuide.pdf")), "system");
}
#endif

}  // namespace
