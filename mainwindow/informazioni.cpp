#include "mainwindow/informazioni.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "support/stringhe.h"

#ifndef KRT_VERSIONE
#define KRT_VERSIONE "0.0.0"
#endif

namespace krt {

Informazioni::Informazioni(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Informazioni"));
    setWindowTitle(CaricaStringa(IdStringa::TitoloInformazioni));

    auto etichetta = [this](const char* nome, const QString& testo) {
        auto* l = new QLabel(testo, this);
        l->setObjectName(QLatin1String(nome));
        l->setWordWrap(true);
        l->setMinimumWidth(420);
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return l;
    };
    QLabel* nome = etichetta("labNome", CaricaStringa(IdStringa::NomeProgramma));
    QFont grande = nome->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.6);
    grande.setBold(true);
    nome->setFont(grande);
    QLabel* versione =
        etichetta("labVersione", CaricaStringa(IdStringa::Versione).arg(QLatin1String(KRT_VERSIONE)));
    QLabel* descrizione = etichetta("labDescrizione", CaricaStringa(IdStringa::DescrizioneProgramma));
    QLabel* assistenza = etichetta("labAssistenza", CaricaStringa(IdStringa::Assistenza));

    auto* pulsanti = new QDialogButtonBox(this);
    QPushButton* ok = pulsanti->addButton(CaricaStringa(90), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOk"));
    ok->setDefault(true);
    connect(pulsanti, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(nome);
    layout->addWidget(versione);
    layout->addWidget(descrizione);
    layout->addWidget(assistenza);
    layout->addWidget(pulsanti);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace krt
