// Sheets of labels (see etichette.h).
#include "cycle/etichette.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "cycle/dimensionamento.h"

namespace krt {

namespace {

constexpr double Tolleranza = 1e-6;  // mm: a symbol exactly as wide as its cell fits

bool Misura(double mm) { return std::isfinite(mm) && mm >= 0; }

// The whole dot nearest to the centred position: inside the space whenever the space leaves
// the symbol a dot or more to spare.
long Centra(double inizioMm, double spazioMm, double latoMm, int dpi) {
    return std::lround((inizioMm + (spazioMm - latoMm) / 2) * dpi / MmPerPollice);
}

}  // namespace

bool FoglioValido(const FoglioEtichette& f) {
    if (f.colonne < 1 || f.righe < 1 || f.colonne > EtichetteMassimePerLato || f.righe > EtichetteMassimePerLato)
        return false;
    for (const double mm : {f.paginaLarghezzaMm, f.paginaAltezzaMm, f.margineAltoMm, f.margineBassoMm,
                            f.margineSinistroMm, f.margineDestroMm})
        if (!Misura(mm)) return false;
    const RettangoloMm c = CellaTipo(f);
    return c.larghezza > Tolleranza && c.altezza > Tolleranza;
}

RettangoloMm CellaTipo(const FoglioEtichette& f) {
    return {f.margineSinistroMm, f.margineAltoMm,
            (f.paginaLarghezzaMm - f.margineSinistroMm - f.margineDestroMm) / std::max(f.colonne, 1),
            (f.paginaAltezzaMm - f.margineAltoMm - f.margineBassoMm) / std::max(f.righe, 1)};
}

PostoEtichetta PostoDiEtichetta(const FoglioEtichette& f, long indice) {
    const long perPagina = static_cast<long>(std::max(f.colonne, 1)) * std::max(f.righe, 1);
    const long suPagina = indice % perPagina;
    RettangoloMm c = CellaTipo(f);
    c.x += static_cast<double>(suPagina % std::max(f.colonne, 1)) * c.larghezza;
    c.y += static_cast<double>(suPagina / std::max(f.colonne, 1)) * c.altezza;
    return {indice / perPagina, c};
}

long PagineEtichette(const FoglioEtichette& f, long etichette) {
    const long perPagina = static_cast<long>(std::max(f.colonne, 1)) * std::max(f.righe, 1);
    return (std::max(etichette, 0L) + perPagina - 1) / perPagina;
}

bool EntraInCella(const RettangoloMm& cella, double larghezzaMm, double altezzaMm) {
    return larghezzaMm <= cella.larghezza + Tolleranza && altezzaMm <= cella.altezza + Tolleranza;
}

PuntoDots OrigineCentrata(const RettangoloMm& cella, double larghezzaMm, double altezzaMm, int dpi) {
    return {Centra(cella.x, cella.larghezza, larghezzaMm, dpi), Centra(cella.y, cella.altezza, altezzaMm, dpi)};
}

}  // namespace krt
