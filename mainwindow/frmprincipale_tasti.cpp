// The window's event filter: key events of the content and size boxes translated into
// VB-style key codes for their key-press handlers, and the preview box's resizing.
#include "mainwindow/frmprincipale.h"

#include <exception>

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextEdit>

#include "mainwindow/frmprincipale_comune.h"
#include "support/cp1252.h"

namespace krt {

using namespace finestra;

namespace {

// VB-style key code of a key event: 13 Enter, 8 backspace, the Windows-1252
// code of a typed character; -1 for keys that type nothing (arrows, Tab,
// Delete, shortcuts with Ctrl), which never reach a key-press handler.
int CodiceTasto(const QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete: return -1;
    default: break;
    }
    if (evento->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) return -1;
    const QString testo = evento->text();
    if (testo.size() != 1) return -1;
    const std::string byte = AWindows1252Sostituendo(testo);
    return static_cast<unsigned char>(byte[0]);
}

}  // namespace

bool frmPrincipale::eventFilter(QObject* oggetto, QEvent* evento) {
    try {
        if (oggetto == txtCodice) {
            if (evento->type() == QEvent::KeyPress) {
                int tasto = CodiceTasto(static_cast<QKeyEvent*>(evento));
                if (tasto == 13) {
                    txtCodice_KeyPress(tasto);
                    return tasto == 0;
                }
            } else if (evento->type() == QEvent::FocusIn) {
                txtCodice_GotFocus();
            }
        } else if (oggetto == rtfContenuto) {
            if (evento->type() == QEvent::Resize) AggiornaVista();
        } else if (oggetto == txtDimensione) {
            if (evento->type() == QEvent::KeyPress) {
                int tasto = CodiceTasto(static_cast<QKeyEvent*>(evento));
                if (tasto >= 0) {
                    txtDimensione_KeyPress(tasto);
                    if (tasto == 0) return true;
                }
            } else if (evento->type() == QEvent::FocusIn) {
                txtDimensione_GotFocus();
            } else if (evento->type() == QEvent::FocusOut) {
                // Only a move to another control of the window counts; opening a
                // menu or switching to another program does not.
                const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
                if (motivo != Qt::PopupFocusReason && motivo != Qt::ActiveWindowFocusReason) txtDimensione_LostFocus();
            }
        }
    } catch (const std::exception& e) {
        MostraErrore(DettaglioImprevisto(e));
        return true;
    }
    return QMainWindow::eventFilter(oggetto, evento);
}

}  // namespace krt
