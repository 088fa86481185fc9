#include "mainwindow/configurazione.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

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

QString PercorsoFile() {
    const QString cartella = CartellaDati();
    return cartella.isEmpty() ? QString() : UnisciPercorsoNome(cartella, QString::fromLatin1(kNomeFileConfigurazione));
}

}  // namespace

QString UnisciPercorsoNome(const QString& cartella, const QString& nome) {
    const bool conSeparatore = cartella.endsWith(QLatin1Char('/')) || cartella.endsWith(QDir::separator());
    return TrimSpazi(conSeparatore ? cartella + nome : cartella + QDir::separator() + nome);
}

bool IsFile(const QString& percorso) {
    if (percorso.isEmpty()) return false;
    const QFileInfo info(percorso);
    return info.exists() && !info.isDir();
}

QString DeterminaCartellaDati(bool* creata) {
    QString cartella = qEnvironmentVariable("KRT_DATA_DIR");
    if (cartella.isEmpty()) {
        try {
            const QString base = AppEx().Path(kCartellaDatiComuni, true, 0);
            cartella = UnisciPercorsoNome(UnisciPercorsoNome(base, QStringLiteral("ORB")), NomeEseguibile());
        } catch (const ErroreAppEx&) {
            if (creata) *creata = false;
            return {};
        }
    }
    const bool ok = QDir().mkpath(cartella);
    if (creata) *creata = ok;
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

void ImpostaCartellaDati(const QString& cartella) {
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
    const QString percorso = PercorsoFile();
    if (percorso.isEmpty()) return false;
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray dati = file.read(static_cast<qint64>(kDimensioneRecordConfigurazione));
    if (dati.isEmpty()) return false;
    configurazione = LeggiRecordConfigurazione(
        std::span(reinterpret_cast<const std::uint8_t*>(dati.constData()), static_cast<std::size_t>(dati.size())),
        predefinita);
    return true;
}

bool SalvaConfigurazione(const Configurazione& configurazione) {
    const QString percorso = PercorsoFile();
    bool scritto = false;
    if (!percorso.isEmpty() && QDir().mkpath(CartellaDati())) {
        const auto record = ScriviRecordConfigurazione(configurazione);
        QFile file(percorso);
        // ReadWrite keeps what follows the record, unlike WriteOnly, which truncates.
        scritto = file.open(QIODevice::ReadWrite) && file.seek(0) &&
                  file.write(reinterpret_cast<const char*>(record.data()), static_cast<qint64>(record.size())) ==
                      static_cast<qint64>(record.size()) &&
                  file.flush();
    }
    if (!scritto) SegnalaGuasto();
    return scritto;
}

}  // namespace krt
