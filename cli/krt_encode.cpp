// krt-encode: the encoding engine on the command line.
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "cli/flusso.h"
#include "cli/programma.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#ifndef NOMINMAX
#define NOMINMAX  // std::min and std::max, not the macros
#endif
#include <windows.h>
#endif

#ifdef KRT_MODULO_ESPORTAZIONE
#include <dlfcn.h>
#include <unistd.h>

#include <string>

namespace {

// --export: the drawing module, looked for beside the program (build tree) and in the
// library folder beside its bin/ (installed), loaded only by a run that exports.
int EsportaConModulo(const krt::RichiestaEsportazione& richiesta, std::string& errore) {
    std::string programma(4096, '\0');
    const ssize_t n = readlink("/proc/self/exe", programma.data(), programma.size() - 1);
    programma.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    const std::string cartella = programma.substr(0, programma.rfind('/') + 1);
    void* modulo = nullptr;
    std::string motivo;
    for (const std::string& percorso : {cartella + KRT_MODULO_ESPORTAZIONE,
                                        cartella + KRT_CARTELLA_MODULI "/" KRT_MODULO_ESPORTAZIONE}) {
        modulo = dlopen(percorso.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (modulo != nullptr) break;
        if (const char* e = dlerror(); e != nullptr && motivo.empty()) motivo = e;
    }
    using Funzione = int (*)(const krt::RichiestaEsportazione&, std::string&);
    auto* esporta = modulo != nullptr ? reinterpret_cast<Funzione>(dlsym(modulo, "krt_esporta_simbolo")) : nullptr;
    if (esporta == nullptr) {
        errore = "--export: cannot load " KRT_MODULO_ESPORTAZIONE ": " + motivo;
        return krt::UscitaIO;
    }
    return esporta(richiesta, errore);
}

}  // namespace
#endif

namespace {

krt::FunzioneEsportazione Esportazione() {
#if defined(KRT_MODULO_ESPORTAZIONE)
    return EsportaConModulo;
#elif defined(KRT_CON_ESPORTAZIONE)
    return krt::EsportaSimbolo;
#else
    return {};
#endif
}

int Esegui(std::span<const char* const> argomenti, krt::FunzioneLettura ingresso) {
    return krt::EseguiKrtEncode(argomenti, std::move(ingresso), krt::ScritturaDescrittore(1),
                                krt::ScritturaDescrittore(2), Esportazione());
}

}  // namespace

#ifdef _WIN32
// Windows hands a char main its arguments in the ANSI code page, where most characters of a
// content are lost or turned into others: the arguments come in UTF-16 and go on as UTF-8,
// as everywhere else. The streams are binary: the glyph bytes go out as they are (no CR
// before each LF), and a console reads and shows UTF-8 for the time of the run.
namespace {

UINT paginaIngresso = 0;  // the console's code pages before the run, 0 when not changed
UINT paginaUscita = 0;

void RipristinaConsole() {
    if (paginaIngresso != 0) SetConsoleCP(paginaIngresso);
    if (paginaUscita != 0) SetConsoleOutputCP(paginaUscita);
}

// Ctrl+C ends the run as usual, leaving the console's code pages as they were.
BOOL WINAPI Interruzione(DWORD) {
    RipristinaConsole();
    return FALSE;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    _setmode(0, _O_BINARY);
    _setmode(1, _O_BINARY);
    _setmode(2, _O_BINARY);
    std::vector<std::string> utf8;
    for (int i = 1; i < argc; ++i) {
        const int n = WideCharToMultiByte(CP_UTF8, 0, argv[i], -1, nullptr, 0, nullptr, nullptr);
        std::string a(static_cast<std::size_t>(n > 0 ? n : 1), '\0');
        if (n > 0) WideCharToMultiByte(CP_UTF8, 0, argv[i], -1, a.data(), n, nullptr, nullptr);
        a.resize(a.size() - 1);  // the terminating NUL
        utf8.push_back(std::move(a));
    }
    std::vector<const char*> argomenti;
    for (const auto& a : utf8) argomenti.push_back(a.c_str());

    // Lines typed at a console come as UTF-8 too where the console can (recent Windows 10 and 11).
    if (_isatty(0) && (paginaIngresso = GetConsoleCP()) != 0) SetConsoleCP(CP_UTF8);
    if ((_isatty(1) || _isatty(2)) && (paginaUscita = GetConsoleOutputCP()) != 0) SetConsoleOutputCP(CP_UTF8);
    if (paginaIngresso != 0 || paginaUscita != 0) SetConsoleCtrlHandler(Interruzione, TRUE);
    krt::FunzioneLettura ingresso = krt::LetturaDescrittore(0);
    if (paginaIngresso != 0) {
        // A console gives a line per read; one that starts with Ctrl+Z ends the input.
        ingresso = [leggi = std::move(ingresso)](char* dati, std::size_t n) -> std::ptrdiff_t {
            const std::ptrdiff_t letti = leggi(dati, n);
            return letti > 0 && dati[0] == '\x1A' ? 0 : letti;
        };
    }
    const int stato = Esegui(argomenti, std::move(ingresso));
    RipristinaConsole();
    return stato;
}
#else
int main(int argc, char** argv) {
    return Esegui(std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)),
                  krt::LetturaDescrittore(0));
}
#endif
