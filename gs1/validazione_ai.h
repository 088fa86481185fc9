// Checks of the values typed for an Application Identifier, and the small text
// procedures the wizard shares between checking and writing values.
#pragma once
#include <string>
#include <string_view>

namespace krt {

// String-table ids of the wizard's messages (title: MessaggioTitoloErrore).
inline constexpr int MessaggioTitoloErrore = 92;
inline constexpr int MessaggioValoreNonAmmesso = 93;
inline constexpr int MessaggioImpossibileAnnullare = 688;
inline constexpr int MessaggioCodiceVuoto = 689;
inline constexpr int MessaggioLunghezzaErrata = 697;
inline constexpr int MessaggioNonIntero = 698;
inline constexpr int MessaggioPrime14NonCifre = 699;
inline constexpr int MessaggioPrime3NonCifre = 700;
inline constexpr int MessaggioNonNumero = 701;

// English text of one of the message ids above, "" for any other id. For programs
// without the string table (krt-encode); the dialog reads the table.
std::string_view TestoMessaggioInglese(int id);

// Outcome of ValidaValoreAI.
struct EsitoValoreAI {
    bool accettato = false;
    int idMessaggio = 0; // message to show when refused, 0 when accepted
    std::string valore;  // the value to insert: as given, or completed with its check digit ("n18")
};

// Decides whether a value may be inserted for an AI with the given format code.
// A 17-digit "n18" value is accepted and completed with its GS1 check digit.
EsitoValoreAI ValidaValoreAI(std::string_view valore, std::string_view formato);

// Number grammar of the two validators. A number is, with blanks (spaces) allowed
// around it, a run of digits "0"-"9" with at most one "." among or after them and at
// least one digit: "12", " 12", "12.5", "12.", ".5". There is no sign, no exponent,
// no thousands separator and the decimal separator is always "." whatever the
// locale, so what a validator accepts is written into the symbol as digits (and the
// point that ComponiElementoAI removes). Negative numbers ("-5", and "-0" too) are
// therefore refused by both.
//
// True when the text is a number of the grammar above without a ".".
bool ValidaNumeroIntero(std::string_view testo);
// True when the text is a number of the grammar above.
bool ValidaNumeroDecimale(std::string_view testo);

// The text from its first character other than ch; "" when there is none.
std::string CTrimL(std::string_view testo, char ch);
// The text up to its last character other than ch; "" when there is none.
std::string CTrimR(std::string_view testo, char ch);
// Every occurrence of trova replaced, left to right and without overlap.
// An empty trova leaves the text as it is.
std::string StrTran(std::string_view testo, std::string_view trova, std::string_view sostituto);
// The text without the spaces at both ends.
std::string TagliaSpazi(std::string_view testo);

// GS1 mod-10 check digit (one-character text). Characters other than digits count 0;
// a 12-character text weighs its even positions 3, any other length its odd ones.
std::string CalcolaCheckGS1(std::string_view cifre);

}  // namespace krt
