// Build tool: turns the per-language text files of the string table into a C++ source
// holding one sorted constexpr array. A malformed line stops the build with its file
// and line number, so a translator's slip never reaches the program.
//
//   genera_stringhe OUTPUT.cpp OFFSET=FILE [OFFSET=FILE ...]
//
// Each FILE lists its texts under the English id (0-999); OFFSET is added to store them.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace {

// A file name as UTF-8. Windows opens it as UTF-16: its ANSI code page would lose the letters
// it lacks from a source folder's name.
std::filesystem::path Percorso(const std::string& utf8) {
#ifdef _WIN32
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
#else
    return utf8;
#endif
}

struct Lingua {
    int offset = 0;
    std::string file;
    std::map<int, std::string> testi;
};

[[noreturn]] void Errore(const std::string& file, int riga, const std::string& motivo) {
    throw std::runtime_error(file + ":" + std::to_string(riga) + ": " + motivo);
}

std::string Decodifica(const std::string& grezzo, const std::string& file, int riga) {
    std::string testo;
    for (std::size_t i = 0; i < grezzo.size(); ++i) {
        if (grezzo[i] != '\\') {
            testo += grezzo[i];
            continue;
        }
        if (++i == grezzo.size()) Errore(file, riga, "backslash at the end of the text");
        switch (grezzo[i]) {
            case 't': testo += '\t'; break;
            case 'n': testo += '\n'; break;
            case 's': testo += ' '; break;
            case '\\': testo += '\\'; break;
            default: Errore(file, riga, std::string("unknown escape \\") + grezzo[i]);
        }
    }
    return testo;
}

void Leggi(Lingua& lingua) {
    std::ifstream in(Percorso(lingua.file), std::ios::binary);
    if (!in) throw std::runtime_error(lingua.file + ": cannot be read");
    std::string riga;
    int numero = 0;
    while (std::getline(in, riga)) {
        ++numero;
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        if (numero == 1 && riga.rfind("\xEF\xBB\xBF", 0) == 0) riga.erase(0, 3);
        if (riga.empty() || riga[0] == '#') continue;
        const auto tab = riga.find('\t');
        if (tab == std::string::npos) Errore(lingua.file, numero, "no tab between id and text");
        const std::string id = riga.substr(0, tab);
        if (id.empty() || id.size() > 3 || id.find_first_not_of("0123456789") != std::string::npos)
            Errore(lingua.file, numero, "the id must be a number from 0 to 999");
        const std::string grezzo = riga.substr(tab + 1);
        if (!grezzo.empty() && (grezzo.front() == ' ' || grezzo.back() == ' '))
            Errore(lingua.file, numero, "a leading or trailing space must be written \\s");
        if (grezzo.find('\t') != std::string::npos) Errore(lingua.file, numero, "a tab in the text must be written \\t");
        if (!lingua.testi.emplace(std::stoi(id), Decodifica(grezzo, lingua.file, numero)).second)
            Errore(lingua.file, numero, "id " + id + " is listed twice");
    }
}

// Octal escapes are never longer than three digits, so the next character cannot join them.
std::string LetteraleCpp(const std::string& testo) {
    std::string out = "\"";
    for (unsigned char c : testo) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c >= 32 && c < 127) {
            out += static_cast<char>(c);
        } else {
            char buf[5];
            std::snprintf(buf, sizeof buf, "\\%03o", c);
            out += buf;
        }
    }
    return out + "\"";
}

}  // namespace

int Genera(int argc, const char* const argv[]) {
    try {
        if (argc < 3) throw std::runtime_error("usage: genera_stringhe OUTPUT.cpp OFFSET=FILE [OFFSET=FILE ...]");
        std::vector<Lingua> lingue;
        for (int a = 2; a < argc; ++a) {
            const std::string arg = argv[a];
            const auto uguale = arg.find('=');
            if (uguale == std::string::npos) throw std::runtime_error("expected OFFSET=FILE: " + arg);
            Lingua l;
            l.offset = std::stoi(arg.substr(0, uguale));
            l.file = arg.substr(uguale + 1);
            Leggi(l);
            lingue.push_back(std::move(l));
        }
        // A text missing in one language would only show up as a fault at run time.
        for (const auto& l : lingue)
            for (const auto& altra : lingue)
                for (const auto& [id, testo] : l.testi)
                    if (!altra.testi.contains(id))
                        throw std::runtime_error(altra.file + ": id " + std::to_string(id) + " is missing (it is in " +
                                                 l.file + ")");
        std::map<int, std::string> tabella;
        for (const auto& l : lingue)
            for (const auto& [id, testo] : l.testi)
                if (!tabella.emplace(id + l.offset, testo).second || id + l.offset > INT16_MAX)
                    throw std::runtime_error(l.file + ": id " + std::to_string(id) + " clashes after its offset");

        std::ostringstream out;
        out << "// Generated by genera_stringhe from the string table files: do not edit.\n"
               "#include \"resources/tabella_stringhe.h\"\n\n"
               "namespace krt {\nnamespace {\n\n"
               "constexpr VoceTabellaStringhe kVoci[] = {\n";
        for (const auto& [id, testo] : tabella) out << "    {" << id << ", " << LetteraleCpp(testo) << "},\n";
        out << "};\n\n}  // namespace\n\n"
               "std::span<const VoceTabellaStringhe> TabellaStringhe() { return kVoci; }\n\n"
               "}  // namespace krt\n";
        std::ofstream file(Percorso(argv[1]), std::ios::binary);
        file << out.str();
        if (!file.flush()) throw std::runtime_error(std::string(argv[1]) + ": cannot be written");
    } catch (const std::exception& e) {
        std::fprintf(stderr, "genera_stringhe: %s\n", e.what());
        return 1;
    }
    return 0;
}

#ifdef _WIN32
// The arguments as UTF-16, passed on as UTF-8 (see Percorso).
int wmain(int argc, wchar_t* argv[]) {
    std::vector<std::string> utf8;
    for (int i = 0; i < argc; ++i) {
        const int n = WideCharToMultiByte(CP_UTF8, 0, argv[i], -1, nullptr, 0, nullptr, nullptr);
        std::string a(static_cast<std::size_t>(n > 0 ? n : 1), '\0');
        if (n > 0) WideCharToMultiByte(CP_UTF8, 0, argv[i], -1, a.data(), n, nullptr, nullptr);
        a.resize(a.size() - 1);
        utf8.push_back(std::move(a));
    }
    std::vector<const char*> argomenti;
    for (const auto& a : utf8) argomenti.push_back(a.c_str());
    return Genera(argc, argomenti.data());
}
#else
int main(int argc, char* argv[]) { return Genera(argc, argv); }
#endif
