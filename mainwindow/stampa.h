// Print and export at an exact bar width: the row under the size with the module width
// (mm or mils), the printer's resolution and the labels per page, the figures KRT chooses
// from them, and the two actions that draw the symbol without its font.
#pragma once
#include <string>

#include <QString>
#include <QWidget>

#include "esportazione/esportazione.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QSettings;
class QSpinBox;

namespace krt {

// String ids of the row, the actions and their messages.
namespace IdStampa {
inline constexpr int Esporta = 770;
inline constexpr int Stampa = 771;
inline constexpr int Modulo = 772;
inline constexpr int SuggerimentoModulo = 773;
inline constexpr int Millimetri = 774;
inline constexpr int Mils = 775;
inline constexpr int Dpi = 776;
inline constexpr int SuggerimentoDpi = 777;
inline constexpr int Misura = 778;           // %1 module mm, %2 dots, %3 symbol mm, %4 points
inline constexpr int Copie = 779;
inline constexpr int SuggerimentoCopie = 780;
inline constexpr int PrimaGenera = 781;
inline constexpr int NonEsportato = 782;     // %1 file, %2 reason
inline constexpr int FamigliaMancante = 783; // %1 family
inline constexpr int MisuraFuori = 784;
inline constexpr int SenzaBarre = 785;       // %1 family
inline constexpr int FiltroFile = 786;
inline constexpr int TipoSconosciuto = 787;
inline constexpr int NonStampato = 788;
inline constexpr int TitoloEsporta = 789;
inline constexpr int GlifoMancante = 769;    // %1 byte
}  // namespace IdStampa

class PannelloStampa : public QWidget {
    Q_OBJECT
public:
    explicit PannelloStampa(QWidget* genitore);

    void CaricaTesti();
    // The sizing asked for: the module box when it holds a width, else the size in points.
    MisuraStampa Misura(double punti) const;
    int Copie() const;
    // The row's values kept in the host's settings store beside the window's geometry
    // (never in the options record).
    void Ripristina(QSettings& impostazioni);
    void Salva(QSettings& impostazioni) const;
    // The figures for a symbol (nullptr: none drawn, the line is empty).
    void Aggiorna(const SimboloDaDisegnare* simbolo, double punti);

signals:
    void cambiato();

private:
    QLabel* labModulo_;
    QLineEdit* txtModulo_;
    QComboBox* cmbUnita_;
    QLabel* labDpi_;
    QSpinBox* spnDpi_;
    QLabel* labCopie_;
    QSpinBox* spnCopie_;
    QLabel* labMisura_;
    // The font's measure of the last glyph string: the status updates at every keystroke.
    std::string glifiMisurati_;
    QString famigliaMisurata_;
    MisuraGlifi misura_;
};

// Why a drawing failed, in the current language ("" when it did not).
QString MotivoDisegno(const Disegno& disegno);

// Draws copie copies of the symbol at its exact size, in rows and columns from the top
// left of the page's printable area, on as many pages as they need. "" or the reason.
QString StampaCopie(QPrinter& stampante, const Disegno& disegno, int dpi, int copie);

}  // namespace krt
