#include "mainwindow/rtf.h"

#include <cmath>
#include <cstdio>

namespace krt {

namespace {

struct VoceFont {
    std::string famiglia;
    bool simbolo;
};

// Appends one byte of text: the three RTF specials escaped, control bytes and
// bytes above 127 as \'xx so that the document itself is plain 7-bit ASCII.
void AggiungiByte(std::string& rtf, unsigned char c) {
    if (c == '\\' || c == '{' || c == '}') {
        rtf += '\\';
        rtf += static_cast<char>(c);
    } else if (c == '\t') {
        rtf += "\\tab ";
    } else if (c < 32 || c > 126) {
        char esadecimale[8];
        std::snprintf(esadecimale, sizeof esadecimale, "\\'%02x", c);
        rtf += esadecimale;
    } else {
        rtf += static_cast<char>(c);
    }
}

// Appends one byte of a font name: inside the font table a ';' ends the name and a
// control word would be read as part of the entry, so everything but letters, digits,
// blanks and plain punctuation goes as \'xx.
void AggiungiByteNomeFont(std::string& rtf, unsigned char c) {
    if (c == ';' || c == '\\' || c == '{' || c == '}' || c < 32 || c > 126) {
        char esadecimale[8];
        std::snprintf(esadecimale, sizeof esadecimale, "\\'%02x", c);
        rtf += esadecimale;
    } else {
        rtf += static_cast<char>(c);
    }
}

std::size_t IndiceFont(std::vector<VoceFont>& tabella, const SegmentoRtf& s) {
    for (std::size_t i = 0; i < tabella.size(); ++i)
        if (tabella[i].famiglia == s.famiglia && tabella[i].simbolo == s.simbolo) return i;
    tabella.push_back({s.famiglia, s.simbolo});
    return tabella.size() - 1;
}

// Character formatting of a run, always complete: \plain resets what the
// previous run set.
std::string Formato(std::size_t font, const SegmentoRtf& s) {
    long mezziPunti = std::lround(s.punti * 2);
    if (mezziPunti < 1) mezziPunti = 1;
    std::string f = "\\plain\\f" + std::to_string(font) + "\\fs" + std::to_string(mezziPunti);
    if (s.grassetto) f += "\\b";
    if (s.corsivo) f += "\\i";
    if (s.sottolineato) f += "\\ul";
    if (s.barrato) f += "\\strike";
    return f + ' ';
}

}  // namespace

std::string ComponiRtf(const std::vector<SegmentoRtf>& segmenti) {
    std::vector<VoceFont> tabella;
    std::vector<std::size_t> fontDi;
    fontDi.reserve(segmenti.size());
    for (const auto& s : segmenti) fontDi.push_back(IndiceFont(tabella, s));

    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
    for (std::size_t i = 0; i < tabella.size(); ++i) {
        rtf += "{\\f" + std::to_string(i) + "\\fnil\\fcharset" + (tabella[i].simbolo ? "2 " : "0 ");
        for (unsigned char c : tabella[i].famiglia) AggiungiByteNomeFont(rtf, c);
        rtf += ";}";
    }
    rtf += "}\r\n\\pard ";

    for (std::size_t n = 0; n < segmenti.size(); ++n) {
        const SegmentoRtf& s = segmenti[n];
        const std::string formato = Formato(fontDi[n], s);
        rtf += formato;
        const std::string& t = s.testo;
        for (std::size_t i = 0; i < t.size(); ++i) {
            const unsigned char c = static_cast<unsigned char>(t[i]);
            if (c == '\r' || c == '\n') {
                if (c == '\r' && i + 1 < t.size() && t[i + 1] == '\n') ++i;
                // The paragraph mark keeps the run's format, so that an empty
                // line has the height of the text around it.
                rtf += "\\par\r\n\\pard " + formato;
            } else {
                AggiungiByte(rtf, c);
            }
        }
    }
    rtf += "}";
    return rtf;
}

std::string ComponiTabellaRtf(const std::vector<std::vector<SegmentoRtf>>& righe, const std::vector<int>& larghezze) {
    std::vector<VoceFont> tabella;
    for (const auto& riga : righe)
        for (const auto& cella : riga) IndiceFont(tabella, cella);

    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
    for (std::size_t i = 0; i < tabella.size(); ++i) {
        rtf += "{\\f" + std::to_string(i) + "\\fnil\\fcharset" + (tabella[i].simbolo ? "2 " : "0 ");
        for (unsigned char c : tabella[i].famiglia) AggiungiByteNomeFont(rtf, c);
        rtf += ";}";
    }
    rtf += "}\r\n";
    std::string definizione = "\\trowd\\trgaph108";
    int destra = 0;
    for (const int l : larghezze) {
        destra += l;
        definizione += "\\clbrdrt\\brdrs\\clbrdrl\\brdrs\\clbrdrb\\brdrs\\clbrdrr\\brdrs\\cellx" + std::to_string(destra);
    }
    for (const auto& riga : righe) {
        rtf += definizione;
        rtf += "\r\n";
        for (std::size_t k = 0; k < larghezze.size(); ++k) {
            rtf += "\\pard\\intbl ";
            if (k < riga.size()) {
                const SegmentoRtf& cella = riga[k];
                rtf += Formato(IndiceFont(tabella, cella), cella);
                const std::string& t = cella.testo;
                for (std::size_t i = 0; i < t.size(); ++i) {
                    const auto c = static_cast<unsigned char>(t[i]);
                    if (c == '\r' || c == '\n') {
                        if (c == '\r' && i + 1 < t.size() && t[i + 1] == '\n') ++i;
                        rtf += "\\line ";
                    } else {
                        AggiungiByte(rtf, c);
                    }
                }
            }
            rtf += "\\cell ";
        }
        rtf += "\\row\r\n";
    }
    rtf += "\\pard}";
    return rtf;
}

}  // namespace krt
