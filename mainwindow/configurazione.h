// The data folder and the options file "KRT.CFG" kept in it.
//
// The data folder is the all-users application data folder of the host (see AppEx) plus
// "ORB" plus the executable's name without extension, each level created when missing:
// C:\ProgramData\ORB\krt on Windows, ~/.local/share/ORB/krt on Linux (the per-user data
// location, $XDG_DATA_HOME when set), ~/Library/Application Support/ORB/krt on macOS.
// The program never runs inside a development environment, so there is no other case.
//
// Tests and benchmarks move the folder with ImpostaCartellaDati, or, for a whole process,
// with the environment variable KRT_DATA_DIR (used as the data folder itself). The program
// reads no other environment variable.
#pragma once
#include <functional>

#include <QString>

#include "cycle/configurazione_record.h"

namespace krt {

inline constexpr char kNomeFileConfigurazione[] = "KRT.CFG";

// folder + separator + name, trimmed of surrounding spaces; no second separator when the
// folder already ends with one.
QString UnisciPercorsoNome(const QString& cartella, const QString& nome);

// True when percorso names an existing file (not a folder); any error gives false.
bool IsFile(const QString& percorso);

// Works out the data folder and creates what is missing. Returns its path, also when it
// could not be created (creata false then), or "" when the host has no data location.
QString DeterminaCartellaDati(bool* creata = nullptr);

// The data folder of the run: determined on the first call, then kept.
QString CartellaDati();

// Uses cartella as the data folder from now on (created when missing) and forgets any
// earlier trouble with the old one.
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
// bytes past the record are left as they are. False (and the notice above) when it
// cannot be written.
bool SalvaConfigurazione(const Configurazione& configurazione);

}  // namespace krt
