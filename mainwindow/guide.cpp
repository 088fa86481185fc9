#include "mainwindow/guide.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace krt {

QStringList CartelleGuideInstallate(const QString& cartellaProgramma) {
    QStringList cartelle;
    auto aggiungi = [&cartelle](const QString& percorso) {
        const QString pulito = QDir::cleanPath(percorso);
        if (!pulito.isEmpty() && !cartelle.contains(pulito)) cartelle.append(pulito);
    };
    const QDir programma(cartellaProgramma);
    if (!cartellaProgramma.isEmpty()) {
        aggiungi(programma.absolutePath());
        aggiungi(programma.absoluteFilePath(QStringLiteral("../share/krt")));
        aggiungi(programma.absoluteFilePath(QStringLiteral("../Resources")));
    }
    const QStringList condivise =
        QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("krt"),
                                  QStandardPaths::LocateDirectory);
    for (const QString& cartella : condivise) aggiungi(cartella);
    if (!cartellaProgramma.isEmpty()) aggiungi(programma.absoluteFilePath(QStringLiteral("../docs")));
    return cartelle;
}

bool CopiaGuidaMancante(const QString& cartellaDati, const QString& nomeGuida, const QStringList& origini) {
    const QString destinazione = QDir(cartellaDati).filePath(nomeGuida);
    if (QFileInfo::exists(destinazione)) return QFileInfo(destinazione).isFile();
    for (const QString& cartella : origini) {
        const QString origine = QDir(cartella).filePath(nomeGuida);
        if (!QFileInfo(origine).isFile()) continue;
        // QFile::copy never writes over an existing file: a guide put there meanwhile stays.
        if (!QFile::copy(origine, destinazione)) return QFileInfo(destinazione).isFile();
        // An installed guide is often read-only (Windows keeps the attribute on copy); the
        // user's copy must be replaceable.
        QFile::setPermissions(destinazione,
                              QFile::permissions(destinazione) | QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        return true;
    }
    return false;
}

void InstallaGuide(const QString& cartellaDati, const QStringList& origini) {
    if (cartellaDati.isEmpty()) return;
    for (const char* nome : kNomiGuide) CopiaGuidaMancante(cartellaDati, QLatin1String(nome), origini);
}

}  // namespace krt
