// A symbol that needs no font: the glyph string and its HRC line turned into outlines,
// sized so that every module is a whole number of printer dots, with the quiet zones of
// the symbology, on white; written as PNG, SVG or PDF, or drawn on any paint device
// (the printer). Shared by krt-encode --export and the window's Export and Print.
#pragma once
#include <string>

#include <QFont>
#include <QPainterPath>
#include <QSizeF>
#include <QString>

#include "cycle/dimensionamento.h"

class QPainter;

namespace krt {

// What is drawn.
struct SimboloDaDisegnare {
    std::string glifi;     // Windows-1252 glyph string, "\r\n" between its lines
    QString famiglia;      // the barcode font family
    std::string codice;    // symbology code: the quiet zones
    bool addOn = false;    // the glyphs end with an add-on
    QString hrc;           // the HRC line, empty for none
    QFont fontHRC;         // its font; the point size is the printed size
};

// How big: a module width, or else a font size, brought to whole dots at dpi.
struct MisuraStampa {
    int dpi = 600;
    double moduloMm = 0;  // > 0: the module wished
    double punti = 0;     // used when moduloMm is 0
};

// What the font tells of a glyph string: modules in one em and across the string.
// The module is the narrowest full-height bar of the glyphs drawn.
struct MisuraGlifi {
    double moduliPerEm = 0;
    double moduliSimbolo = 0;
};

enum class ErroreDisegno {
    Nessuno,
    FamigliaMancante,   // the family is not installed (argomento: the family)
    GlifoMancante,      // the font has no glyph for a byte (argomento: its code)
    SenzaBarre,         // no bar to measure a module on
    Misura,             // module width, size or resolution out of range
};

// The drawing in points (1/72 inch), its top-left corner at 0,0.
struct Disegno {
    QPainterPath barre;
    QPainterPath testo;
    QSizeF dimensione;           // quiet zones included
    MisuraGlifi misura;
    Dimensionamento dimensionamento;
    ZoneRispetto zone;
    ErroreDisegno errore = ErroreDisegno::Nessuno;
    QString argomento;
    explicit operator bool() const { return errore == ErroreDisegno::Nessuno; }
};

// True when the family is installed (or added from a folder), compared as the font
// system reports it, case ignored.
bool FamigliaPresente(const QString& famiglia);

// The measure of a glyph string in a family (moduliPerEm 0 when it cannot be taken).
MisuraGlifi MisuraGlifiFamiglia(const std::string& glifi, const QString& famiglia);

Disegno PreparaDisegno(const SimboloDaDisegnare& simbolo, const MisuraStampa& misura);

// Paints the white ground and the drawing with its top-left corner at origine; the
// painter's units are points.
void DipingiDisegno(QPainter& pittore, const Disegno& disegno, QPointF origine = {});

enum class FormatoFile { Sconosciuto, Png, Svg, Pdf };
// By the file name's extension, case ignored.
FormatoFile FormatoDaNome(const QString& percorso);

// Writes the drawing; false with a reason (English) when the file cannot be written.
bool ScriviDisegno(const QString& percorso, const Disegno& disegno, int dpi, QString& errore);

// Adds every font file (.ttf, .otf, .ttc) of a folder to this process. Returns how many
// were added, -1 when the folder cannot be read.
int AggiungiCartellaFont(const QString& cartella);

}  // namespace krt
