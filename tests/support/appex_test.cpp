#include "support/appex.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

using krt::AppEx;
using krt::ErroreAppEx;
using krt::VersioneSO;

VersioneSO VersioneWindows(std::uint32_t maggiore, std::uint32_t minore) {
    VersioneSO v;
    v.maggiore = maggiore;
    v.minore = minore;
    v.build = 2600;
    v.piattaforma = krt::kPiattaformaWindowsNT;
    v.servicePack = QStringLiteral("Service Pack 3") + QChar(0) + QStringLiteral("garbage");
    v.servicePackMaggiore = 3;
    v.tipoProdotto = 1;
    return v;
}

TEST(AppExOSVersion, OgniInfo) {
    const AppEx app(VersioneWindows(5, 1));
    const struct {
        int id;
        QVariant atteso;
    } casi[] = {
        {0, QVariant::fromValue(2600u)},
        {1, false},
        {3, QVariant::fromValue(2u)},
        {4, QVariant::fromValue(1u)},
        {5, QStringLiteral("Service Pack 3")},
        {6, 3.0f},
        {7, 5.1f},
        {8, true},
        {9, QVariant()},
        {-1, QVariant()},
    };
    for (const auto& c : casi) EXPECT_EQ(app.OSVersion(c.id), c.atteso) << "info " << c.id;
}

TEST(AppExOSVersion, ErroreDellaInterrogazione) {
    const AppEx app(VersioneWindows(5, 1), 87);
    for (int info : {0, 7, 9}) {
        try {
            app.OSVersion(info);
            ADD_FAILURE() << "no error for info " << info;
        } catch (const ErroreAppEx& e) {
            EXPECT_EQ(e.Numero(), 0x8004B106u);
            EXPECT_EQ(e.Sorgente(), QStringLiteral("AppEx.OSVersion"));
            EXPECT_EQ(e.Descrizione(), QStringLiteral("System error retrieving information 87"));
        }
    }
}

TEST(AppExHost, FattiDelSistema) {
    const AppEx app;
    EXPECT_FALSE(app.IDEMode());
    EXPECT_GT(app.OSVersion(7).toFloat(), 0.0f);
    EXPECT_FALSE(app.ComputerName().isEmpty());
    EXPECT_FALSE(app.UserName().isEmpty());
    QTemporaryDir cartella;
    ASSERT_TRUE(cartella.isValid());
    QFile file(cartella.filePath(QStringLiteral("x.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_TRUE(app.FSPresent(cartella.path()));
    EXPECT_TRUE(app.FSPresent(file.fileName()));
    EXPECT_FALSE(app.FSPresent(cartella.filePath(QStringLiteral("manca"))));
    EXPECT_FALSE(app.FSPresent(QString()));
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

// Special folders on Linux, with the data locations moved into a temporary folder.
class AppExCartelle : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(radice_.isValid());
        vecchioXdg_ = qgetenv("XDG_DATA_HOME");
        dati_ = radice_.filePath(QStringLiteral("dati"));
        qputenv("XDG_DATA_HOME", dati_.toLocal8Bit());
    }
    void TearDown() override {
        if (vecchioXdg_.isEmpty()) qunsetenv("XDG_DATA_HOME");
        else qputenv("XDG_DATA_HOME", vecchioXdg_);
    }
    QTemporaryDir radice_;
    QByteArray vecchioXdg_;
    QString dati_;
};

TEST_F(AppExCartelle, EsitiMappatiSugliErrori) {
    const struct {
        const char* nome;
        int id;
        const char* subDir;  // nullptr: Path
        bool crea;
        std::uint32_t errore;  // 0: answered
        const char* descrizione;
    } casi[] = {
        {"missing, not created", 35, nullptr, false, 0x8004B112, "Valid PathId but folder doesn't exist"},
        {"Windows folder", 0x24, nullptr, true, 0x8004B112, "Valid PathId but folder doesn't exist"},
        {"unknown id", 0x7F, nullptr, true, 0x8004B114, "Invalid PathId for requested function"},
        {"negative id", -1, nullptr, false, 0x8004B114, "Invalid PathId for requested function"},
        {"created", 35, nullptr, true, 0, nullptr},
        {"sub-folder missing", 35, "ORB/nuovo", false, 0x8004B122, "Valid PathId but folder doesn't exist"},
        {"sub-folder, unknown id", 0x7F, "ORB", true, 0x8004B124, "Invalid PathId for requested function"},
        {"absolute sub-folder", 35, "/etc", true, 0x8004B124, "Invalid PathId for requested function"},
        {"sub-folder created", 35, "ORB/krt", true, 0, nullptr},
        {"existing, not created", 35, nullptr, false, 0, nullptr},
        {"sub-folder under a file", 35, "ORB/krt/file.txt/sotto", true, 0x8004B126, "System error -2147024891"},
    };
    const AppEx app;
    for (const auto& c : casi) {
        if (std::string_view(c.nome) == "sub-folder under a file") {
            QFile file(dati_ + QStringLiteral("/ORB/krt/file.txt"));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        try {
            const QString percorso = c.subDir ? app.PathAndSubDir(c.id, QString::fromUtf8(c.subDir), c.crea, 0)
                                              : app.Path(c.id, c.crea, 0);
            EXPECT_EQ(c.errore, 0u) << c.nome << ": answered " << percorso.toStdString();
            const QString atteso = c.subDir ? dati_ + QLatin1Char('/') + QString::fromUtf8(c.subDir) : dati_;
            EXPECT_EQ(percorso, QDir::toNativeSeparators(atteso)) << c.nome;
            EXPECT_TRUE(QFileInfo(percorso).isDir()) << c.nome;
        } catch (const ErroreAppEx& e) {
            EXPECT_EQ(e.Numero(), c.errore) << c.nome;
            EXPECT_EQ(e.Sorgente(), QString::fromLatin1(c.subDir ? "AppEx.PathAndSubDir" : "AppEx.Path")) << c.nome;
            EXPECT_EQ(e.Descrizione(), QString::fromUtf8(c.descrizione ? c.descrizione : "")) << c.nome;
        }
    }
}

#endif

TEST(AppExPathAndSubDir, RichiedeWindowsXP) {
    const struct {
        std::uint32_t piattaforma, maggiore, minore;
        bool rifiutata;
    } casi[] = {
        {krt::kPiattaformaWindowsNT, 5, 0, true},
        {krt::kPiattaformaWindowsNT, 5, 1, false},
        {krt::kPiattaformaWindowsNT, 10, 0, false},
        {krt::kPiattaformaAltroSO, 4, 19, false},  // a Linux kernel: not a Windows question
    };
    for (const auto& c : casi) {
        VersioneSO v = VersioneWindows(c.maggiore, c.minore);
        v.piattaforma = c.piattaforma;
        try {
            // An invalid id proves that the version check let the query through.
            AppEx(v).PathAndSubDir(0x7F, QStringLiteral("ORB"), false, 0);
            ADD_FAILURE() << c.maggiore << "." << c.minore << ": no error";
        } catch (const ErroreAppEx& e) {
            EXPECT_EQ(e.Numero(), c.rifiutata ? 0x8004B120u : 0x8004B124u) << c.maggiore << "." << c.minore;
            if (c.rifiutata) {
                EXPECT_EQ(e.Descrizione(), QStringLiteral("Requires Windows XP or later"));
            }
        }
    }
}

}  // namespace
