#include "support/appex.h"

#include <gtest/gtest.h>

#include <optional>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QVersionNumber>

namespace {

using krt::AppEx;
using krt::ErroreAppEx;
using krt::VersioneSO;

VersioneSO VersioneWindows(std::uint32_t maggiore, std::uint32_t minore,
                           std::uint32_t piattaforma = krt::kPiattaformaWindowsNT) {
    return {.maggiore = maggiore, .minore = minore, .build = 2600, .piattaforma = piattaforma,
            .servicePack = QStringLiteral("Service Pack 3") + QChar(0) + QStringLiteral("garbage"),
            .servicePackMaggiore = 3, .tipoProdotto = 1};
}

// The fault a call raises; nullopt when it answers.
template <typename F>
std::optional<ErroreAppEx> Errore(F chiamata) {
    try {
        chiamata();
    } catch (const ErroreAppEx& e) {
        return e;
    }
    return std::nullopt;
}

TEST(AppExOSVersion, OgniInfoEErroreDellaInterrogazione) {
    const AppEx app(VersioneWindows(5, 1));
    const struct {
        int id;
        QVariant atteso;
    } casi[] = {{0, QVariant::fromValue(2600u)}, {1, false}, {3, QVariant::fromValue(2u)},
                {4, QVariant::fromValue(1u)}, {5, QStringLiteral("Service Pack 3")}, {6, 3.0f},
                {7, 5.1f}, {8, true}, {9, QVariant()}, {-1, QVariant()}};
    for (const auto& c : casi) EXPECT_EQ(app.OSVersion(c.id), c.atteso) << "info " << c.id;
    const AppEx bitAlti(VersioneWindows(5, 1, (1u << 9) | (1u << 15)));
    EXPECT_TRUE(bitAlti.OSVersion(1).toBool() && bitAlti.OSVersion(2).toBool());
    for (int info : {0, 7, 9}) {
        const auto e = Errore([&] { AppEx(VersioneWindows(5, 1), 87).OSVersion(info); });
        ASSERT_TRUE(e) << "info " << info;
        EXPECT_EQ(e->Numero(), 0x8004B106u);
        EXPECT_EQ(e->Sorgente(), QStringLiteral("AppEx.OSVersion"));
        EXPECT_EQ(e->Descrizione(), QStringLiteral("System error retrieving information 87"));
    }
}

// The host's own facts: its version is the kernel's (6.1.0-13-amd64 gives 6.1, build 0).
TEST(AppExHost, FattiDelSistema) {
    const AppEx app;
    EXPECT_FALSE(app.IDEMode());
#if defined(Q_OS_LINUX)
    const QVersionNumber kernel = QVersionNumber::fromString(QSysInfo::kernelVersion());
    EXPECT_EQ(app.OSVersion(7),
              QStringLiteral("%1.%2").arg(kernel.majorVersion()).arg(kernel.minorVersion()).toFloat());
    EXPECT_EQ(app.OSVersion(0), QVariant::fromValue(static_cast<std::uint32_t>(kernel.microVersion())));
#endif
    EXPECT_GT(app.OSVersion(7).toFloat(), 0.0f);
    EXPECT_FALSE(app.ComputerName().isEmpty());
    EXPECT_FALSE(app.UserName().isEmpty());
    const QString programma = QCoreApplication::applicationFilePath();
    for (const QString& presente : {programma, QFileInfo(programma).path()}) EXPECT_TRUE(app.FSPresent(presente));
    for (const QString& assente : {programma + QStringLiteral("-manca"), QString()})
        EXPECT_FALSE(app.FSPresent(assente));
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

// Special folders on Linux, in order on one data folder (XDG_DATA_HOME) of the test.
TEST(AppExCartelle, EsitiMappatiSugliErrori) {
    QTemporaryDir radice;
    const QString dati = radice.filePath(QStringLiteral("dati"));
    qputenv("XDG_DATA_HOME", dati.toLocal8Bit());
    const char* const inesistente = "Valid PathId but folder doesn't exist";
    const char* const nonValido = "Invalid PathId for requested function";
    const struct {
        const char* nome;
        int id;
        const char* subDir;  // nullptr: Path
        bool crea;
        std::uint32_t errore;  // 0: answered
        const char* descrizione;
    } casi[] = {
        {"missing, not created", 35, nullptr, false, 0x8004B112, inesistente},
        {"Windows folder", 0x24, nullptr, true, 0x8004B112, inesistente},
        {"unknown id", 0x7F, nullptr, true, 0x8004B114, nonValido},
        {"negative id", -1, nullptr, false, 0x8004B114, nonValido},
        {"created", 35, nullptr, true, 0, ""},
        {"sub-folder missing", 35, "ORB/nuovo", false, 0x8004B122, inesistente},
        {"sub-folder, unknown id", 0x7F, "ORB", true, 0x8004B124, nonValido},
        {"absolute sub-folder", 35, "/etc", true, 0x8004B124, nonValido},
        {"sub-folder created", 35, "ORB/krt", true, 0, ""},
        {"existing, not created", 35, nullptr, false, 0, ""},
        {"sub-folder under a file", 35, "ORB/krt/file.txt/sotto", true, 0x8004B126, "System error -2147024891"},
    };
    const AppEx app;
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        if (c.errore == 0x8004B126u) QFile(dati + QStringLiteral("/ORB/krt/file.txt")).open(QIODevice::WriteOnly);
        QString percorso;
        const auto e = Errore([&] {
            percorso =
                c.subDir ? app.PathAndSubDir(c.id, QString::fromUtf8(c.subDir), c.crea, 0) : app.Path(c.id, c.crea, 0);
        });
        EXPECT_EQ(e ? e->Numero() : 0u, c.errore) << "answered " << percorso.toStdString();
        EXPECT_EQ(e ? e->Descrizione() : QString(), QString::fromUtf8(c.descrizione));
        if (e) {
            EXPECT_EQ(e->Sorgente(), QString::fromLatin1(c.subDir ? "AppEx.PathAndSubDir" : "AppEx.Path"));
        } else {
            EXPECT_EQ(percorso, QDir::toNativeSeparators(c.subDir ? dati + '/' + c.subDir : dati));
            EXPECT_TRUE(QFileInfo(percorso).isDir());
        }
    }
}

#endif

// Windows before XP cannot name a sub-folder; an invalid id proves the others got through.
TEST(AppExPathAndSubDir, RichiedeWindowsXP) {
    const struct {
        std::uint32_t piattaforma, maggiore, minore, errore;
    } casi[] = {{krt::kPiattaformaWindowsNT, 5, 0, 0x8004B120},
                {krt::kPiattaformaWindowsNT, 5, 1, 0x8004B124},
                {krt::kPiattaformaWindowsNT, 10, 0, 0x8004B124},
                {krt::kPiattaformaAltroSO, 4, 19, 0x8004B124}};  // a Linux kernel: not a Windows question
    for (const auto& c : casi) {
        const auto e = Errore([&] {
            AppEx(VersioneWindows(c.maggiore, c.minore, c.piattaforma))
                .PathAndSubDir(0x7F, QStringLiteral("ORB"), false, 0);
        });
        EXPECT_EQ(e ? e->Numero() : 0u, c.errore) << c.maggiore << "." << c.minore;
    }
}

}  // namespace
