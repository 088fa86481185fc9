// The data folder and the options file "KRT.CFG" kept in it.
//
// The data folder is the user's own local application data folder of the host (see AppEx)
// plus "ORB" plus the executable's name without extension, each level created when missing:
// %LOCALAPPDATA%\ORB\krt on Windows, ~/.local/share/ORB/krt on Linux ($XDG_DATA_HOME when
// set), ~/Library/Application Support/ORB/krt on macOS. It is never shared between users:
// no one else can plant a guide or an options file there. Where an older version kept a
// folder for all users (C:\ProgramData\ORB\krt), its options are carried over once.
//
// Tests and benchmarks move the folder with ImpostaCartellaDati, or, for a whole process,
// with the environment variable KRT_DATA_DIR (used as the data folder itself, blanks around
// it trimmed). The program reads no other environment variable.
//
// Only regular files are read: a link or a special file (a FIFO would make the open wait
// forever) named KRT.CFG reads as missing. A save writes a temporary file in the folder and
// renames it over KRT.CFG, so the file is always a whole record, old or new, and a link
// planted there is replaced, never written through.
#pragma once
#include <functional>

#include <QString>

#include "cycle/configurazione_record.h"

namespace krt {

inline constexpr char kNomeFileConfigurazione[] = "KRT.CFG";
inline constexpr char kNomeMarcatoreLingua[] = "ITALIANO.LNG";  // present: the Italian interface

// folder + separator + name; no second separator when the folder already ends with one.
// Nothing is trimmed here: the folder was trimmed once where it came in.
QString UnisciPercorsoNome(const QString& cartella, const QString& nome);

// True when percorso names an existing file (not a folder); any error gives false.
bool IsFile(const QString& percorso);

// Works out the data folder and creates what is missing. Returns its path, also when it
// could not be created (creata false then), or "" when the host has no data location.
QString DeterminaCartellaDati(bool* creata = nullptr);

// The data folder of the run: determined on the first call, then kept.
QString CartellaDati();

// Uses cartella (blanks around it trimmed) as the data folder from now on (created when
// missing) and forgets any earlier trouble with the old one.
void ImpostaCartellaDati(const QString& cartella);

// Called once per data folder, the first time it turns out unusable, with the localised
// message (string 293) to show; the program goes on with its options in memory. When the
// trouble is already known, the function is called at once.
void ImpostaAvvisoCartellaDati(std::function<void(const QString& messaggio)> avviso);

// Reads KRT.CFG into configurazione. A missing, empty or unreadable file gives the defaults
// (ApplicaPredefiniti with string 278 of the current language); a short or damaged one
// gives the defaults for what cannot be read. True when the file was read.
bool CaricaConfigurazione(Configurazione& configurazione);

// Writes the 240-byte record at the start of KRT.CFG, creating the file when missing;
// bytes past the record are kept. The file is replaced whole (see above). False (and the
// notice above) when it cannot be written; the old file is then left as it was.
bool SalvaConfigurazione(const Configurazione& configurazione);

// Carries the options of a folder shared by all users (KRT.CFG and the language marker)
// into the user's own folder, when they differ and the user's folder has no KRT.CFG yet.
// True when KRT.CFG was carried over.
bool PortaOpzioniCondivise(const QString& cartellaCondivisa, const QString& cartellaUtente);

}  // namespace krt
