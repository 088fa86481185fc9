// What the window tells about a content that is accepted but probably not what the user
// meant (a wrong check digit, an ISBN-13 outside 978/979, a GS1 date that cannot exist),
// the facts behind the refusal of a complete number typed with its check digit, the HRC
// line with its control characters made readable, and the printed width of a symbol.
// Pure functions, no Qt: the window and the wizard turn them into texts.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace krt {

// GS1 check digit (mod 10, weights 3 and 1 from the right) of a string of digits.
char CifraCheckGS1(std::string_view cifre);

// A number typed whole, its own check digit last (Check Digit unticked), whose last
// digit is not the check digit of the rest: the digit it should be. Codes "EAN13",
// "EAN8", "UPCA", "UPCE" (number system 0 or 1) and "ITF" (UCC-ITF 14) at their full
// length; nothing for another code, another length or a character that is not a digit.
std::optional<char> CheckDigitErrato(std::string_view codice, std::string_view contenuto);

// A number typed with its check digit where the check digit is added for the user (Check
// Digit ticked, or ISBN, where it always is): how many digits were typed and how many
// to type, and the check digit the last one should have been when it is wrong.
struct CifraInPiu {
    std::size_t digitate = 0;
    std::size_t daDigitare = 0;
    std::optional<char> checkErrato;
};
std::optional<CifraInPiu> CheckDigitInPiu(std::string_view codice, std::string_view contenuto, bool check);

// An ISBN-13 content (its 12 or 13 digits) that does not begin with 978 or 979.
bool PrefissoISBNErrato(std::string_view contenuto);

// GS1 keys: AI 00 (SSCC, 18 digits), 01 and 02 (GTIN, 14), 410-415 (GLN, 13): the check
// digit the value should end with, when it ends with another; nothing otherwise.
std::optional<char> CheckDigitChiaveGS1(std::string_view ai, std::string_view valore);

// A date YYMMDD of AI 11-17 with a month outside 1-12 or a day past the month's last
// (day 00 stands for the month's end); false for other AIs and for values that are not
// six digits (the wizard's own checks see to those).
bool DataGS1Impossibile(std::string_view ai, std::string_view valore);

// The HRC text of a content that reads escapes, as the user should see it: escapes read,
// control characters (and in Code 128 the function characters 128-132) as "<HT>",
// "<GS>", "<FNC1>"... An escape that yields no character stays as typed.
std::string HRCLeggibile(std::string_view hrc, bool codice128);

// The largest size word processors accept for a font (LibreOffice stops below 1000).
inline constexpr int DimensioneMassima = 999;
// A text column of an A4 or Letter page with ordinary margins.
inline constexpr double LarghezzaColonnaMm = 160;

// Printed width in millimetres of a line whose advance is larghezzaEm ems at punti points.
double LarghezzaMm(double larghezzaEm, double punti);

}  // namespace krt
