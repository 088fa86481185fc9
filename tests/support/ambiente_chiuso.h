// A test program sealed from the machine: fontconfig sees the fonts of one folder alone (none,
// or those of the system, never the user's: barcode fonts installed for the user would answer
// to the families the tests use), and HOME and the XDG folders (settings, data, caches) are
// folders of the test.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// Writes a fontconfig file listing the fonts of `cartellaFont` (none when empty) and, with
// `sistema`, the machine's own, with the light hinting of a desktop (full hinting rounds the
// glyph advances and with them the modules); returns its path.
inline QString ScriviConfFont(const QString& percorso, const QString& cartellaFont, bool sistema = false) {
    QFile conf(percorso);
    if (conf.open(QIODevice::WriteOnly))
        conf.write(
            QStringLiteral("<?xml version=\"1.0\"?>\n<fontconfig>%1%2<cachedir>%3-cache</cachedir><match target="
                           "\"font\"><edit name=\"hintstyle\"><const>hintslight</const></edit></match></fontconfig>\n")
                .arg(sistema ? QStringLiteral("<include ignore_missing=\"yes\">/etc/fonts/fonts.conf</include>")
                             : QString(),
                     cartellaFont.isEmpty() ? QString() : QStringLiteral("<dir>%1</dir>").arg(cartellaFont), percorso)
                .toUtf8());
    return percorso;
}

// Points this process (and the programs it starts) at the fonts of `cartellaFont` alone and at
// folders of `casa`.
inline void ChiudiAmbiente(const QTemporaryDir& casa, const QString& cartellaFont = {}) {
    qputenv("FONTCONFIG_FILE", ScriviConfFont(casa.filePath(QStringLiteral("fonts.conf")), cartellaFont).toLocal8Bit());
    for (const char* variabile : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CACHE_HOME"}) {
        const QString cartella = casa.filePath(QString::fromLatin1(variabile));
        QDir().mkpath(cartella);
        qputenv(variabile, cartella.toLocal8Bit());
    }
}
