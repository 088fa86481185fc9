// krt-encode: the encoding engine on the command line.
#include <span>
#include <string>
#include <vector>

#include "cli/flusso.h"
#include "cli/programma.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#endif

namespace {

int Esegui(std::span<const char* const> argomenti) {
    return krt::EseguiKrtEncode(argomenti, krt::LetturaDescrittore(0), krt::ScritturaDescrittore(1),
                                krt::ScritturaDescrittore(2));
}

}  // namespace

#ifdef _WIN32
// Windows hands a char main its arguments in the ANSI code page, where most characters of a
// content are lost or turned into others: the arguments come in UTF-16 and go on as UTF-8,
// as everywhere else. The glyph bytes go out as they are (no CR before each LF), and a
// console shows the UTF-8 of the output and the messages for the time of the run.
int wmain(int argc, wchar_t** argv) {
    _setmode(0, _O_BINARY);
    _setmode(1, _O_BINARY);
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

    const UINT paginaConsole = GetConsoleOutputCP();
    const bool console = paginaConsole != 0 && (_isatty(1) || _isatty(2));
    if (console) SetConsoleOutputCP(CP_UTF8);
    const int stato = Esegui(argomenti);
    if (console) SetConsoleOutputCP(paginaConsole);
    return stato;
}
#else
int main(int argc, char** argv) {
    return Esegui(std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)));
}
#endif
