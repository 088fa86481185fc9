#include "support/appex.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QOperatingSystemVersion>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QSysInfo>

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <shlobj.h>
#else
#include <pwd.h>
#include <unistd.h>
#include <vector>
#endif

namespace krt {

namespace {

// Result codes of the Windows shell's folder queries.
constexpr std::int32_t kRisultatoOk = 0;
constexpr std::int32_t kCartellaInesistente = 1;  // S_FALSE: valid id, the folder does not exist
constexpr auto kArgomentoNonValido = static_cast<std::int32_t>(0x80070057u);
[[maybe_unused]] constexpr auto kAccessoNegato = static_cast<std::int32_t>(0x80070005u);

struct EsitoCartella {
    std::int32_t risultato = kRisultatoOk;
    QString percorso;
};

struct NumeriErrore {
    const char* sorgente;
    std::uint32_t inesistente, idNonValido, sistema;
};

constexpr NumeriErrore kErroriPath{"AppEx.Path", ErroriAppEx::kPathInesistente, ErroriAppEx::kPathIdNonValido,
                                   ErroriAppEx::kPathSistema};
constexpr NumeriErrore kErroriSubDir{"AppEx.PathAndSubDir", ErroriAppEx::kSubDirInesistente,
                                     ErroriAppEx::kSubDirIdNonValido, ErroriAppEx::kSubDirSistema};

QString MappaEsito(const EsitoCartella& esito, const NumeriErrore& numeri) {
    const QString sorgente = QString::fromLatin1(numeri.sorgente);
    switch (esito.risultato) {
        case kRisultatoOk:
            return esito.percorso;
        case kCartellaInesistente:
            throw ErroreAppEx(numeri.inesistente, sorgente, QStringLiteral("Valid PathId but folder doesn't exist"));
        case kArgomentoNonValido:
            throw ErroreAppEx(numeri.idNonValido, sorgente, QStringLiteral("Invalid PathId for requested function"));
        default:
            throw ErroreAppEx(numeri.sistema, sorgente, QStringLiteral("System error %1").arg(esito.risultato));
    }
}

#ifdef Q_OS_WIN

EsitoCartella InterrogaCartella(int pathId, const QString* subDir, int flags) {
    wchar_t buffer[MAX_PATH + 1] = {};
    const HRESULT risultato =
        subDir ? SHGetFolderPathAndSubDirW(nullptr, pathId, nullptr, static_cast<DWORD>(flags),
                                           reinterpret_cast<const wchar_t*>(subDir->utf16()), buffer)
               : SHGetFolderPathW(nullptr, pathId, nullptr, static_cast<DWORD>(flags), buffer);
    EsitoCartella esito{static_cast<std::int32_t>(risultato), {}};
    if (risultato == S_OK) esito.percorso = QString::fromWCharArray(buffer);
    return esito;
}

VersioneSO VersioneHost() {
    const auto os = QOperatingSystemVersion::current();
    VersioneSO v;
    v.maggiore = static_cast<std::uint32_t>(os.majorVersion());
    v.minore = static_cast<std::uint32_t>(std::max(os.minorVersion(), 0));
    v.build = static_cast<std::uint32_t>(std::max(os.microVersion(), 0));
    v.piattaforma = kPiattaformaWindowsNT;
    v.tipoProdotto = QSysInfo::prettyProductName().contains(QLatin1String("Server")) ? 3 : 1;
    return v;
}

QString NomeUtenteHost() {
    wchar_t buffer[257] = {};
    DWORD lunghezza = 257;
    if (!GetUserNameW(buffer, &lunghezza) || lunghezza == 0) return {};
    return QString::fromWCharArray(buffer, static_cast<int>(lunghezza - 1));  // the length counts the NUL
}

#else

struct CartellaHost {
    int id;
    QStandardPaths::StandardLocation luogo;
};

constexpr CartellaHost kCartelleHost[] = {
    {0x00, QStandardPaths::DesktopLocation},       {0x05, QStandardPaths::DocumentsLocation},
    {0x0D, QStandardPaths::MusicLocation},         {0x0E, QStandardPaths::MoviesLocation},
    {0x10, QStandardPaths::DesktopLocation},       {0x14, QStandardPaths::FontsLocation},
    {0x1A, QStandardPaths::GenericConfigLocation}, {0x1C, QStandardPaths::GenericDataLocation},
    {0x20, QStandardPaths::GenericCacheLocation},  {0x23, QStandardPaths::GenericDataLocation},
    {0x27, QStandardPaths::PicturesLocation},      {0x28, QStandardPaths::HomeLocation},
};
constexpr int kUltimoIdCartella = 0x3D;
constexpr int kMascheraFlagId = 0xFF00;  // flags the shell accepts inside the id
constexpr int kFlagNonVerificare = 0x4000;

// The shell's answer, worked out from QStandardPaths.
EsitoCartella InterrogaCartella(int pathId, const QString* subDir, int /*flags: current or default path*/) {
    const int id = pathId & ~kMascheraFlagId;
    if (pathId < 0 || pathId > 0xFFFF || id > kUltimoIdCartella) return {kArgomentoNonValido, {}};
    if (subDir && QDir::isAbsolutePath(*subDir)) return {kArgomentoNonValido, {}};
    QString percorso;
    for (const auto& cartella : kCartelleHost)
        if (cartella.id == id) percorso = QStandardPaths::writableLocation(cartella.luogo);
    if (percorso.isEmpty()) return {kCartellaInesistente, {}};
    if (subDir && !subDir->isEmpty()) percorso = QDir::cleanPath(percorso + QLatin1Char('/') + *subDir);
    if (!QFileInfo(percorso).isDir()) {
        if (pathId & kFlagCreaCartella) {
            if (!QDir().mkpath(percorso)) return {kAccessoNegato, {}};
        } else if (!(pathId & kFlagNonVerificare)) {
            return {kCartellaInesistente, {}};
        }
    }
    return {kRisultatoOk, QDir::toNativeSeparators(percorso)};
}

// macOS reports its own version; elsewhere the kernel's "6.1.0-13-amd64" gives 6, 1, 0.
VersioneSO VersioneHost() {
    VersioneSO v;
    v.piattaforma = kPiattaformaAltroSO;
    v.tipoProdotto = 1;
    const auto os = QOperatingSystemVersion::current();
    if (os.majorVersion() >= 0) {
        v.maggiore = static_cast<std::uint32_t>(os.majorVersion());
        v.minore = static_cast<std::uint32_t>(std::max(os.minorVersion(), 0));
        v.build = static_cast<std::uint32_t>(std::max(os.microVersion(), 0));
        return v;
    }
    static const QRegularExpression kNumeri(QStringLiteral("^(\\d+)(?:\\.(\\d+))?(?:\\.(\\d+))?"));
    const auto trovato = kNumeri.match(QSysInfo::kernelVersion());
    if (trovato.hasMatch()) {
        v.maggiore = trovato.captured(1).toUInt();
        v.minore = trovato.captured(2).toUInt();
        v.build = trovato.captured(3).toUInt();
    }
    return v;
}

QString NomeUtenteHost() {
    long dimensione = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(dimensione > 0 ? static_cast<std::size_t>(dimensione) : 16384);
    passwd voce{};
    passwd* trovato = nullptr;
    if (getpwuid_r(geteuid(), &voce, buffer.data(), buffer.size(), &trovato) == 0 && trovato && trovato->pw_name)
        return QString::fromLocal8Bit(trovato->pw_name);
    return qEnvironmentVariable("USER");
}

#endif

float NumeroPuntato(std::uint32_t maggiore, std::uint32_t minore) {
    return QStringLiteral("%1.%2").arg(maggiore).arg(minore).toFloat();  // QString reads "." in every locale
}

}  // namespace

ErroreAppEx::ErroreAppEx(std::uint32_t numero, const QString& sorgente, const QString& descrizione)
    : std::runtime_error((sorgente + QStringLiteral(": ") + descrizione).toStdString()),
      numero_(numero),
      sorgente_(sorgente),
      descrizione_(descrizione) {}

AppEx::AppEx() : versione_(VersioneHost()) {}

AppEx::AppEx(const VersioneSO& versione, std::uint32_t erroreVersione)
    : versione_(versione), erroreVersione_(erroreVersione) {}

QString AppEx::ComputerName() const { return QSysInfo::machineHostName(); }

QString AppEx::UserName() const { return NomeUtenteHost(); }

bool AppEx::FSPresent(const QString& percorso) const { return !percorso.isEmpty() && QFileInfo::exists(percorso); }

QVariant AppEx::OSVersion(int infoId) const {
    if (erroreVersione_ != 0)
        throw ErroreAppEx(ErroriAppEx::kVersione, QStringLiteral("AppEx.OSVersion"),
                          QStringLiteral("System error retrieving information %1").arg(erroreVersione_));
    const VersioneSO& v = versione_;
    switch (infoId) {
        case 0: return QVariant::fromValue(v.build);
        case 1: return (v.piattaforma & (1u << 9)) != 0;
        case 2: return (v.piattaforma & (1u << 15)) != 0;
        case 3: return QVariant::fromValue(v.piattaforma);
        case 4: return QVariant::fromValue(static_cast<unsigned>(v.tipoProdotto));
        case 5: return v.servicePack.left(v.servicePack.indexOf(QChar(0)));
        case 6: return NumeroPuntato(v.servicePackMaggiore, v.servicePackMinore);
        case 7: return NumeroPuntato(v.maggiore, v.minore);
        case 8: return (v.tipoProdotto & 1) != 0;
        default: return {};
    }
}

QString AppEx::Path(int pathId, bool crea, int flags) const {
    return MappaEsito(InterrogaCartella(crea ? pathId | kFlagCreaCartella : pathId, nullptr, flags), kErroriPath);
}

QString AppEx::PathAndSubDir(int pathId, const QString& subDir, bool crea, int flags) const {
    // The shell learnt sub-folders in Windows XP; the other hosts always have them.
    const float versione = OSVersion(7).toFloat();
    if (versione_.piattaforma != kPiattaformaAltroSO && versione < 5.1f)
        throw ErroreAppEx(ErroriAppEx::kSubDirRichiedeXP, QStringLiteral("AppEx.PathAndSubDir"),
                          QStringLiteral("Requires Windows XP or later"));
    return MappaEsito(InterrogaCartella(crea ? pathId | kFlagCreaCartella : pathId, &subDir, flags), kErroriSubDir);
}

}  // namespace krt
