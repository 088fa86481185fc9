#include "mainwindow/guide.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/mainwindow/file_prova.h"

namespace {

using krt::prova::LeggiFile;
using krt::prova::ScriviFile;

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
            ScriviFile(guida, c.nellaCartellaDati);
        if (c.nellaPrima) ScriviFile(prima, c.nellaPrima);
        QFile::setPermissions(prima, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
        if (c.nellaSeconda) ScriviFile(base + QStringLiteral("/seconda/KRTGuide.pdf"), c.nellaSeconda);

        EXPECT_EQ(krt::CopiaGuidaMancante(dati, QStringLiteral("KRTGuide.pdf"), {base + "/prima", base + "/seconda"}),
                  c.esito);
        EXPECT_EQ(QFileInfo(guida).isFile(), c.attesa != nullptr);
        EXPECT_EQ(LeggiFile(guida), QByteArray(c.attesa));
        if (c.attesa && c.nellaCartellaDati == nullptr) {
            EXPECT_TRUE(QFile::permissions(guida) & QFileDevice::WriteOwner) << "the copy can be replaced";
        }
    }
}

// An installed tree: bin/krt, share/krt, the host's shared data folders ($XDG_DATA_DIRS), and
// the build tree's docs beside bin, last. Each guide comes from the first folder that has it.
TEST_F(Guide, PrimoAvvioCopiaEntrambeLeGuide) {
    qputenv("XDG_DATA_DIRS", Percorso(QStringLiteral("xdg")).toLocal8Bit());  // the runner's own folder otherwise
    ScriviFile(Percorso(QStringLiteral("prefisso/share/krt/KRTGuide.pdf")), "en installed");
    ScriviFile(Percorso(QStringLiteral("xdg/krt/KRTGuide_ita.pdf")), "it shared");
    for (const char* guida : {"KRTGuide.pdf", "KRTGuide_ita.pdf"})
        ScriviFile(Percorso(QStringLiteral("prefisso/docs/")) + QLatin1String(guida), "build");
    ASSERT_TRUE(QDir().mkpath(Percorso(QStringLiteral("dati"))));
    const QStringList origini = krt::CartelleGuideInstallate(Percorso(QStringLiteral("prefisso/bin")));
    EXPECT_EQ(origini.value(0), Percorso(QStringLiteral("prefisso/bin")));
    EXPECT_EQ(origini.back(), Percorso(QStringLiteral("prefisso/docs")));
    krt::InstallaGuide(Percorso(QStringLiteral("dati")), origini);
    EXPECT_EQ(LeggiFile(Percorso(QStringLiteral("dati/KRTGuide.pdf"))), "en installed");
    EXPECT_EQ(LeggiFile(Percorso(QStringLiteral("dati/KRTGuide_ita.pdf"))), "it shared");
    krt::InstallaGuide(QString(), origini);  // no data folder: nothing, no fault
}

}  // namespace
