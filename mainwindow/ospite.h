// What the program takes from the desktop it runs on, beside the main window's own
// behaviour: its icon, the standard shortcuts of its menus, and the window's size and
// place, kept in the host's settings store (the registry on Windows, a .plist on macOS,
// ~/.config/ORB/krt.conf on Linux), never in the options record.
#pragma once
#include <QIcon>

class QSettings;
class QWidget;

namespace krt {

// The program's icon: "krt" of the desktop's icon theme, else the copy built into the
// program (PNG from 16 to 256 pixels, so high-density screens get a sharp one).
QIcon IconaProgramma();

// Gives the menu items of finestra the host's standard keys where they have none yet:
// mnuEsci Quit, mnuManuale HelpContents. Items are found by object name.
void ApplicaScorciatoie(QWidget& finestra);

// The window's geometry saved by SalvaGeometria, applied to finestra; nothing when the
// store has none or an unusable one. True when applied.
bool RipristinaGeometria(QWidget& finestra, QSettings& impostazioni);
void SalvaGeometria(const QWidget& finestra, QSettings& impostazioni);

}  // namespace krt
