#include "mainwindow/configurazione.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstring>

#include "support/stringhe.h"
#include "tests/mainwindow/file_prova.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#endif

namespace {

using krt::Configurazione;
using krt::prova::LeggiFile;
using krt::prova::ScriviFile;

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
    static QByteArray Record() {
        const auto record = krt::ScriviRecordConfigurazione(Modificata());
        return QByteArray(reinterpret_cast<const char*>(record.data()), 240);
    }

    QTemporaryDir cartella_;
    QString file_;
};

#ifdef Q_OS_UNIX
// What may be found at KRT.CFG, and a save that cannot write every byte (a full disk, here a file
// size limit). Only a regular file with bytes is read, else the defaults ("Normal" in the language);
// a save keeps the bytes past the record, replaces a link or a FIFO with a regular file and never
// writes through a link; a save cut short leaves the old file as it was, or no file, and nothing
// behind. (The record itself: the cycle's tests.)
TEST_F(FileConfigurazione, CaricaESalva) {
    const QString vittima = cartella_.filePath(QStringLiteral("altro.txt"));
    const QString assente = cartella_.filePath(QStringLiteral("assente"));
    const QByteArray altro(300, 'V'), vecchio = QByteArray(240, 'A') + QByteArray(60, 'Z');
    const auto vecchioFile = [&] { ScriviFile(file_, vecchio); };
    const struct {
        const char* nome;
        std::function<void()> prepara;
        bool letto;
        rlim_t limite;    // file size limit during the save, 0: none
        QByteArray dopo;  // KRT.CFG after the save, empty: the save fails
    } casi[] = {
        {"missing", [] {}, false, 0, Record()},
        {"missing, in Italian", [] { krt::ImpostaOffsetLingua(krt::kOffsetItaliano); }, false, 0, Record()},
        {"empty", [&] { ScriviFile(file_, {}); }, false, 0, Record()},
        {"a folder", [&] { QDir().mkpath(file_); }, false, 0, {}},
        {"an old file, longer than the record", vecchioFile, true, 0, Record() + vecchio.mid(240)},
        {"link to another file", [&] { QFile::link(vittima, file_); }, false, 0, Record()},
        {"link to nothing", [&] { QFile::link(assente, file_); }, false, 0, Record()},
        {"FIFO", [&] { ASSERT_EQ(mkfifo(QFile::encodeName(file_).constData(), 0600), 0); }, false, 0, Record()},
        {"disk full over an old file", vecchioFile, true, 100, {}},
        {"disk full at the first save", [] {}, false, 100, {}},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        QFile::remove(file_);
        QDir(file_).removeRecursively();
        ScriviFile(vittima, altro);
        c.prepara();
        Configurazione letta = Modificata();
        EXPECT_EQ(krt::CaricaConfigurazione(letta), c.letto);
        krt::ImpostaOffsetLingua(krt::kOffsetInglese);
        if (!c.letto) {
            EXPECT_EQ(letta.NomeFontHRC.Rifilato() + " " + std::to_string(letta.Dimensione), "Courier 100");
            EXPECT_EQ(letta.Stile.Rifilato(), std::strstr(c.nome, "Italian") ? "Normale" : "Normal");
            EXPECT_EQ(letta.CheckDigitInHRC, krt::kVero);  // left as it was
        }
        rlimit prima{};
        ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &prima), 0);
        rlimit stretto = prima;
        if (c.limite) stretto.rlim_cur = c.limite;
        const auto segnale = std::signal(SIGXFSZ, SIG_IGN);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &stretto), 0);
        const bool salvato = krt::SalvaConfigurazione(Modificata());
        setrlimit(RLIMIT_FSIZE, &prima);
        std::signal(SIGXFSZ, segnale);
        EXPECT_EQ(salvato, !c.dopo.isEmpty());
        EXPECT_EQ(LeggiFile(file_), salvato || !c.letto ? c.dopo : vecchio);
        Configurazione riletta;
        EXPECT_EQ(krt::CaricaConfigurazione(riletta) && riletta == Modificata(), salvato) << "read back";
        EXPECT_EQ(LeggiFile(vittima), altro);
        EXPECT_FALSE(QFileInfo::exists(assente));
        EXPECT_FALSE(QFileInfo(file_).isSymLink());
        EXPECT_EQ(QDir(cartella_.path()).entryList(QDir::Files | QDir::System).size(), salvato || c.letto ? 2 : 1);
    }
}
#endif

// The options of a folder that all users shared are carried into the user's own folder
// once: never over a KRT.CFG the user already has, never from anything but a regular file.
TEST(CartellaDati, OpzioniCondivisePortateUnaVolta) {
    QTemporaryDir radice;
    const QString condivisa = radice.filePath(QStringLiteral("comune")),
                  utente = radice.filePath(QStringLiteral("utente"));
    const QByteArray opzioni = QByteArray(240, 'O') + "coda";
    const struct {
        const char* nome;
        QByteArray giaDellUtente;  // empty: none
        bool link;                 // the shared KRT.CFG is a link to a good file
    } casi[] = {
        {"carried with the language marker", {}, false},
        {"the user's own file wins", "mio", false},
        {"a link is not followed", {}, true},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        QDir(condivisa).removeRecursively();
        QDir(utente).removeRecursively();
        QDir().mkpath(utente);
        ScriviFile(radice.filePath(QStringLiteral("buono")), opzioni);
        if (c.link)
            QFile::link(radice.filePath(QStringLiteral("buono")), condivisa + QStringLiteral("/KRT.CFG"));
        else
            ScriviFile(condivisa + QStringLiteral("/KRT.CFG"), opzioni);
        ScriviFile(condivisa + QStringLiteral("/ITALIANO.LNG"), {});
        if (!c.giaDellUtente.isEmpty()) ScriviFile(utente + QStringLiteral("/KRT.CFG"), c.giaDellUtente);
        const bool portate = c.giaDellUtente.isEmpty() && !c.link;
        EXPECT_EQ(krt::PortaOpzioniCondivise(condivisa, utente), portate);
        EXPECT_EQ(LeggiFile(utente + QStringLiteral("/KRT.CFG")), portate ? opzioni : c.giaDellUtente);
        EXPECT_EQ(QFileInfo::exists(utente + QStringLiteral("/ITALIANO.LNG")), portate);
        EXPECT_FALSE(krt::PortaOpzioniCondivise(condivisa, utente)) << "only once";
    }
    EXPECT_FALSE(krt::PortaOpzioniCondivise(utente, utente + QStringLiteral("/")));
}

// A folder that cannot be used is said once, also to a notice asked for later; a new
// folder is created, without the blanks around the name given.
TEST_F(FileConfigurazione, CartellaDatiInutilizzabileONuova) {
    const QString fileAlPosto = cartella_.filePath(QStringLiteral("non-una-cartella"));
    ScriviFile(fileAlPosto, "x");
    QStringList avvisi;
    krt::ImpostaAvvisoCartellaDati([&](const QString& m) { avvisi << m; });
    krt::ImpostaCartellaDati(fileAlPosto);
    Configurazione c;
    EXPECT_FALSE(krt::CaricaConfigurazione(c));
    EXPECT_FALSE(krt::SalvaConfigurazione(c));
    EXPECT_FALSE(krt::SalvaConfigurazione(c));
    ASSERT_EQ(avvisi.size(), 1);
    EXPECT_TRUE(avvisi[0].startsWith(QStringLiteral("Unable to write")));
    EXPECT_TRUE(avvisi[0].contains(QDir::toNativeSeparators(fileAlPosto)));
    krt::ImpostaAvvisoCartellaDati({});
    krt::ImpostaCartellaDati(fileAlPosto);
    krt::ImpostaAvvisoCartellaDati([&](const QString& m) { avvisi << m; });
    EXPECT_FALSE(krt::SalvaConfigurazione(c));
    EXPECT_EQ(avvisi.size(), 2) << "a notice asked for later is given at once, and once";

    const QString nuova = cartella_.filePath(QStringLiteral("a/b"));
    krt::ImpostaCartellaDati(QStringLiteral("  ") + nuova + QStringLiteral(" "));
    EXPECT_TRUE(krt::SalvaConfigurazione(Modificata()));
    EXPECT_TRUE(krt::IsFile(nuova + QStringLiteral("/KRT.CFG")));
    EXPECT_EQ(avvisi.size(), 2);
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
TEST(CartellaDati, DatiComuniPoiORBPoiNomeDelProgramma) {
    QTemporaryDir radice;
    const QByteArray vecchio = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", radice.path().toLocal8Bit());
    bool creata = false;
    const QString cartella = krt::DeterminaCartellaDati(&creata);
    qputenv("XDG_DATA_HOME", vecchio);
    EXPECT_TRUE(creata);
    EXPECT_EQ(cartella, radice.path() + QStringLiteral("/ORB/") +
                            QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName());
    EXPECT_TRUE(QFileInfo(cartella).isDir());
}
#endif

TEST(CartellaDati, PercorsiEFile) {
    const QString s = QDir::separator();
    const struct {
        QString cartella, nome, atteso;
    } casi[] = {
        {QStringLiteral("dati"), QStringLiteral("KRT.CFG"), QStringLiteral("dati") + s + QStringLiteral("KRT.CFG")},
        {QStringLiteral("dati/"), QStringLiteral("x"), QStringLiteral("dati/x")},
        {QStringLiteral("  dati"), QStringLiteral("x  "), QStringLiteral("  dati") + s + QStringLiteral("x  ")},
        {QString(), QStringLiteral("x"), s + QStringLiteral("x")},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::UnisciPercorsoNome(c.cartella, c.nome), c.atteso) << c.atteso.toStdString();
    // Only an existing file is a file.
    QTemporaryDir cartella;
    ScriviFile(cartella.filePath(QStringLiteral("ITALIANO.LNG")), {});
    EXPECT_TRUE(krt::IsFile(cartella.filePath(QStringLiteral("ITALIANO.LNG"))));
    for (const QString& altro : {cartella.path(), cartella.filePath(QStringLiteral("manca")), QString()})
        EXPECT_FALSE(krt::IsFile(altro)) << altro.toStdString();
}

}  // namespace
