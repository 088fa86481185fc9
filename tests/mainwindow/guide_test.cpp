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
    QString Percorso(const QString& relativo) const { return radice_.filePath(relativo); }
    QTemporaryDir radice_;
};

TEST_F(Guide, CopiaSoloLaGuidaMancante) {
    const struct {
        const char* caso;
        const char* nellaCartellaDati;  // nullptr: missing; "/": a folder of that name
        const char* nellaPrima;         // the first origin's copy is read-only
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
    for (const auto& c : casi) {
        SCOPED_TRACE(c.caso);
        const QString base = Percorso(QLatin1String(c.caso)), dati = base + QStringLiteral("/dati"),
                      prima = base + QStringLiteral("/prima/KRTGuide.pdf"),
                      guida = dati + QStringLiteral("/KRTGuide.pdf");
        ASSERT_TRUE(QDir().mkpath(dati));
        if (c.nellaCartellaDati && QLatin1String(c.nellaCartellaDati) == QLatin1String("/"))
            ASSERT_TRUE(QDir().mkpath(guida));
        else if (c.nellaCartellaDati)
            Scrivi(guida, c.nellaCartellaDati);
        if (c.nellaPrima) Scrivi(prima, c.nellaPrima);
        QFile::setPermissions(prima, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
        if (c.nellaSeconda) Scrivi(base + QStringLiteral("/seconda/KRTGuide.pdf"), c.nellaSeconda);

        EXPECT_EQ(krt::CopiaGuidaMancante(dati, QStringLiteral("KRTGuide.pdf"), {base + "/prima", base + "/seconda"}),
                  c.esito);
        EXPECT_EQ(QFileInfo(guida).isFile(), c.attesa != nullptr);
        EXPECT_EQ(Leggi(guida), QByteArray(c.attesa));
        if (c.attesa && c.nellaCartellaDati == nullptr) {
            EXPECT_TRUE(QFile::permissions(guida) & QFileDevice::WriteOwner) << "the copy can be replaced";
        }
    }
}

// An installed tree: bin/krt, share/krt, the host's shared data folders ($XDG_DATA_DIRS),
// and the build tree's docs beside bin, last.
TEST_F(Guide, CartelleCercateDaDoveSiTrovaIlProgramma) {
    qputenv("XDG_DATA_DIRS", Percorso(QStringLiteral("xdg")).toLocal8Bit());  // the runner's own folder otherwise
    ASSERT_TRUE(QDir().mkpath(Percorso(QStringLiteral("xdg/krt"))));          // listed when it exists
    QStringList cartelle = krt::CartelleGuideInstallate(Percorso(QStringLiteral("prefisso/bin")));
    ASSERT_GE(cartelle.size(), 5);
    EXPECT_EQ(cartelle[0], Percorso(QStringLiteral("prefisso/bin")));
    EXPECT_EQ(cartelle[1], Percorso(QStringLiteral("prefisso/share/krt")));
    EXPECT_EQ(cartelle[2], Percorso(QStringLiteral("prefisso/Resources")));
    EXPECT_TRUE(cartelle.contains(Percorso(QStringLiteral("xdg/krt"))));
    EXPECT_EQ(cartelle.back(), Percorso(QStringLiteral("prefisso/docs")));
    EXPECT_EQ(cartelle.removeDuplicates(), 0);
}

TEST_F(Guide, PrimoAvvioCopiaEntrambeLeGuide) {
    // English only under share/krt, Italian only in the build tree.
    Scrivi(Percorso(QStringLiteral("prefisso/share/krt/KRTGuide.pdf")), "en installed");
    Scrivi(Percorso(QStringLiteral("prefisso/docs/KRTGuide.pdf")), "en build");
    Scrivi(Percorso(QStringLiteral("prefisso/docs/KRTGuide_ita.pdf")), "it build");
    ASSERT_TRUE(QDir().mkpath(Percorso(QStringLiteral("dati"))));
    const QStringList origini = krt::CartelleGuideInstallate(Percorso(QStringLiteral("prefisso/bin")));
    krt::InstallaGuide(Percorso(QStringLiteral("dati")), origini);
    EXPECT_EQ(Leggi(Percorso(QStringLiteral("dati/KRTGuide.pdf"))), "en installed");
    EXPECT_EQ(Leggi(Percorso(QStringLiteral("dati/KRTGuide_ita.pdf"))), "it build");
    krt::InstallaGuide(QString(), origini);  // no data folder: nothing, no fault
}

}  // namespace
