// Printed size with whole printer dots per module (see dimensionamento.h).
#include "cycle/dimensionamento.h"

#include <algorithm>
#include <cmath>

namespace krt {

namespace {

struct RigaZone {
    std::string_view codice;
    ZoneRispetto zone;
};

// The codes whose readers ask for zones other than ten modules on each side.
constexpr RigaZone TabellaZone[] = {
    {"EAN13", {11, 7}}, {"ISBN", {11, 7}}, {"ISBN13", {11, 7}}, {"UPCA", {9, 9}},
    {"UPCE", {9, 7}},   {"EAN8", {7, 7}},
};
constexpr int ZonaDopoAddOn = 5;

bool Ammesso(int dpi, double moduliPerEm, double moduliSimbolo) {
    return dpi >= DpiMinimo && dpi <= DpiMassimo && std::isfinite(moduliPerEm) && moduliPerEm > 0 &&
           std::isfinite(moduliSimbolo) && moduliSimbolo >= 0;
}

Dimensionamento ConPunti(long puntiPerModulo, int dpi, double moduliPerEm, double moduliSimbolo) {
    Dimensionamento d;
    const double moduloMm = static_cast<double>(puntiPerModulo) * MmPerPollice / dpi;
    if (moduloMm > ModuloMassimoMm) return d;
    d.valido = true;
    d.puntiPerModulo = static_cast<int>(puntiPerModulo);
    d.moduloMm = moduloMm;
    d.punti = moduloMm / MmPerPollice * PuntiPerPollice * moduliPerEm;
    d.simboloMm = moduloMm * moduliSimbolo;
    return d;
}

}  // namespace

ZoneRispetto ZoneRispettoCodice(std::string_view codice, bool conAddOn) {
    ZoneRispetto zone;
    for (const auto& riga : TabellaZone)
        if (riga.codice == codice) zone = riga.zone;
    if (conAddOn) zone.destra = ZonaDopoAddOn;
    return zone;
}

Dimensionamento DimensionaDaModulo(double moduloMm, int dpi, double moduliPerEm, double moduliSimbolo) {
    if (!Ammesso(dpi, moduliPerEm, moduliSimbolo) || !std::isfinite(moduloMm) || moduloMm < ModuloMinimoMm ||
        moduloMm > ModuloMassimoMm)
        return {};
    return ConPunti(std::max(1L, std::lround(moduloMm / MmPerPollice * dpi)), dpi, moduliPerEm, moduliSimbolo);
}

Dimensionamento DimensionaDaPunti(double punti, int dpi, double moduliPerEm, double moduliSimbolo) {
    if (!Ammesso(dpi, moduliPerEm, moduliSimbolo) || !std::isfinite(punti) || punti <= 0) return {};
    const double puntiPerModulo = punti / PuntiPerPollice / moduliPerEm * dpi;
    if (puntiPerModulo > ModuloMassimoMm / MmPerPollice * dpi + 1) return {};
    return ConPunti(std::max(1L, std::lround(puntiPerModulo)), dpi, moduliPerEm, moduliSimbolo);
}

}  // namespace krt
