#include "support/varie.h"

#include <QDesktopServices>
#include <QFile>
#include <QFontDatabase>
#include <QListWidget>
#include <QUrl>

namespace krt {

void CancellaFile(const QString& percorso) {
    if (!percorso.isEmpty()) QFile::remove(percorso);
}

bool ApriDocumento(const QString& percorso) { return QDesktopServices::openUrl(QUrl::fromLocalFile(percorso)); }

QStringList FiltraFamiglieBarcode(const QStringList& famiglie) {
    QStringList barcode;
    for (QString famiglia : famiglie) {
        if (!famiglia.startsWith(QLatin1String("ORB"), Qt::CaseSensitive)) continue;
        if (famiglia.endsWith(QLatin1Char(']'))) {
            const auto parentesi = famiglia.lastIndexOf(QLatin1String(" ["));
            if (parentesi > 0) famiglia.truncate(parentesi);
        }
        if (!barcode.contains(famiglia)) barcode.append(famiglia);
    }
    return barcode;
}

QStringList FamiglieBarcodeInstallate() { return FiltraFamiglieBarcode(QFontDatabase::families()); }

void CaricaFont(QListWidget& lista) { lista.addItems(FamiglieBarcodeInstallate()); }

}  // namespace krt
