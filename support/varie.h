// Small file, document and font helpers of the main window.
#pragma once
#include <QString>
#include <QStringList>

class QListWidget;

namespace krt {

// Deletes the file; a missing file or a refusal of the system is ignored.
void CancellaFile(const QString& percorso);

// Opens the document with the program the desktop associates with it. True when the
// desktop accepted the request (a missing viewer or file is reported there, not here).
bool ApriDocumento(const QString& percorso);

// The barcode font families among famiglie: names beginning with "ORB" (case-sensitive),
// in the given order. A family listed once per foundry ("ORB39 [Foundry]") is listed
// once, under its plain name, as the barcode families are looked up by plain name.
QStringList FiltraFamiglieBarcode(const QStringList& famiglie);

// The barcode font families installed, in the font database's enumeration order.
QStringList FamiglieBarcodeInstallate();

// Adds the installed barcode font families to the list.
void CaricaFont(QListWidget& lista);

}  // namespace krt
