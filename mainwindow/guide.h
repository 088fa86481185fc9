// The user guides in the data folder. The Guide menu opens the guide of the active
// language from the data folder only, so at start-up a guide missing there is copied
// from where the program's installation put it. A guide already in the data folder is
// never replaced: the user may have put a newer or an edited one there.
#pragma once
#include <QString>
#include <QStringList>

namespace krt {

// The guide of each language, as the Guide menu names it.
inline constexpr const char* kNomiGuide[] = {"KRTGuide.pdf", "KRTGuide_ita.pdf"};

// Folders that may hold the installed guides, in the order they are tried, given the
// folder of the executable: beside it (Windows), ../share/krt (a relocated prefix such as
// /opt/krt), ../Resources (macOS bundle), the host's shared data folders plus "krt"
// (/usr/local/share/krt and /usr/share/krt on Linux), ../docs (the build tree, where the
// executable is build/mainwindow/krt). Paths are cleaned and listed once.
QStringList CartelleGuideInstallate(const QString& cartellaProgramma);

// Copies nomeGuida into cartellaDati from the first folder of origini that holds it,
// unless cartellaDati holds a file of that name already. The copy is left writable by
// its owner. True when cartellaDati holds the guide afterwards.
bool CopiaGuidaMancante(const QString& cartellaDati, const QString& nomeGuida, const QStringList& origini);

// CopiaGuidaMancante for every guide; nothing when cartellaDati is empty (no data folder).
void InstallaGuide(const QString& cartellaDati, const QStringList& origini);

}  // namespace krt
