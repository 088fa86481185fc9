#include "mainwindow/attributi.h"

namespace krt {

namespace {

using P = PezzoSuggerimento;
using R = RegolaOpzioni;

constexpr P kVariabile{IdAttributi::Variabile, {}, {}};
constexpr P kAlfabeto{IdAttributi::Alfabeto, {}, {}};
constexpr P kCifre{IdAttributi::Cifre, {}, {}};
constexpr P kCaratteri{IdAttributi::Caratteri, {}, {}};
constexpr P Testo(std::string_view t) { return {0, t, t}; }
constexpr P Lunghezza(std::string_view senza, std::string_view con) { return {0, senza, con}; }

constexpr std::string_view kAlfabeto39 = " 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";

// The rows in the order the entries are looked up; the last row answers for
// any other text of the symbology combo.
constexpr std::array<RigaAttributi, 30> kRighe{{
    {{400}, {kVariabile, Testo(", "), kAlfabeto, Testo(kAlfabeto39)}, kTuttiGliStili},
    {{401}, {kVariabile, Testo(", "), kAlfabeto, Testo(" ASCII")}, kTuttiGliStili},
    {{402}, {kVariabile, Testo(", "), kAlfabeto, Testo(kAlfabeto39)}, kTuttiGliStili},
    {{403}, {kVariabile, Testo(", "), kAlfabeto, Testo(" ASCII")}, kTuttiGliStili},
    {{428}, {kVariabile, Testo(", max 15 "), kCaratteri, Testo(", "), kAlfabeto, Testo(" 0123456789ABCDEF")}},
    {{426}, {kVariabile, Testo(", "), kAlfabeto, Testo(" 0123456789-")}},
    {{432}, {Lunghezza("14", "13"), Testo(" "), kCifre}},
    {{433}, {Lunghezza("6/10/12", "5/9/11"), Testo(" "), kCifre}, kSoloNormale},
    {{427}, {Lunghezza("7", "6"), Testo(" "), kCifre}},
    {{429}, {kVariabile, Testo(", max "), Lunghezza("16 ", "15 "), kCaratteri, Testo(", "), kAlfabeto,
             Testo(" 0123456789KLMO")}},
    {{404, 405, 406, 407, 408, 430, 431, 409}, {kVariabile, Testo(", max "), Lunghezza("15 ", "13 "), kCifre}},
    {{410}, {Lunghezza("9", "8"), Testo(" "), kCifre}, kSoloNormale, false},
    {{411}, {kVariabile, Testo(", a/b/c/d + "), kAlfabeto, Testo(": 0123456789+.-$:/ + e/m/t/*")}},
    {{412}, {Lunghezza("8", "7"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCBloccato},
    {{413}, {Lunghezza("10", "9"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{414}, {Lunghezza("13", "12"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{415}, {Lunghezza("13", "12"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{435}, {Testo("12 "), kCifre}, kNormaleCorto, true, R::ISBN},
    {{434}, {Testo("9 "), kCifre}, kNormaleCorto, true, R::ISBN},
    {{416}, {Lunghezza("15", "14"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{417}, {Lunghezza("18", "17"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{418}, {Lunghezza("12", "11"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{419}, {Lunghezza("14", "13"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{420}, {Lunghezza("17", "16"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{421}, {Testo("0/1 + "), Lunghezza("7", "6"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{422}, {Testo("0/1 + "), Lunghezza("9", "8"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{423}, {Testo("0/1 + "), Lunghezza("12", "11"), Testo(" "), kCifre}, kNormaleCorto, true, R::HRCSpuntato},
    {{424}, {kVariabile, Testo(", "), kAlfabeto, Testo(" ASCII")}},
    {{425}, {kVariabile, Testo(", "), kAlfabeto, Testo(" ASCII")}},
    {{}, {kVariabile, Testo(", "), kCifre}},
}};

constexpr std::size_t kRigaPredefinita = kRighe.size() - 1;

}  // namespace

const RigaAttributi& RigaAttributiPerVoce(int idVoce) {
    for (std::size_t r = 0; r < kRigaPredefinita; ++r)
        for (std::int16_t voce : kRighe[r].voci)
            if (voce != 0 && voce == idVoce) return kRighe[r];
    return kRighe[kRigaPredefinita];
}

std::vector<int> StiliOfferti(const RigaAttributi& riga) {
    std::vector<int> stili;
    for (int k = 0; k < 6; ++k)
        if (riga.stili & (1u << k)) stili.push_back(IdAttributi::PrimoStile + k);
    return stili;
}

std::string ComponiSuggerimento(const RigaAttributi& riga, bool checkDigit,
                                const std::function<std::string(int id)>& parola) {
    std::string suggerimento;
    for (const PezzoSuggerimento& pezzo : riga.pezzi) {
        if (pezzo.parola != 0)
            suggerimento += parola(pezzo.parola);
        else
            suggerimento += checkDigit ? pezzo.conCheck : pezzo.senzaCheck;
    }
    return suggerimento;
}

}  // namespace krt
