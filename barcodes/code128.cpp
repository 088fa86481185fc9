// Code 128: start set choice, switches and shifts between sets A, B and C, the
// modulo 103 check character and the glyphs of the Code 128 font family.
//
// Content codes 128-132 are the function characters NUL, FNC1, FNC2, FNC3 and FNC4;
// the character 0 is NUL too.
#include "barcodes/code128.h"

#include <array>
#include <limits>
#include <utility>

#include "barcodes/errori.h"
#include "barcodes/escape.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

constexpr std::uint8_t StartA = 103, StartB = 104, StartC = 105;
constexpr std::uint8_t CodeC = 99, CodeB = 100, CodeA = 101, Shift = 98, Fnc1 = 102;
constexpr unsigned CarattereFnc1 = 129;
constexpr char GlifoStop = static_cast<char>(139);
constexpr std::size_t Illimitata = std::numeric_limits<std::size_t>::max();

// Values of NUL, FNC1, FNC2, FNC3, FNC4 (content codes 128-132) in sets A and B.
constexpr std::array<std::uint8_t, 5> FunzioniA{64, 102, 97, 96, 101};
constexpr std::array<std::uint8_t, 5> FunzioniB{64, 102, 97, 96, 100};

constexpr bool Controllo(unsigned c) { return c < 32 || c == 128; }      // set A only
constexpr bool Minuscolo(unsigned c) { return c >= 96 && c <= 127; }     // set B only
constexpr bool Esclusivo(unsigned c) { return Controllo(c) || Minuscolo(c); }

constexpr std::uint8_t ValoreA(unsigned c) {
    if (c == 0) return 64;
    if (c < 32) return static_cast<std::uint8_t>(c + 64);
    if (c >= 128) return FunzioniA[c - 128];
    return static_cast<std::uint8_t>(c - 32);
}

constexpr std::uint8_t ValoreB(unsigned c) {
    if (c >= 128) return FunzioniB[c - 128];
    return static_cast<std::uint8_t>(c - 32);
}

constexpr char Glifo(unsigned valore) {
    switch (valore) {
        case 94: return static_cast<char>(150);
        case 95: return static_cast<char>(151);
        case 96: return static_cast<char>(152);
        default: return static_cast<char>(valore + 33);
    }
}

// Glifo of every byte value, read once per symbol.
constexpr std::array<char, 256> TabellaGlifi = [] {
    std::array<char, 256> t{};
    for (unsigned v = 0; v < t.size(); ++v) t[v] = Glifo(v);
    return t;
}();

unsigned Codice(std::string_view t, std::size_t i) { return static_cast<unsigned char>(t[i]); }

// Digit run at i: each digit counts 1, an FNC1 met at an even count counts 2.
// The count stops growing once it reaches `basta` (callers that only compare with 4).
std::size_t CorsaCifre(std::string_view t, std::size_t i, std::size_t basta) {
    std::size_t n = 0;
    for (; i < t.size() && n < basta; ++i) {
        if (IsDigit(t[i]))
            n += 1;
        else if (Codice(t, i) == CarattereFnc1 && n % 2 == 0)
            n += 2;
        else
            break;
    }
    return n;
}

// The set in which the text from i is best begun; `esclusivo` is the index of the
// first character from i that only set A or only set B holds (t.size() if none).
std::uint8_t Scegli(std::string_view t, std::size_t i, std::size_t esclusivo) {
    if (CorsaCifre(t, i, 4) >= 4) return StartC;
    return esclusivo < t.size() && Controllo(Codice(t, esclusivo)) ? StartA : StartB;
}

// Builds the value string in one pass, appending to `valori` (a byte vector, or the
// string that then turns into the glyphs). The choice of set looks ahead at the rest of
// the content for the next character that only one of sets A and B holds; the look-ahead
// only moves forward, so it resumes where it stopped, and digit runs are read once:
// long content costs linear time.
template <class Valori>
class Codificatore {
public:
    Codificatore(std::string_view testo, Valori& valori) : t_(testo), valori_(valori) {
        valori_.reserve(valori_.size() + t_.size() + 8);
    }

    void Scrivi() {
        set_ = Partenza();
        Metti(set_);
        while (p_ < t_.size()) {
            if (set_ == StartC)
                PassoC();
            else
                PassoAB();
        }
    }

private:
    // Index of the first character from i on that only set A or only set B holds
    // (t_.size() if none). i never decreases from one call to the next.
    std::size_t ProssimoEsclusivo(std::size_t i) {
        if (esclusivo_ < i) esclusivo_ = i;
        while (esclusivo_ < t_.size() && !Esclusivo(Codice(t_, esclusivo_))) ++esclusivo_;
        return esclusivo_;
    }

    std::uint8_t Partenza() {
        if (t_.size() >= 4 && CorsaCifre(t_, 0, 4) >= 4) return StartC;
        // A character that needs set A or B only decides when it is not the last one:
        // "AB" + control starts in B and switches for its last character.
        const std::size_t j = ProssimoEsclusivo(0);
        if (j + 1 >= t_.size()) return StartB;
        return Controllo(Codice(t_, j)) ? StartA : StartB;
    }

    void Metti(std::uint8_t v) { valori_.push_back(static_cast<typename Valori::value_type>(v)); }

    bool UltimoO(std::size_t i, bool (*prova)(unsigned)) const {
        return i + 1 >= t_.size() || !prova(Codice(t_, i + 1));
    }

    void PassoAB() {
        const unsigned c = Codice(t_, p_);
        if (IsDigit(t_[p_])) {
            Cifre();
            return;
        }
        if (set_ == StartA && Minuscolo(c)) {
            if (UltimoO(p_, Controllo)) {
                Metti(CodeB);
                set_ = StartB;
            } else {
                Metti(Shift);
            }
            Metti(ValoreB(c));
        } else if (set_ == StartB && Controllo(c)) {
            if (UltimoO(p_, Minuscolo)) {
                Metti(CodeA);
                set_ = StartA;
            } else {
                Metti(Shift);
            }
            Metti(ValoreA(c));
        } else {
            Metti(set_ == StartA ? ValoreA(c) : ValoreB(c));
        }
        ++p_;
    }

    // At the first digit of a run, in set A or B.
    void Cifre() {
        const std::size_t n = CorsaCifre(t_, p_, Illimitata);
        if (n >= 4) {
            if (n % 2 != 0) Metti(static_cast<std::uint8_t>(Codice(t_, p_++) - 32));
            Metti(CodeC);
            set_ = StartC;
            return;
        }
        // A short run holds digits only (an FNC1 can only join at a count of 2).
        for (std::size_t k = 0; k < n; ++k) Metti(static_cast<std::uint8_t>(Codice(t_, p_++) - 32));
    }

    // Leaves set C for the set that suits the rest from p_.
    void EsciDaC() {
        set_ = Scegli(t_, p_, ProssimoEsclusivo(p_)) == StartB ? StartB : StartA;
        Metti(set_ == StartB ? CodeB : CodeA);
    }

    void PassoC() {
        if (!IsDigit(t_[p_])) {
            // Only a leading FNC1 before four or more digits gets here with set C as the
            // answer: it is written as FNC1 and set C goes on.
            if (Scegli(t_, p_, ProssimoEsclusivo(p_)) == StartC) {
                Metti(Fnc1);
                ++p_;
            } else {
                EsciDaC();
            }
            return;
        }
        while (p_ < t_.size()) {
            const bool cifra = IsDigit(t_[p_]);
            if (cifra && p_ + 1 < t_.size() && IsDigit(t_[p_ + 1])) {
                Metti(static_cast<std::uint8_t>(10 * (t_[p_] - '0') + (t_[p_ + 1] - '0')));
                p_ += 2;
            } else if (Codice(t_, p_) == CarattereFnc1) {
                Metti(Fnc1);
                ++p_;
            } else if (cifra) {  // a lone digit goes out in set A or B
                EsciDaC();
                Metti(static_cast<std::uint8_t>(Codice(t_, p_++) - 32));
                return;
            } else {
                EsciDaC();
                return;
            }
        }
    }

    std::string_view t_;
    Valori& valori_;
    std::size_t esclusivo_ = 0;  // last answer of ProssimoEsclusivo
    std::size_t p_ = 0;
    std::uint8_t set_ = StartB;
};

// Content codes above 132 cannot be encoded.
bool Codificabile(std::string_view decodificato) {
    for (char c : decodificato)
        if (static_cast<unsigned char>(c) > 132) return false;
    return true;
}

}  // namespace

void GlifiCode128InPosto(std::string& glifi) {
    if (glifi.empty()) return;
    char* const g = glifi.data();
    const std::size_t n = glifi.size();
    long long somma = static_cast<unsigned char>(g[0]);  // the start character weighs 1, like the first value after it
    g[0] = TabellaGlifi[static_cast<unsigned char>(g[0])];
    for (std::size_t i = 1; i < n; ++i) {
        const unsigned valore = static_cast<unsigned char>(g[i]);
        // The weighted values are 16-bit quantities: beyond 32767 the symbol is too long.
        const unsigned long long prodotto = static_cast<unsigned long long>(i) * valore;
        if (prodotto > 32767)
            throw OverflowCheckSum("The content is too long for a Code 128 symbol: the check sum overflows at symbol " +
                                   std::to_string(i) + " (" + std::to_string(i) + " x " + std::to_string(valore) +
                                   " is more than 32767)");
        somma += static_cast<long long>(prodotto);
        g[i] = TabellaGlifi[valore];
    }
    glifi += TabellaGlifi[static_cast<std::size_t>(somma % 103)];
    glifi += GlifoStop;
}

int ScegliSetCode128(std::string_view resto) {
    std::size_t j = 0;
    while (j < resto.size() && !Esclusivo(Codice(resto, j))) ++j;
    return Scegli(resto, 0, j);
}

std::vector<std::uint8_t> ValoriCode128(std::string_view decodificato) {
    std::vector<std::uint8_t> valori;
    if (Codificabile(decodificato)) Codificatore(decodificato, valori).Scrivi();
    return valori;
}

bool ValoriCode128(std::string_view decodificato, std::string& valori) {
    if (!Codificabile(decodificato)) return false;
    Codificatore(decodificato, valori).Scrivi();
    return true;
}

std::string GlifiCode128(const std::vector<std::uint8_t>& valori) {
    std::string glifi(valori.begin(), valori.end());
    GlifiCode128InPosto(glifi);
    return glifi;
}

void CodificaCode128(std::string& contenuto, std::string& glifi) {
    glifi.clear();
    if (!DecodificaEscapeInPosto(contenuto, 132)) return;
    Codificatore(contenuto, glifi).Scrivi();  // the decoded text holds no code above 132
    GlifiCode128InPosto(glifi);
}

std::string CodificaCode128(std::string& contenuto) {
    std::string glifi;
    CodificaCode128(contenuto, glifi);
    return glifi;
}

}  // namespace krt
