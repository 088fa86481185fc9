// Localised string lookup. English texts have ids below 1000, the Italian text of id k
// is at k + 1000; the process-wide language offset picks the language.
#pragma once
#include <cstdint>
#include <stdexcept>

#include <QString>

namespace krt {

inline constexpr std::int16_t kOffsetInglese = 0;
inline constexpr std::int16_t kOffsetItaliano = 1000;

// Ids of the texts that the main window and the wizard use besides the quoted ones.
namespace IdStringa {
inline constexpr int TitoloAvviso = 89;            // title of a warning box
inline constexpr int SuggerimentoWizard = 150;     // tooltip of the wizard button
inline constexpr int FontNonInstallato = 287;      // %1 = font family
inline constexpr int StileSenzaFont = 288;         // %1 = style text
inline constexpr int CartellaNonScrivibile = 293;  // %1 = data folder
inline constexpr int DettaglioEscape = 294;        // detail of krt::EscapeNonValido
inline constexpr int DettaglioCheckSum = 295;      // detail of krt::OverflowCheckSum
inline constexpr int DettaglioIntervallo = 296;    // detail of krt::IntervalloNonValido
inline constexpr int DettaglioImprevisto = 297;    // %1 = text of any other fault
inline constexpr int NomeProgramma = 950;
inline constexpr int DescrizioneProgramma = 951;
inline constexpr int Versione = 952;               // %1 = version number
inline constexpr int Assistenza = 953;
inline constexpr int TitoloInformazioni = 954;
}  // namespace IdStringa

// A lookup the table cannot answer: the id plus the language offset does not fit in
// 16 bits, or the table has no text for it.
class ErroreTabellaStringhe : public std::runtime_error {
public:
    enum class Motivo { Overflow, IdMancante };
    ErroreTabellaStringhe(Motivo motivo, int id);
    Motivo motivo() const noexcept { return motivo_; }
    int id() const noexcept { return id_; }

private:
    Motivo motivo_;
    int id_;
};

std::int16_t OffsetLingua();
void ImpostaOffsetLingua(std::int16_t offset);

// The text of id + OffsetLingua(). Throws ErroreTabellaStringhe.
QString CaricaStringa(int id);

// The text of id itself, whatever the language. Throws ErroreTabellaStringhe.
QString CaricaStringaFissa(int id);

}  // namespace krt
