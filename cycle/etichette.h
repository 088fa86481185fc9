// Sheets of labels: a page in mm divided, inside its margins, into columns × rows equal
// cells; label i takes the cells across then down, page after page. Each symbol is centred
// in its cell with its top-left corner on a whole printer dot. Pure functions, no Qt.
#pragma once

namespace krt {

inline constexpr int EtichetteMassimePerLato = 100;  // columns or rows on a page

struct FoglioEtichette {
    double paginaLarghezzaMm = 210;  // A4 portrait
    double paginaAltezzaMm = 297;
    int colonne = 3;
    int righe = 8;
    double margineAltoMm = 10;
    double margineBassoMm = 10;
    double margineSinistroMm = 10;
    double margineDestroMm = 10;
};

// From the page's top-left corner.
struct RettangoloMm {
    double x = 0, y = 0, larghezza = 0, altezza = 0;
};

// True when the sheet has cells to draw in: 1 to EtichetteMassimePerLato columns and rows,
// margins not negative, and room left between them.
bool FoglioValido(const FoglioEtichette& foglio);

// The size of one cell (meaningful for a valid sheet).
RettangoloMm CellaTipo(const FoglioEtichette& foglio);

// Where label number indice (from 0) goes: its page (from 0) and its cell.
struct PostoEtichetta {
    long pagina = 0;
    RettangoloMm cella;
};
PostoEtichetta PostoDiEtichetta(const FoglioEtichette& foglio, long indice);

// Pages needed for a number of labels.
long PagineEtichette(const FoglioEtichette& foglio, long etichette);

// Whether a symbol of that size fits in the cell.
bool EntraInCella(const RettangoloMm& cella, double larghezzaMm, double altezzaMm);

// The top-left corner, in printer dots from the page's corner, of a symbol centred in the
// cell: the nearest whole dot (inside the cell whenever the cell leaves a dot or more to spare).
struct PuntoDots {
    long x = 0, y = 0;
};
PuntoDots OrigineCentrata(const RettangoloMm& cella, double larghezzaMm, double altezzaMm, int dpi);

}  // namespace krt
