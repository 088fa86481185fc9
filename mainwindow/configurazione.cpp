#include "mainwindow/configurazione.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "support/appex.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

namespace {

struct StatoCartellaDati {
    bool determinata = false;
    QString percorso;
    bool guasta = false;     // the folder cannot hold the options
    bool avvisata = false;   // the notice has been given
    std::function<void(const QString&)> avviso;
};

StatoCartellaDati& Stato() {
    static StatoCartellaDati stato;
    return stato;
}

void SegnalaGuasto() {
    auto& stato = Stato();
    stato.guasta = true;
    if (stato.avvisata || !stato.avviso) return;
    stato.avvisata = true;
    stato.avviso(CaricaStringa(IdStringa::CartellaNonScrivibile).arg(QDir::toNativeSeparators(stato.percorso)));
}

QString NomeEseguibile() {
    if (QCoreApplication::instance()) {
        const QString nome = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
        if (!nome.isEmpty()) return nome;
    }
    return QStringLiteral("krt");
}

QString TrimSpazi(const QString& testo) {
    qsizetype inizio = 0;
    qsizetype fine = testo.size();
    while (inizio < fine && testo[inizio] == QLatin1Char(' ')) ++inizio;
    while (fine > inizio && testo[fine - 1] == QLatin1Char(' ')) --fine;
    return testo.mid(inizio, fine - inizio);
}

QString PercorsoFile(const QString& cartella) {
    return cartella.isEmpty() ? QString() : UnisciPercorsoNome(cartella, QString::fromLatin1(kNomeFileConfigurazione));
}

// Opens percorso for reading when it is a regular file, not a link: a FIFO would make the
// open wait for a writer, a device could be read for ever, a link leads where it likes.
bool ApriFileRegolare(const QString& percorso, QFile& file) {
    if (percorso.isEmpty()) return false;
#ifdef Q_OS_UNIX
    // Checked on the open descriptor, so nothing can be swapped in between.
    const int descrittore =
        ::open(QFile::encodeName(percorso).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descrittore < 0) return false;
    struct stat info {};
    if (::fstat(descrittore, &info) != 0 || !S_ISREG(info.st_mode) ||
        !file.open(descrittore, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descrittore);
        return false;
    }
    return true;
#else
    const QFileInfo info(percorso);
    if (info.isSymLink() || info.isJunction() || !info.isFile()) return false;
    file.setFileName(percorso);
    return file.open(QIODevice::ReadOnly);
#endif
}

// Replaces percorso with dati through a temporary file in the same folder. A link at
// percorso goes first (QSaveFile would write to its target).
bool SalvaFileIntero(const QString& percorso, const QByteArray& dati) {
    const QFileInfo info(percorso);
    if ((info.isSymLink() || info.isJunction()) && !QFile::remove(percorso)) return false;
    // Unbuffered, so that a short write (a full disk) shows in the count written: a
    // buffered QSaveFile would find it only while closing, and commit regardless.
    QSaveFile file(percorso);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(dati) == dati.size() && file.commit();
}

// The data folder as given by the user: blanks around it go, once, here.
QString CartellaDatiDallUtente(const QString& cartella) { return TrimSpazi(cartella); }

}  // namespace

QString UnisciPercorsoNome(const QString& cartella, const QString& nome) {
    const bool conSeparatore = cartella.endsWith(QLatin1Char('/')) || cartella.endsWith(QDir::separator());
    return conSeparatore ? cartella + nome : cartella + QDir::separator() + nome;
}

bool IsFile(const QString& percorso) {
    if (percorso.isEmpty()) return false;
    const QFileInfo info(percorso);
    return info.exists() && !info.isDir();
}

QString DeterminaCartellaDati(bool* creata) {
    QString cartella = CartellaDatiDallUtente(qEnvironmentVariable("KRT_DATA_DIR"));
    QString condivisa;
    if (cartella.isEmpty()) {
        auto sotto = [](const QString& base) {
            return UnisciPercorsoNome(UnisciPercorsoNome(base, QStringLiteral("ORB")), NomeEseguibile());
        };
        try {
            cartella = sotto(AppEx().Path(kCartellaDatiLocali, true, 0));
        } catch (const ErroreAppEx&) {
            if (creata) *creata = false;
            return {};
        }
        try {
            condivisa = sotto(AppEx().Path(kCartellaDatiComuni, false, 0));
        } catch (const ErroreAppEx&) {
        }
    }
    const bool ok = QDir().mkpath(cartella);
    if (creata) *creata = ok;
    if (ok && !condivisa.isEmpty()) PortaOpzioniCondivise(condivisa, cartella);
    return QDir::toNativeSeparators(cartella);
}

QString CartellaDati() {
    auto& stato = Stato();
    if (!stato.determinata) {
        bool creata = false;
        stato.percorso = DeterminaCartellaDati(&creata);
        stato.determinata = true;
        if (!creata) SegnalaGuasto();
    }
    return stato.percorso;
}

void ImpostaCartellaDati(const QString& cartellaData) {
    const QString cartella = CartellaDatiDallUtente(cartellaData);
    auto& stato = Stato();
    stato.percorso = QDir::toNativeSeparators(cartella);
    stato.determinata = true;
    stato.guasta = false;
    stato.avvisata = false;
    if (cartella.isEmpty() || !QDir().mkpath(cartella)) SegnalaGuasto();
}

void ImpostaAvvisoCartellaDati(std::function<void(const QString& messaggio)> avviso) {
    auto& stato = Stato();
    stato.avviso = std::move(avviso);
    if (stato.guasta) SegnalaGuasto();
}

bool CaricaConfigurazione(Configurazione& configurazione) {
    Configurazione predefinita = configurazione;
    ApplicaPredefiniti(predefinita, AWindows1252Sostituendo(CaricaStringa(278)));
    configurazione = predefinita;
    QFile file;
    if (!ApriFileRegolare(PercorsoFile(CartellaDati()), file)) return false;
    const QByteArray dati = file.read(static_cast<qint64>(kDimensioneRecordConfigurazione));
    if (dati.isEmpty()) return false;
    configurazione = LeggiRecordConfigurazione(
        std::span(reinterpret_cast<const std::uint8_t*>(dati.constData()), static_cast<std::size_t>(dati.size())),
        predefinita);
    return true;
}

bool SalvaConfigurazione(const Configurazione& configurazione) {
    const QString percorso = PercorsoFile(CartellaDati());
    bool scritto = false;
    if (!percorso.isEmpty() && QDir().mkpath(CartellaDati())) {
        // What follows the record in the old file is kept; a file that cannot be read
        // whole is left alone rather than cut.
        QByteArray dati;
        QFile vecchio;
        bool letto = true;
        if (ApriFileRegolare(percorso, vecchio)) {
            dati = vecchio.readAll();
            letto = vecchio.error() == QFileDevice::NoError;
        }
        const auto record = ScriviRecordConfigurazione(configurazione);
        dati.replace(0, std::min<qsizetype>(dati.size(), static_cast<qsizetype>(record.size())),
                     QByteArray(reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size())));
        scritto = letto && SalvaFileIntero(percorso, dati);
    }
    if (!scritto) SegnalaGuasto();
    return scritto;
}

bool PortaOpzioniCondivise(const QString& cartellaCondivisa, const QString& cartellaUtente) {
    if (cartellaCondivisa.isEmpty() || cartellaUtente.isEmpty() ||
        QDir::cleanPath(cartellaCondivisa) == QDir::cleanPath(cartellaUtente))
        return false;
    const QString destinazione = PercorsoFile(cartellaUtente);
    const QFileInfo giaLi(destinazione);
    if (giaLi.exists() || giaLi.isSymLink()) return false;
    QFile origine;
    if (!ApriFileRegolare(PercorsoFile(cartellaCondivisa), origine)) return false;
    const QByteArray dati = origine.readAll();
    if (origine.error() != QFileDevice::NoError || dati.isEmpty() || !SalvaFileIntero(destinazione, dati))
        return false;
    const QString marcatore = QString::fromLatin1(kNomeMarcatoreLingua);
    QFile lingua;
    if (ApriFileRegolare(UnisciPercorsoNome(cartellaCondivisa, marcatore), lingua))
        SalvaFileIntero(UnisciPercorsoNome(cartellaUtente, marcatore), {});
    return true;
}

}  // namespace krt
