#include "mainwindow/configurazione.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "support/stringhe.h"

namespace {

using krt::Configurazione;

QByteArray Leggi(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ScriviFile(const QString& percorso, const QByteArray& dati) {
    QFile file(percorso);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(dati), dati.size());
}

class FileConfigurazione : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(cartella_.isValid());
        krt::ImpostaAvvisoCartellaDati({});
        krt::ImpostaCartellaDati(cartella_.path());
        file_ = cartella_.filePath(QStringLiteral("KRT.CFG"));
    }
    void TearDown() override { krt::ImpostaAvvisoCartellaDati({}); }

    static Configurazione Modificata() {
        Configurazione c;
        krt::ApplicaPredefiniti(c, "Normal");
        c.NomeFontHRC.Imposta("DejaVu Sans");
        c.Dimensione = 72;
        c.Simbologia.Imposta("Code 128");
        c.CheckDigitInHRC = krt::kVero;
        return c;
    }

    QTemporaryDir cartella_;
    QString file_;
};

TEST_F(FileConfigurazione, PredefinitiSeIlFileMancaOEVuotoOIlleggibile) {
    struct Caso {
        const char* nome;
        std::function<void(const QString&)> prepara;
    };
    const Caso casi[] = {
        {"missing", [](const QString&) {}},
        {"empty", [](const QString& f) { ScriviFile(f, {}); }},
        {"a folder", [](const QString& f) { QDir().mkpath(f); }},
    };
    for (const auto& c : casi) {
        QFile::remove(file_);
        QDir(file_).removeRecursively();
        c.prepara(file_);
        Configurazione letta = Modificata();
        EXPECT_FALSE(krt::CaricaConfigurazione(letta)) << c.nome;
        EXPECT_EQ(letta.NomeFontHRC.Rifilato(), "Courier") << c.nome;
        EXPECT_EQ(letta.DimensioneHRC, 10) << c.nome;
        EXPECT_EQ(letta.Dimensione, 100) << c.nome;
        EXPECT_EQ(letta.Stile.Rifilato(), "Normal") << c.nome;
        EXPECT_EQ(letta.CheckDigitInHRC, krt::kVero) << c.nome;  // left as it was
    }
}

TEST_F(FileConfigurazione, LoStileNormaleSegueLaLingua) {
    krt::ImpostaOffsetLingua(krt::kOffsetItaliano);
    Configurazione letta;
    krt::CaricaConfigurazione(letta);
    krt::ImpostaOffsetLingua(krt::kOffsetInglese);
    EXPECT_EQ(letta.Stile.Rifilato(), "Normale");
}

TEST_F(FileConfigurazione, SalvaERileggi) {
    ASSERT_TRUE(krt::SalvaConfigurazione(Modificata()));
    EXPECT_EQ(Leggi(file_).size(), 240);
    Configurazione letta;
    ASSERT_TRUE(krt::CaricaConfigurazione(letta));
    EXPECT_EQ(letta, Modificata());
}

TEST_F(FileConfigurazione, FileCortoDaiPredefinitiPerIlResto) {
    ASSERT_TRUE(krt::SalvaConfigurazione(Modificata()));
    ScriviFile(file_, Leggi(file_).left(150));
    Configurazione letta;
    ASSERT_TRUE(krt::CaricaConfigurazione(letta));
    EXPECT_EQ(letta.NomeFontHRC.Rifilato(), "DejaVu Sans");
    EXPECT_EQ(letta.Dimensione, 100);
    EXPECT_EQ(letta.Simbologia.Rifilato(), "");
}

TEST_F(FileConfigurazione, IByteOltreIlRecordRestano) {
    QByteArray lungo(300, '\x5A');
    ScriviFile(file_, lungo);
    ASSERT_TRUE(krt::SalvaConfigurazione(Modificata()));
    const QByteArray dopo = Leggi(file_);
    ASSERT_EQ(dopo.size(), 300);
    EXPECT_EQ(dopo.mid(240), lungo.mid(240));
    const auto record = krt::ScriviRecordConfigurazione(Modificata());
    EXPECT_EQ(dopo.left(240), QByteArray(reinterpret_cast<const char*>(record.data()), 240));
}

TEST_F(FileConfigurazione, CartellaInutilizzabileAvvisaUnaVolta) {
    const QString fileAlPosto = cartella_.filePath(QStringLiteral("non-una-cartella"));
    ScriviFile(fileAlPosto, "x");
    QStringList avvisi;
    krt::ImpostaAvvisoCartellaDati([&](const QString& m) { avvisi << m; });
    krt::ImpostaCartellaDati(fileAlPosto);
    Configurazione c;
    EXPECT_FALSE(krt::CaricaConfigurazione(c));
    EXPECT_EQ(c.Dimensione, 100);
    EXPECT_FALSE(krt::SalvaConfigurazione(c));
    EXPECT_FALSE(krt::SalvaConfigurazione(c));
    ASSERT_EQ(avvisi.size(), 1);
    EXPECT_TRUE(avvisi[0].contains(QDir::toNativeSeparators(fileAlPosto)));
    EXPECT_TRUE(avvisi[0].startsWith(QStringLiteral("Unable to write")));

    // A notice asked for after the trouble is given at once, and only once.
    QStringList tardivi;
    krt::ImpostaAvvisoCartellaDati({});
    krt::ImpostaCartellaDati(fileAlPosto);
    krt::ImpostaAvvisoCartellaDati([&](const QString& m) { tardivi << m; });
    krt::SalvaConfigurazione(c);
    EXPECT_EQ(tardivi.size(), 1);
}

TEST_F(FileConfigurazione, UnaCartellaNuovaVieneCreata) {
    const QString nuova = cartella_.filePath(QStringLiteral("a/b"));
    krt::ImpostaCartellaDati(nuova);
    EXPECT_TRUE(QFileInfo(nuova).isDir());
    EXPECT_TRUE(krt::SalvaConfigurazione(Modificata()));
    EXPECT_TRUE(krt::IsFile(nuova + QStringLiteral("/KRT.CFG")));
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
TEST(CartellaDati, DatiComuniPoiORBPoiNomeDelProgramma) {
    QTemporaryDir radice;
    ASSERT_TRUE(radice.isValid());
    const QByteArray vecchio = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", radice.path().toLocal8Bit());
    bool creata = false;
    const QString cartella = krt::DeterminaCartellaDati(&creata);
    if (vecchio.isEmpty()) qunsetenv("XDG_DATA_HOME");
    else qputenv("XDG_DATA_HOME", vecchio);
    EXPECT_TRUE(creata);
    EXPECT_EQ(cartella, radice.path() + QStringLiteral("/ORB/") +
                            QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName());
    EXPECT_TRUE(QFileInfo(cartella).isDir());
}
#endif

struct Unione {
    QString cartella, nome, atteso;
};

TEST(UnisciPercorsoNome, UnSoloSeparatoreESpaziTolti) {
    const QString s = QDir::separator();
    const Unione casi[] = {
        {QStringLiteral("dati"), QStringLiteral("KRT.CFG"), QStringLiteral("dati") + s + QStringLiteral("KRT.CFG")},
        {QStringLiteral("dati") + s, QStringLiteral("KRT.CFG"), QStringLiteral("dati") + s + QStringLiteral("KRT.CFG")},
        {QStringLiteral("dati/"), QStringLiteral("KRT.CFG"), QStringLiteral("dati/KRT.CFG")},
        {QStringLiteral("  dati"), QStringLiteral("x  "), QStringLiteral("dati") + s + QStringLiteral("x")},
        {QString(), QStringLiteral("x"), s + QStringLiteral("x")},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::UnisciPercorsoNome(c.cartella, c.nome), c.atteso) << c.cartella.toStdString() << " + " << c.nome.toStdString();
}

TEST(IsFile, SoloFileEsistenti) {
    QTemporaryDir cartella;
    ASSERT_TRUE(cartella.isValid());
    const QString file = cartella.filePath(QStringLiteral("ITALIANO.LNG"));
    ScriviFile(file, {});
    EXPECT_TRUE(krt::IsFile(file));
    EXPECT_FALSE(krt::IsFile(cartella.path()));
    EXPECT_FALSE(krt::IsFile(cartella.filePath(QStringLiteral("manca"))));
    EXPECT_FALSE(krt::IsFile(QString()));
}

}  // namespace
