// Operating-system facts behind a few properties: computer and user name, presence of a
// file-system object, the version record, and the paths of special folders.
//
// Special folders are named by the Windows shell's folder ids (35 is the all-users
// application data folder). On Windows the shell answers; on other hosts each id with
// an equivalent maps to a QStandardPaths location, and the answers keep the shell's
// result codes, so the errors below are the same everywhere:
//   0x00, 0x10 desktop        -> DesktopLocation       0x05 documents -> DocumentsLocation
//   0x0D music                -> MusicLocation         0x0E videos    -> MoviesLocation
//   0x14 fonts                -> FontsLocation         0x1A roaming application data -> GenericConfigLocation
//   0x1C local application data and 0x23 (35) all-users application data -> GenericDataLocation
//   0x20 internet cache       -> GenericCacheLocation  0x27 pictures  -> PicturesLocation
//   0x28 user profile         -> HomeLocation
// Id 35 maps to the per-user data location (~/.local/share on Linux, ~/Library/Application
// Support on macOS): the per-machine folders there (/usr/share, /Library) are not writable
// by a normal user, and the program keeps its options in that folder. The other Windows ids
// (0x00-0x3D) are valid but have no folder on these hosts; higher ids are invalid.
#pragma once
#include <cstdint>
#include <stdexcept>

#include <QString>
#include <QVariant>

namespace krt {

// Numbered fault of AppEx: number, source ("AppEx." + property) and description.
class ErroreAppEx : public std::runtime_error {
public:
    ErroreAppEx(std::uint32_t numero, const QString& sorgente, const QString& descrizione);
    std::uint32_t Numero() const noexcept { return numero_; }
    const QString& Sorgente() const noexcept { return sorgente_; }
    const QString& Descrizione() const noexcept { return descrizione_; }

private:
    std::uint32_t numero_;
    QString sorgente_;
    QString descrizione_;
};

namespace ErroriAppEx {
inline constexpr std::uint32_t kBase = 0x80040000;
inline constexpr std::uint32_t kVersione = kBase + 45318;            // 0x8004B106
inline constexpr std::uint32_t kPathInesistente = kBase + 45330;     // 0x8004B112
inline constexpr std::uint32_t kPathIdNonValido = kBase + 45332;     // 0x8004B114
inline constexpr std::uint32_t kPathSistema = kBase + 45334;         // 0x8004B116
inline constexpr std::uint32_t kSubDirRichiedeXP = kBase + 45344;    // 0x8004B120
inline constexpr std::uint32_t kSubDirInesistente = kBase + 45346;   // 0x8004B122
inline constexpr std::uint32_t kSubDirIdNonValido = kBase + 45348;   // 0x8004B124
inline constexpr std::uint32_t kSubDirSistema = kBase + 45350;       // 0x8004B126
}  // namespace ErroriAppEx

// Special-folder ids and the create flag that Path adds to the id.
inline constexpr int kCartellaDatiLocali = 0x1C;  // the user's own application data
inline constexpr int kCartellaDatiComuni = 35;
inline constexpr int kFlagCreaCartella = 0x8000;

// Platform ids of the version record: Windows NT, and the id this program gives every
// other host (bits 9 and 15 stay clear, as with every Windows platform id).
inline constexpr std::uint32_t kPiattaformaWindowsNT = 2;
inline constexpr std::uint32_t kPiattaformaAltroSO = 256;

// The operating system's extended version record.
struct VersioneSO {
    std::uint32_t dimensione = 156;
    std::uint32_t maggiore = 0;
    std::uint32_t minore = 0;
    std::uint32_t build = 0;
    std::uint32_t piattaforma = 0;
    QString servicePack;  // up to 128 characters; read up to its first NUL
    std::uint16_t servicePackMaggiore = 0;
    std::uint16_t servicePackMinore = 0;
    std::uint16_t suiteMask = 0;
    std::uint8_t tipoProdotto = 0;  // 1 workstation, 2 domain controller, 3 server
    std::uint8_t riservato = 0;
};

class AppEx {
public:
    // Queries the host's version once.
    AppEx();
    // Uses the given record; a non-zero erroreVersione stands for a failed query.
    explicit AppEx(const VersioneSO& versione, std::uint32_t erroreVersione = 0);

    // "" when the system cannot tell.
    QString ComputerName() const;
    QString UserName() const;
    // True when the file or folder exists.
    bool FSPresent(const QString& percorso) const;
    // The built program never runs inside a development environment.
    bool IDEMode() const { return false; }

    // 0 build (uint), 1 bit 9 and 2 bit 15 of the platform id (bool), 3 platform id (uint),
    // 4 product type (uint), 5 service-pack text, 6 service-pack major.minor (float),
    // 7 major.minor (float, "." as separator: 5.1 compares as 5.1 in every locale),
    // 8 workstation (bool); any other id: an empty QVariant. Throws ErroreAppEx 0x8004B106
    // when the version query failed.
    QVariant OSVersion(int infoId) const;

    // The special folder pathId (see the mapping above), created when crea is true.
    // flags goes to the Windows shell unchanged (0 current path, 1 default path); other
    // hosts ignore it. Throws ErroreAppEx 0x8004B112 (no such folder), 0x8004B114 (invalid
    // id) or 0x8004B116 ("System error " + the shell's result code).
    QString Path(int pathId, bool crea, int flags) const;

    // The sub-folder subDir (relative) of the special folder, created with every missing
    // level when crea is true. Windows before XP (5.1) is refused with 0x8004B120; the
    // other errors are those of Path numbered 0x8004B122, 0x8004B124, 0x8004B126.
    QString PathAndSubDir(int pathId, const QString& subDir, bool crea, int flags) const;

private:
    VersioneSO versione_;
    std::uint32_t erroreVersione_ = 0;
};

}  // namespace krt
